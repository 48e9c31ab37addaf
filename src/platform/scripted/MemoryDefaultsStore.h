#pragma once

#include "platform/DefaultsStore.h"

#include <QVariantMap>

#include <functional>

namespace brivandel {

/// Settings that live in memory only, for runs that must not change the user's own.
class MemoryDefaultsStore final : public DefaultsStore {
public:
    /// Told of each write; the value is invalid when the key was removed.
    using WriteObserver = std::function<void(const QString& key, const QVariant& value)>;

    explicit MemoryDefaultsStore(QVariantMap objects = {}, WriteObserver observer = {});

    [[nodiscard]] QVariant object(const QString& key) const override;
    [[nodiscard]] QVariantMap objects() const override { return objects_; }
    void set(const QString& key, const QVariant& value) override;
    void remove(const QString& key) override;

    /// Puts an object there as if it had always been there: nobody is told.
    void preset(const QString& key, const QVariant& value);

private:
    QVariantMap objects_;
    WriteObserver observer_;
};

} // namespace brivandel

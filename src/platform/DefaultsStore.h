#pragma once

#include <QString>
#include <QVariant>
#include <QVariantMap>

namespace brivandel {

/// An object that another program has stored and that is of no type of this one's, as an array or a date.
struct ForeignObject {
    bool operator==(const ForeignObject&) const = default;
};

/// The user's stored settings, a map from key to object. Objects are Booleans, 64-bit integers, strings and
/// data (bool, qlonglong, QString, QByteArray in the QVariant), and stay what they are; others may put reals
/// (double) there, and what reads as a ForeignObject. Main thread.
class DefaultsStore {
public:
    virtual ~DefaultsStore() = default;
    /// An invalid variant when nothing is stored under the key.
    [[nodiscard]] virtual QVariant object(const QString& key) const = 0;
    /// Everything that is stored.
    [[nodiscard]] virtual QVariantMap objects() const = 0;
    /// In the store, for this and any other process, when it returns. Failures are reported in the log only.
    virtual void set(const QString& key, const QVariant& value) = 0;
    virtual void remove(const QString& key) = 0;
};

} // namespace brivandel

Q_DECLARE_METATYPE(brivandel::ForeignObject)

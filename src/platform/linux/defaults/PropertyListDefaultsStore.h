#pragma once

#include "platform/DefaultsStore.h"
#include "platform/linux/defaults/PropertyList.h"

#include <QString>
#include <QVariantMap>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace brivandel {

class DiagnosticLog;
class WorkQueue;

/// The user's settings as one property-list file. Each write takes the file as it is at that moment, changes
/// one key and puts the new file in its place, under a lock: two programs at once lose no key, and whoever is
/// interrupted leaves the old file or the new one. Reading is from memory.
///
/// A file that is no property list is kept under another name, which is said once in the log and to the user,
/// and the settings start empty. A write that fails is logged; its value holds meanwhile, and goes into the
/// file with the next write.
class PropertyListDefaultsStore final : public DefaultsStore {
public:
    /// Tells a person that something is wrong with the settings file.
    using Complaint = std::function<void(const QString& message)>;

    /// The file's usual place in the user's configuration folder.
    [[nodiscard]] static QString defaultPath();

    /// workQueue may be null; otherwise the disk is flushed on it after each write.
    PropertyListDefaultsStore(QString path, DiagnosticLog& log, WorkQueue* workQueue, Complaint complaint);

    [[nodiscard]] QVariant object(const QString& key) const override;
    [[nodiscard]] QVariantMap objects() const override { return list_.objects(); }
    void set(const QString& key, const QVariant& value) override;
    void remove(const QString& key) override;

private:
    /// The file as it is now; none when there is no file, or none that can be read.
    [[nodiscard]] std::optional<PropertyList> readFile();
    void change(const QString& key, const QVariant& value);
    void keepAside(const QString& reason);

    QString path_;
    DiagnosticLog& log_;
    WorkQueue* workQueue_;
    Complaint complaint_;
    PropertyList list_;
    QVariantMap unwritten_; // invalid values stand for removed keys
    std::shared_ptr<std::atomic<bool>> flushIsPending_ = std::make_shared<std::atomic<bool>>(false);
};

} // namespace brivandel

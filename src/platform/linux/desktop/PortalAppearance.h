#pragma once

#include "platform/Desktop.h"

#include <QDBusVariant>
#include <QObject>

namespace brivandel {

/// The setting that desktops publish through the settings portal (org.freedesktop.appearance, color-scheme).
class PortalAppearance final : public QObject, public DesktopAppearance {
    Q_OBJECT
public:
    /// Asks without waiting for the answer, which then counts as a change.
    PortalAppearance();

    [[nodiscard]] Preference preference() const override { return preference_; }
    void onChange(std::function<void()> changed) override;

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask();
    void take(QVariant value);

    Preference preference_ = Preference::None;
    std::function<void()> changed_;
};

} // namespace brivandel

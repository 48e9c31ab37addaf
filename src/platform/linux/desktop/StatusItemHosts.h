#pragma once

#include "platform/Desktop.h"

#include <QObject>

#include <memory>

class QDBusServiceWatcher;

namespace brivandel {

class X11Events;

/// The two kinds of tray that there are: panels that have registered as hosts of status items on the session
/// bus (at org.kde.StatusNotifierWatcher), and trays of the older kind on the X display. Asks without
/// waiting: a panel is there once it has been heard of.
class StatusItemHosts final : public QObject, public StatusArea {
    Q_OBJECT
public:
    explicit StatusItemHosts(std::shared_ptr<X11Events> display);
    ~StatusItemHosts() override;

    [[nodiscard]] bool isThere() const override;
    void onChange(std::function<void()> changed) override;
    [[nodiscard]] bool hasSquareIcons() const override { return true; }
    [[nodiscard]] bool opensMenus() const override { return false; } // most panels do not

private Q_SLOTS:
    void askForPanel();

private:
    void setHasPanel(bool hasPanel);
    void tell();

    std::shared_ptr<X11Events> display_;
    QDBusServiceWatcher* watcher_;
    bool hasPanel_ = false;
    std::function<void()> changed_;
};

} // namespace brivandel

#pragma once

#include "platform/Desktop.h"

#include <QColor>
#include <QObject>
#include <QRect>
#include <QString>
#include <QSystemTrayIcon>

#include <memory>

class QMenu;

namespace brivandel {

/// The program's item in the desktop's status area: an icon and a menu that any click opens. It shows as soon
/// as there is an area to show it in, and again when that comes back.
class StatusItem final : public QObject {
    Q_OBJECT
public:
    /// The area must outlive it.
    explicit StatusItem(StatusArea& area);
    ~StatusItem() override;

    /// The menu must outlive it.
    void setMenu(QMenu* menu);
    /// letters: the colour of the icon while not listening, where the area does not tint it.
    void setIcon(bool listening, const QColor& letters);
    void setToolTip(const QString& text);

    /// In global coordinates; empty where the area does not tell.
    [[nodiscard]] QRect place() const;

Q_SIGNALS:
    /// Before its menu opens.
    void menuWillOpen();

private:
    void follow();
    void openMenu();

    StatusArea& area_;
    std::unique_ptr<QSystemTrayIcon> icon_;
    QMenu* menu_ = nullptr;
    std::unique_ptr<QMenu> clickMenu_;
    QIcon picture_;
    QString toolTip_;
};

} // namespace brivandel

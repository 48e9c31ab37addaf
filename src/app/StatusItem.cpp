#include "app/StatusItem.h"

#include "app/MenuBarIcon.h"

#include <QCursor>
#include <QMenu>

namespace brivandel {

StatusItem::StatusItem(StatusArea& area) : area_(area) {
    area_.onChange([this] { follow(); });
}

StatusItem::~StatusItem() {
    area_.onChange({});
}

void StatusItem::setMenu(QMenu* menu) {
    menu_ = menu;
    // The panel may show the menu itself, over the session bus; for clicks that it only reports there is a
    // second menu of the same items.
    clickMenu_ = std::make_unique<QMenu>();
    clickMenu_->addActions(menu->actions());
    connect(menu_, &QMenu::aboutToShow, this, &StatusItem::menuWillOpen);
    connect(clickMenu_.get(), &QMenu::aboutToShow, this, &StatusItem::menuWillOpen);
    follow();
}

void StatusItem::setIcon(bool listening, const QColor& letters) {
    picture_ = area_.hasSquareIcons() ? makeTrayIcon(listening, letters) : QIcon();
    if (!area_.hasSquareIcons()) {
        for (const double density : {1.0, 2.0}) {
            picture_.addPixmap(makeMenuBarIcon(listening, letters, density));
        }
        picture_.setIsMask(!listening);
    }
    if (icon_) {
        icon_->setIcon(picture_);
    }
}

void StatusItem::setToolTip(const QString& text) {
    toolTip_ = text;
    if (icon_) {
        icon_->setToolTip(text);
    }
}

QRect StatusItem::place() const {
    return icon_ ? icon_->geometry() : QRect();
}

// An item made before there is an area stays with the kind of area that Qt guesses; so it is made when there
// is one, and anew for one that comes later.
void StatusItem::follow() {
    icon_.reset();
    if (!area_.isThere()) {
        return;
    }
    icon_ = std::make_unique<QSystemTrayIcon>(this);
    icon_->setIcon(picture_);
    icon_->setToolTip(toolTip_);
    if (menu_ != nullptr) {
        icon_->setContextMenu(menu_);
    }
    connect(icon_.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        // The context menu opens by itself.
        if (reason != QSystemTrayIcon::Context && !area_.opensMenus()) {
            openMenu();
        }
    });
    icon_->show();
}

void StatusItem::openMenu() {
    if (clickMenu_) {
        const QRect item = place();
        clickMenu_->popup(item.isEmpty() ? QCursor::pos() : item.bottomLeft() + QPoint(0, 1));
    }
}

} // namespace brivandel

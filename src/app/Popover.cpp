#include "app/Popover.h"

#include "widgets/AccessibleRole.h"
#include "widgets/Colors.h"

#include <QApplication>
#include <QBitmap>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

constexpr int cornerRadius = 10;
constexpr int distanceToAnchor = 4;
// What a panel needs to tell its program over the session bus that its item was pressed.
constexpr auto patienceForTheItem = 200ms;
// From the press on a menu's item to the word of the panel that shows the menu.
constexpr auto longestClick = 1s;

} // namespace

Popover::Popover(QWidget* content, PointerPresses& presses, MainQueue& mainQueue)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
    , presses_(presses)
    , mainQueue_(mainQueue) {
    // macOS would hide it while another program is in front, which the workstation is.
    setAttribute(Qt::WA_MacAlwaysShowToolWindow);
    setObjectName(QStringLiteral("popover"));
    setAccessibleRole(*this, QAccessible::Dialog);
    setWindowTitle(QStringLiteral("Brivandel"));
    setFocusPolicy(Qt::StrongFocus); // the keyboard comes here first, and no control looks chosen
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(content);
}

Popover::~Popover() {
    presses_.watch({});
}

void Popover::showBeside(const QRect& anchor) {
    anchor_ = anchor;
    adjustSize();
    place();
    show();
    raise();
    activateWindow(); // for the keyboard; no other window of the program comes forward
    setFocus();
}

void Popover::setItemPlace(const QRect& place) {
    itemPlace_ = place;
}

void Popover::keepOpen() {
    closing_.reset();
}

bool Popover::wasJustPressedAway() const {
    return pressedAway_ && mainQueue_.now() - *pressedAway_ < longestClick;
}

void Popover::place() {
    const QScreen* screen = QGuiApplication::screenAt(anchor_.center());
    const QRect room = (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    int top = anchor_.bottom() + 1 + distanceToAnchor;
    if (top + height() > room.bottom() + 1) {
        top = anchor_.top() - distanceToAnchor - height();
    }
    top = std::clamp(top, room.top(), std::max(room.top(), room.bottom() + 1 - height()));
    const int left = std::clamp(anchor_.center().x() - width() / 2, room.left(),
                                std::max(room.left(), room.right() + 1 - width()));
    move(left, top);
}

void Popover::pressed(QPoint physicalPlace) {
    const QScreen* screen = this->screen();
    const double ratio = screen->devicePixelRatio();
    const QPoint origin = screen->geometry().topLeft();
    const QPoint place = origin + (QPointF(physicalPlace - origin) / ratio).toPoint();
    // A menu or list that the program itself has open over it takes the press.
    if (frameGeometry().contains(place) || QApplication::activePopupWidget() != nullptr ||
        itemPlace_.contains(place)) {
        return;
    }
    const auto closeAway = [this] {
        pressedAway_ = mainQueue_.now();
        close();
    };
    if (itemPlace_.isEmpty()) {
        closing_ = mainQueue_.startTimer(patienceForTheItem, closeAway);
    } else {
        closeAway();
    }
}

bool Popover::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate && !presses_.areKnown()) {
        close();
    }
    return QWidget::event(event);
}

void Popover::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Popover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(controlBorderColor(appearanceOf(palette())));
    painter.setBrush(palette().window());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}

void Popover::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // Not every desktop composes windows, and one that does not would paint the corners black.
    QBitmap shape(size());
    shape.clear();
    QPainter painter(&shape);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), cornerRadius, cornerRadius);
    painter.end();
    setMask(shape);
    // It grows when something has been heard: at the bottom of the screen it grows upwards.
    if (isVisible()) {
        place();
    }
}

void Popover::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    presses_.watch([this](QPoint place) { pressed(place); });
}

void Popover::hideEvent(QHideEvent* event) {
    presses_.watch({});
    closing_.reset();
    QWidget::hideEvent(event);
}

} // namespace brivandel

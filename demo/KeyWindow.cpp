#include "demo/KeyWindow.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

namespace brivandel {

namespace {

constexpr std::size_t shownKeyCount = 6;
constexpr int margin = 36;
const QColor backgroundTop(0x26, 0x28, 0x2d);
const QColor backgroundBottom(0x17, 0x18, 0x1b);
const QColor cap(0x34, 0x37, 0x3e);
const QColor newestCap(0x2f, 0xa8, 0x5b);
const QColor titleInk(0xf2, 0xf3, 0xf5);
const QColor faintInk(0x8b, 0x90, 0x9a);

QFont inter(int pixelSize, QFont::Weight weight) {
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}

} // namespace

KeyWindow::KeyWindow(const QString& title, Reports reports) : reports_(std::move(reports)) {
    setTitle(title);
    resize(720, 360);
    setMinimumSize({420, 240});
}

void KeyWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    QLinearGradient background(0, 0, 0, height());
    background.setColorAt(0, backgroundTop);
    background.setColorAt(1, backgroundBottom);
    painter.fillRect(0, 0, width(), height(), background);

    painter.setPen(titleInk);
    painter.setFont(inter(26, QFont::DemiBold));
    painter.drawText(QRect(margin, margin - 10, width() - 2 * margin, 36), Qt::AlignLeft | Qt::AlignVCenter,
                     title());
    painter.setPen(faintInk);
    painter.setFont(inter(14, QFont::Normal));
    painter.drawText(QRect(margin, margin + 28, width() - 2 * margin, 24), Qt::AlignLeft | Qt::AlignVCenter,
                     keys_.empty() ? QStringLiteral("Waiting for keys")
                                   : QStringLiteral("Keys received, newest first"));
    paintKeys(painter);
}

/// The newest key takes the large cap on the left; those before it fade away to the right.
void KeyWindow::paintKeys(QPainter& painter) const {
    constexpr std::array capHeights{128, 84, 72, 60, 48, 40};
    static_assert(capHeights.size() == shownKeyCount);
    const int middle = (height() + margin + 52) / 2;
    int left = margin;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const int capHeight = capHeights.at(i);
        painter.setFont(inter(capHeight * 5 / 12, i == 0 ? QFont::DemiBold : QFont::Medium));
        const QString label = keys_[i].label();
        const int textWidth = painter.fontMetrics().horizontalAdvance(label) + capHeight / 2;
        const QRect capRect(left, middle - capHeight / 2, std::max(capHeight, textWidth), capHeight);
        if (capRect.right() > width() - margin / 2) {
            break;
        }
        painter.setOpacity(1.0 - 0.14 * static_cast<double>(i));
        painter.setPen(Qt::NoPen);
        painter.setBrush(i == 0 ? newestCap : cap);
        painter.drawRoundedRect(capRect, capHeight / 8.0, capHeight / 8.0);
        painter.setPen(titleInk);
        painter.drawText(capRect, Qt::AlignCenter, label);
        left = capRect.right() + 14;
    }
}

void KeyWindow::keyPressEvent(QKeyEvent* event) {
    const ReceivedKey key = ReceivedKey::from(*event, std::chrono::steady_clock::now());
    reports_.key(key);
    if (key.isModifier()) {
        return;
    }
    keys_.push_front(key);
    if (keys_.size() > shownKeyCount) {
        keys_.pop_back();
    }
    update();
}

void KeyWindow::focusInEvent(QFocusEvent* event) {
    QRasterWindow::focusInEvent(event);
    reportReady();
}

void KeyWindow::exposeEvent(QExposeEvent* event) {
    QRasterWindow::exposeEvent(event);
    reportReady();
}

void KeyWindow::reportReady() {
    if (!wasReady_ && isExposed() && isActive()) {
        wasReady_ = true;
        reports_.ready(winId());
    }
}

} // namespace brivandel

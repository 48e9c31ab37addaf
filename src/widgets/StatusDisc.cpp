#include "widgets/StatusDisc.h"

#include "widgets/AccessibleRole.h"
#include "widgets/Symbol.h"

#include <QPainter>
#include <QPixmapCache>
#include <QRadialGradient>

#include <chrono>
#include <cmath>
#include <utility>

namespace brivandel {

namespace {

using namespace std::chrono_literals;

constexpr int symbolSide = 28; // what a symbol of a 24-point font measures
constexpr auto followingTime = 100ms;
// From the smallest disc to the largest it is 11 pixels; a sixth of one is seen at twice the density.
constexpr int visibleSteps = 64;

// The edge of a blurred disc: half as dense at its rim, gone at one blur radius outside it.
void paintShadow(QPainter& painter, const QPointF& center, double discRadius, const DiscShadow& shadow,
                 QColor color) {
    const double reach = discRadius + shadow.radius;
    QRadialGradient gradient(center, reach);
    constexpr int steps = 8;
    const double begin = std::max(0.0, (discRadius - shadow.radius) / reach);
    for (int step = 0; step <= steps; ++step) {
        const double place = static_cast<double>(step) / steps;
        const double density = 0.5 + 0.5 * std::cos(place * std::acos(-1.0));
        color.setAlphaF(static_cast<float>(shadow.opacity * density));
        gradient.setColorAt(begin + (1 - begin) * place, color);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawEllipse(center, reach, reach);
}

} // namespace

StatusDisc::StatusDisc(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleRole(*this, QAccessible::Graphic);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    following_.setDuration(static_cast<int>(followingTime.count()));
    following_.setEasingCurve(QEasingCurve::OutQuad);
    connect(&following_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        const double level = value.toDouble();
        if (std::round(level * visibleSteps) !=
            std::round(std::exchange(shownLevel_, level) * visibleSteps)) {
            update();
        }
    });
}

void StatusDisc::setStatus(NamedColor color, const QString& symbol, const QString& description) {
    if (accessibleName() != description) {
        setAccessibleName(description);
    }
    if (color_ != color || symbol_ != symbol) {
        color_ = color;
        symbol_ = symbol;
        update();
    }
}

void StatusDisc::setIsLive(bool live) {
    if (isLive_ != live) {
        isLive_ = live;
        update();
    }
}

void StatusDisc::setLevel(double level) {
    if (level_ == level) {
        return;
    }
    level_ = level;
    following_.stop();
    if (isVisible()) {
        following_.setStartValue(shownLevel_);
        following_.setEndValue(level_);
        following_.start();
    } else {
        shownLevel_ = level_;
    }
}

double StatusDisc::scaleAt(double level) const {
    return isLive_ ? 1 + level * 0.18 : 1;
}

DiscShadow StatusDisc::firstShadowAt(double level) const {
    return isLive_ ? DiscShadow{level * 0.4 + 0.6, level * 10 + 4} : DiscShadow{0.2, 3};
}

DiscShadow StatusDisc::secondShadowAt(double level) const {
    return isLive_ ? DiscShadow{level * 0.3 + 0.2, level * 14 + 8} : DiscShadow{0.05, 5};
}

QSize StatusDisc::sizeHint() const {
    // The largest disc with its widest shadow: nothing of it is cut off.
    constexpr double largest = restingDiameter * 1.18 + 2 * 22;
    return {static_cast<int>(std::ceil(largest)), static_cast<int>(std::ceil(largest))};
}

void StatusDisc::hideEvent(QHideEvent* event) {
    following_.stop();
    shownLevel_ = level_;
    QWidget::hideEvent(event);
}

// Blurred edges are the dear part, and a voice moves the disc sixty times a second: each of the sizes that
// the eye can tell apart is painted once and kept.
QPixmap StatusDisc::picture(double level) const {
    const double density = devicePixelRatioF();
    const QColor fill = fillColor(color_, appearanceOf(palette()));
    const QString key = QStringLiteral("status-disc %1 %2 %3 %4 %5")
                            .arg(fill.rgba())
                            .arg(symbol_)
                            .arg(isLive_)
                            .arg(level)
                            .arg(density);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) {
        return picture;
    }
    picture = QPixmap(size() * density);
    picture.setDevicePixelRatio(density);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF center = QRectF(rect()).center();
    const double size = scaleAt(level);
    const double radius = restingDiameter * size / 2;
    paintShadow(painter, center, radius, secondShadowAt(level), fill);
    paintShadow(painter, center, radius, firstShadowAt(level), fill);
    painter.setBrush(fill);
    painter.drawEllipse(center, radius, radius);
    QRectF square(0, 0, symbolSide * size, symbolSide * size);
    square.moveCenter(center);
    paintSymbol(painter, symbol_, square, Qt::white);
    painter.end();
    QPixmapCache::insert(key, picture);
    return picture;
}

void StatusDisc::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).drawPixmap(0, 0, picture(std::round(shownLevel_ * visibleSteps) / visibleSteps));
}

} // namespace brivandel

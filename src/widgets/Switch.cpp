#include "widgets/Switch.h"

#include "widgets/TextStyle.h"
#include "widgets/ThemeStyle.h"

#include <QPainter>
#include <QSignalBlocker>

namespace brivandel {

namespace {

constexpr int gap = 10;

} // namespace

Switch::Switch(const QString& text, QWidget* parent) : QCheckBox(text, parent) {
    setFont(textFont(TextStyle::Body));
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QCheckBox::toggled, this, &Switch::switched);
    setSizePolicy(text.isEmpty() ? QSizePolicy::Fixed : QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
}

void Switch::showState(bool on) {
    const QSignalBlocker quietly(this);
    setChecked(on);
}

void Switch::setControlSize(ControlSize size) {
    size_ = size;
    updateGeometry();
}

QSize Switch::trackSize() const {
    return size_ == ControlSize::Small ? QSize(28, 16) : QSize(36, 20);
}

QSize Switch::sizeHint() const {
    QSize size = trackSize().grownBy(QMargins(ringSpace, ringSpace, ringSpace, ringSpace));
    if (!text().isEmpty()) {
        size.rwidth() += fontMetrics().horizontalAdvance(text()) + gap;
        size.setHeight(qMax(size.height(), fontMetrics().height() + 4));
    }
    return size;
}

QSize Switch::minimumSizeHint() const {
    return sizeHint();
}

bool Switch::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) {
        painter.setOpacity(0.5);
    }
    const Appearance appearance = appearanceOf(palette());
    if (!text().isEmpty()) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
    }

    QRectF track(QPointF(0, 0), trackSize());
    track.moveTop((height() - track.height()) / 2.0);
    track.moveLeft(width() - track.width() - ringSpace);
    const double radius = track.height() / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? fillColor(NamedColor::Accent, appearance)
                                 : withOpacity(color(NamedColor::Gray, appearance),
                                               appearance == Appearance::Dark ? 0.55 : 0.75));
    painter.drawRoundedRect(track, radius, radius);
    QRectF thumb = track.adjusted(2, 2, -2, -2);
    thumb.setWidth(thumb.height());
    if (isChecked()) {
        thumb.moveRight(track.right() - 2);
    }
    painter.setBrush(Qt::white);
    painter.drawEllipse(thumb);
    if (hasFocus()) {
        paintFocusRing(painter, track.adjusted(-ringSpace, -ringSpace, ringSpace, ringSpace), radius + 2,
                       palette());
    }
}

} // namespace brivandel

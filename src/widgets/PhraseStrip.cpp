#include "widgets/PhraseStrip.h"

#include "widgets/AccessibleRole.h"

#include <QPainter>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

constexpr int spacing = 4;
constexpr int leastPlateWidth = 40;
constexpr qsizetype longestToolTip = 1000;

} // namespace

PhraseStrip::PhraseStrip(ChipLook look, NamedColor tint, QWidget* parent)
    : QWidget(parent)
    , look_(std::move(look))
    , tint_(tint) {
    setAccessibleRole(*this, QAccessible::StaticText);
    setFont(look_.font);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PhraseStrip::setTint(NamedColor tint) {
    tint_ = tint;
    update();
}

void PhraseStrip::setPhrases(const QStringList& phrases) {
    if (phrases_ == phrases) {
        return;
    }
    phrases_ = phrases;
    const QString all = phrases.join(QStringLiteral(", "));
    setAccessibleName(all);
    // Tool tips guess whether a text is markup; this one never is.
    setToolTip(Qt::convertFromPlainText(all.left(longestToolTip), Qt::WhiteSpaceNormal));
    updateGeometry();
    update();
}

int PhraseStrip::plateWidth(const QString& text) const {
    return fontMetrics().horizontalAdvance(text) + 1 + look_.padding.left() + look_.padding.right();
}

QSize PhraseStrip::sizeHint() const {
    int width = 0;
    for (const QString& phrase : phrases_) {
        width += plateWidth(phrase) + spacing;
    }
    return {std::max(0, width - spacing), minimumSizeHint().height()};
}

QSize PhraseStrip::minimumSizeHint() const {
    return {0, fontMetrics().height() + look_.padding.top() + look_.padding.bottom()};
}

void PhraseStrip::paintPlate(QPainter& painter, const QRectF& plate, const QString& text) const {
    const Appearance appearance = appearanceOf(palette());
    painter.setPen(Qt::NoPen);
    painter.setBrush(withOpacity(color(tint_, appearance), look_.tintOpacity));
    painter.drawRoundedRect(plate, look_.cornerRadius, look_.cornerRadius);
    painter.setPen(palette().color(QPalette::WindowText));
    const QRectF inside = plate.marginsRemoved(QMarginsF(look_.padding));
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(inside.width())));
}

void PhraseStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    int left = 0;
    for (qsizetype index = 0; index < phrases_.size(); ++index) {
        const qsizetype after = phrases_.size() - index - 1;
        const QString rest = QStringLiteral("+%1").arg(after + 1);
        // Room for the number of those that do not fit, unless this is the last one.
        const int reserved = after > 0 ? spacing + fontMetrics().horizontalAdvance(rest) : 0;
        const int room = width() - left - reserved;
        const int wanted = plateWidth(phrases_[index]);
        if (wanted > room && (index > 0 || room < leastPlateWidth)) {
            painter.setPen(color(NamedColor::Secondary, appearanceOf(palette())));
            painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignLeft | Qt::AlignVCenter,
                             rest);
            return;
        }
        const int plate = std::min(wanted, room);
        paintPlate(painter, QRectF(left, 0, plate, height()), phrases_[index]);
        left += plate + spacing;
    }
}

} // namespace brivandel

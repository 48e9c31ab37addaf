#include "widgets/Label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QTextLayout>
#include <QToolTip>

namespace brivandel {

namespace {

constexpr qsizetype longestToolTip = 1000; // characters: a screenful

} // namespace

Label::Label(const QString& text, TextStyle style, NamedColor color, QWidget* parent)
    : QLabel(parent)
    , color_(color) {
    setTextFormat(Qt::PlainText);
    setFont(textFont(style));
    setForegroundRole(QPalette::WindowText); // also inside lists, which would choose another
    setText(text);
    showColor();
}

void Label::setTextColor(NamedColor color) {
    color_ = color;
    showColor();
}

void Label::showColor() {
    const QColor wanted = color(color_, appearanceOf(palette()));
    // Setting a palette announces a change of it, which comes back here.
    if (palette().color(QPalette::Active, QPalette::WindowText) != wanted) {
        QPalette own;
        own.setColor(QPalette::Active, QPalette::WindowText, wanted);
        own.setColor(QPalette::Inactive, QPalette::WindowText, wanted);
        setPalette(own);
    }
}

void Label::setMaximumLines(int count) {
    maximumLines_ = count;
    setWordWrap(count > 1);
    updateGeometry();
}

QStringList Label::lines(int width) const {
    if (maximumLines_ == 1) {
        return {fontMetrics().elidedText(text(), Qt::ElideRight, width)};
    }
    // A layout breaks at no other character; the length stays the same.
    QTextLayout layout(QString(text()).replace(u'\n', QChar::LineSeparator), font());
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(wrapping);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == maximumLines_) {
            lines +=
                fontMetrics().elidedText(text().mid(line.textStart()).simplified(), Qt::ElideRight, width);
            break;
        }
        lines += text().mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

int Label::heightOfLines(qsizetype count) const {
    return static_cast<int>(count) * fontMetrics().lineSpacing();
}

QSize Label::sizeHint() const {
    if (maximumLines_ == 0) {
        return QLabel::sizeHint();
    }
    const int width = fontMetrics().horizontalAdvance(text());
    return {width + 1, heightOfLines(1)};
}

QSize Label::minimumSizeHint() const {
    return maximumLines_ == 0 ? QLabel::minimumSizeHint() : QSize(0, heightOfLines(1));
}

int Label::heightForWidth(int width) const {
    return maximumLines_ == 0 ? QLabel::heightForWidth(width) : heightOfLines(lines(width).size());
}

void Label::paintEvent(QPaintEvent* event) {
    if (maximumLines_ == 0) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QStringList shown = lines(width());
    QRect line(0, 0, width(), fontMetrics().lineSpacing());
    line.moveTop(qMax(0, (height() - heightOfLines(shown.size())) / 2));
    for (const QString& text : shown) {
        painter.drawText(line,
                         static_cast<int>(alignment() & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter |
                             Qt::TextSingleLine,
                         text);
        line.translate(0, line.height());
    }
}

void Label::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        showColor();
    }
}

bool Label::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && maximumLines_ > 0 && toolTip().isEmpty()) {
        const QStringList shown = lines(width());
        if (!shown.isEmpty() && shown.last() != text() && shown.last().endsWith(u'…')) {
            // Tool tips guess whether a text is markup; this one never is.
            const QString whole =
                text().size() > longestToolTip ? text().left(longestToolTip) + u'…' : text();
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                               Qt::convertFromPlainText(whole, Qt::WhiteSpaceNormal), this);
            return true;
        }
    }
    return QLabel::event(event);
}

} // namespace brivandel

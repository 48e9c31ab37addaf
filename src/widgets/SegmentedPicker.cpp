#include "widgets/SegmentedPicker.h"

#include "widgets/Colors.h"
#include "widgets/TextStyle.h"
#include "widgets/ThemeStyle.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QRadioButton>

namespace brivandel {

namespace {

constexpr double cornerRadius = 7;
constexpr int plateInset = 2;

class Segment final : public QRadioButton {
public:
    explicit Segment(const QString& text) : QRadioButton(text) {
        setFont(textFont(TextStyle::Body, QFont::Medium));
        setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
    }
    [[nodiscard]] QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance(text()) + 32, fontMetrics().height() + 8};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const Appearance appearance = appearanceOf(palette());
        if (isChecked()) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(fillColor(NamedColor::Accent, appearance));
            painter.drawRoundedRect(QRectF(rect()), cornerRadius - plateInset, cornerRadius - plateInset);
        }
        painter.setPen(isChecked() ? QColor(Qt::white) : palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
        if (hasFocus()) {
            painter.setPen(
                QPen(isChecked() ? QColor(Qt::white) : color(NamedColor::Accent, appearance), 1.5));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), cornerRadius - 3,
                                    cornerRadius - 3);
        }
    }
};

} // namespace

SegmentedPicker::SegmentedPicker(const QStringList& choices, QWidget* parent)
    : QWidget(parent)
    , group_(new QButtonGroup(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(plateInset, plateInset, plateInset, plateInset);
    row->setSpacing(plateInset);
    for (const QString& choice : choices) {
        auto* segment = new Segment(choice);
        segment->setObjectName(choice);
        row->addWidget(segment);
        group_->addButton(segment, static_cast<int>(group_->buttons().size()));
    }
    if (auto* first = group_->button(0)) {
        first->setChecked(true);
    }
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(group_, &QButtonGroup::idToggled, this, [this](int index, bool picked) {
        if (picked) {
            Q_EMIT currentIndexChanged(index);
        }
    });
}

int SegmentedPicker::currentIndex() const {
    return group_->checkedId();
}

void SegmentedPicker::setCurrentIndex(int index) {
    if (auto* segment = group_->button(index)) {
        segment->setChecked(true);
    }
}

void SegmentedPicker::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Appearance appearance = appearanceOf(palette());
    painter.setPen(controlBorderColor(appearance));
    painter.setBrush(withOpacity(color(NamedColor::Gray, appearance), 0.12));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}

} // namespace brivandel

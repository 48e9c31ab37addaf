#include "widgets/FormSection.h"

#include "widgets/Divider.h"
#include "widgets/Label.h"
#include "widgets/Plate.h"
#include "widgets/Switch.h"

#include <QEvent>
#include <QVBoxLayout>

namespace brivandel {

namespace {

constexpr int titleGap = 6;
constexpr int rowPadding = 12;
constexpr int rowSpacing = 6;
constexpr int rowHeight = 36;
constexpr int cornerRadius = 8;
constexpr double tintOpacity = 0.07;

} // namespace

FormSection::FormSection(const QString& title, QWidget* parent) : QWidget(parent), rows_(new QVBoxLayout) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(titleGap);
    column->addWidget(new Label(title, TextStyle::Headline));
    auto* plate = new Plate(NamedColor::Gray, tintOpacity, cornerRadius);
    plate->setLayout(rows_);
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
    column->addWidget(plate);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
}

void FormSection::addRow(QWidget* content) {
    auto* row = new QWidget;
    auto* column = new QVBoxLayout(row);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    if (rows_->count() > 0) {
        auto* line = new QHBoxLayout;
        line->setContentsMargins(rowPadding, 0, rowPadding, 0);
        line->addWidget(new Divider);
        column->addLayout(line);
    }
    auto* inside = new QVBoxLayout;
    const int trailing = qobject_cast<Switch*>(content) != nullptr ? Switch::ringSpace : 0;
    inside->setContentsMargins(rowPadding, rowSpacing, rowPadding - trailing, rowSpacing);
    inside->addWidget(content);
    column->addLayout(inside);
    row->setMinimumHeight(rowHeight);
    rows_->addWidget(row);
    content->installEventFilter(this);
}

void FormSection::addRow(const QString& caption, QWidget* control) {
    auto* pair = new QWidget;
    auto* line = new QHBoxLayout(pair);
    line->setContentsMargins(0, 0, 0, 0);
    auto* label = new Label(caption);
    label->setBuddy(control); // where assistive technology takes a control's name from its label
    line->addWidget(label);
    line->addStretch();
    line->addWidget(control);
    addRow(pair);
}

bool FormSection::eventFilter(QObject* watched, QEvent* event) {
    // The row goes with what is in it, and its line with the row.
    if (event->type() == QEvent::HideToParent || event->type() == QEvent::ShowToParent) {
        auto* content = static_cast<QWidget*>(watched);
        content->parentWidget()->setHidden(content->isHidden());
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace brivandel

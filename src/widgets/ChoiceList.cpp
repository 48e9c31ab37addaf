#include "widgets/ChoiceList.h"

#include "widgets/Colors.h"
#include "widgets/TextStyle.h"
#include "widgets/ThemeStyle.h"

#include <QPainter>
#include <QStyledItemDelegate>

namespace brivandel {

namespace {

constexpr int verticalPadding = 4;
constexpr int horizontalPadding = 8;
constexpr double cornerRadius = 4;
constexpr double chosenOpacity = 0.2;

class ChoiceDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& /*index*/) const override {
        return {0, option.fontMetrics.height() + 2 * verticalPadding};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Appearance appearance = appearanceOf(option.palette);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (option.state.testFlag(QStyle::State_Selected)) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(withOpacity(color(NamedColor::Accent, appearance), chosenOpacity));
            painter->drawRoundedRect(QRectF(option.rect), cornerRadius, cornerRadius);
        }
        painter->setFont(option.font);
        painter->setPen(color(NamedColor::Primary, appearance));
        const QRect text = option.rect.adjusted(horizontalPadding, 0, -horizontalPadding, 0);
        painter->drawText(
            text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
            option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, text.width()));
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            paintFocusRing(*painter, QRectF(option.rect), cornerRadius, option.palette);
        }
        painter->restore();
    }
};

} // namespace

ChoiceList::ChoiceList(QWidget* parent) : QListWidget(parent) {
    setFont(textFont(TextStyle::Body));
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new ChoiceDelegate(this));
    setTabKeyNavigation(false);
}

void ChoiceList::rowsInserted(const QModelIndex& parent, int start, int end) {
    QListWidget::rowsInserted(parent, start, end);
    if (currentRow() < 0) {
        setCurrentRow(0);
    }
}

QItemSelectionModel::SelectionFlags ChoiceList::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* /*event*/) const {
    // No click, with whatever modifier, leaves nothing chosen.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

} // namespace brivandel

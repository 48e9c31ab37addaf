#include "widgets/ChoiceList.h"

#include "widgets/Colors.h"
#include "widgets/Symbol.h"
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
constexpr int symbolSide = 15;
constexpr int symbolGap = 7;
constexpr int detailRole = Qt::UserRole;
constexpr int symbolRole = Qt::UserRole + 1;

class ChoiceDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        const bool hasDetail = !index.data(detailRole).toString().isEmpty();
        const int detailHeight = hasDetail ? QFontMetrics(textFont(TextStyle::Caption2)).height() : 0;
        return {0, option.fontMetrics.height() + detailHeight + 2 * verticalPadding};
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
        QRect text =
            option.rect.adjusted(horizontalPadding, verticalPadding, -horizontalPadding, -verticalPadding);
        if (const QString symbol = index.data(symbolRole).toString(); !symbol.isEmpty()) {
            QRect square(0, 0, symbolSide, symbolSide);
            square.moveCenter(QPoint(text.left() + symbolSide / 2, text.center().y()));
            paintSymbol(*painter, symbol, square, color(NamedColor::Secondary, appearance));
            text.setLeft(text.left() + symbolSide + symbolGap);
        }
        const auto draw = [&](const QString& line, const QFont& font, NamedColor ink, Qt::Alignment place) {
            painter->setFont(font);
            painter->setPen(color(ink, appearance));
            painter->drawText(text, static_cast<int>(Qt::AlignLeft | place) | Qt::TextSingleLine,
                              QFontMetrics(font).elidedText(line, Qt::ElideRight, text.width()));
        };
        const QString detail = index.data(detailRole).toString();
        draw(index.data().toString(), option.font, NamedColor::Primary,
             detail.isEmpty() ? Qt::AlignVCenter : Qt::AlignTop);
        if (!detail.isEmpty()) {
            draw(detail, textFont(TextStyle::Caption2), NamedColor::Secondary, Qt::AlignBottom);
        }
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

void ChoiceList::addChoice(const QString& title, const QString& detail, const QString& symbol) {
    auto* item = new QListWidgetItem(title, this); // the list owns it
    item->setData(detailRole, detail);
    item->setData(symbolRole, symbol);
    item->setData(Qt::AccessibleTextRole, detail.isEmpty() ? title : title + QStringLiteral(", ") + detail);
}

void ChoiceList::rowsInserted(const QModelIndex& parent, int start, int end) {
    QListWidget::rowsInserted(parent, start, end);
    if (currentRow() < 0) {
        setCurrentRow(0);
    }
}

void ChoiceList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListWidget::selectionChanged(selected, deselected);
    // Assistive technology clears and selects in steps of its own: looked at when it is through with them.
    QMetaObject::invokeMethod(this, &ChoiceList::settle, Qt::QueuedConnection);
}

void ChoiceList::settle() {
    const QModelIndexList chosen = selectedIndexes();
    const QModelIndex wanted = chosen.isEmpty() ? currentIndex() : chosen.first();
    if (wanted.isValid() && (chosen.isEmpty() || wanted != currentIndex())) {
        selectionModel()->setCurrentIndex(wanted, QItemSelectionModel::ClearAndSelect);
    }
}

QItemSelectionModel::SelectionFlags ChoiceList::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* /*event*/) const {
    // No click, with whatever modifier, leaves nothing chosen.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

} // namespace brivandel

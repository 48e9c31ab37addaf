#include "widgets/FlowLayout.h"

#include <QWidget>

#include <algorithm>

namespace brivandel {

FlowLayout::FlowLayout(int minimumItemWidth, int spacing) : minimumItemWidth_(minimumItemWidth) {
    setSpacing(spacing);
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() {
    for (const auto* item : items_) {
        delete item;
    }
}

void FlowLayout::addItem(QLayoutItem* item) {
    items_.push_back(item);
}

int FlowLayout::count() const {
    return static_cast<int>(items_.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    QLayoutItem* item = itemAt(index);
    if (item != nullptr) {
        items_.erase(items_.begin() + index);
    }
    return item;
}

int FlowLayout::heightForWidth(int width) const {
    return arrange(QRect(0, 0, width, 0), Action::Measure);
}

QSize FlowLayout::sizeHint() const {
    return minimumSize();
}

QSize FlowLayout::minimumSize() const {
    int height = 0;
    for (const auto* item : items_) {
        height = std::max(height, item->sizeHint().height());
    }
    return {items_.empty() ? 0 : minimumItemWidth_, height};
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    arrange(rect, Action::Place);
}

int FlowLayout::arrange(const QRect& rect, Action action) const {
    int left = rect.left();
    int top = rect.top();
    int rowHeight = 0;
    for (auto* item : items_) {
        QSize size = item->sizeHint().expandedTo(QSize(minimumItemWidth_, 0));
        size.setWidth(std::min(size.width(), rect.width()));
        if (left > rect.left() && left + size.width() > rect.left() + rect.width()) {
            left = rect.left();
            top += rowHeight + spacing();
            rowHeight = 0;
        }
        if (action == Action::Place) {
            item->setGeometry(QRect(QPoint(left, top), size));
        }
        left += size.width() + spacing();
        rowHeight = std::max(rowHeight, size.height());
    }
    return top + rowHeight - rect.top();
}

} // namespace brivandel

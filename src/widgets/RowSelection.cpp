#include "widgets/RowSelection.h"

#include <algorithm>

namespace brivandel {

void RowSelection::moveTo(int row, Qt::KeyboardModifiers modifiers, bool isClick) {
    const bool extends = modifiers.testFlag(Qt::ShiftModifier) && anchor_ >= 0;
    const bool keeps = modifiers.testFlag(Qt::ControlModifier);
    current_ = row;
    if (extends) {
        if (!keeps) {
            selected_.clear();
        }
        for (int each = std::min(anchor_, row); each <= std::max(anchor_, row); ++each) {
            selected_.insert(each);
        }
        return;
    }
    if (keeps) {
        // The keyboard only moves; a click selects or not.
        if (isClick) {
            anchor_ = row;
            toggleCurrent();
        }
        return;
    }
    selectOnly(row);
}

void RowSelection::includeForMenu(int row) {
    if (!isSelected(row)) {
        selectOnly(row);
    }
}

void RowSelection::toggleCurrent() {
    if (current_ >= 0 && selected_.erase(current_) == 0) {
        selected_.insert(current_);
    }
}

void RowSelection::selectAll(int rowCount) {
    for (int row = 0; row < rowCount; ++row) {
        selected_.insert(row);
    }
}

void RowSelection::selectOnly(int row) {
    selected_ = {row};
    current_ = row;
    anchor_ = row;
}

void RowSelection::clear() {
    selected_.clear();
    current_ = -1;
    anchor_ = -1;
}

} // namespace brivandel

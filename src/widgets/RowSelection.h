#pragma once

#include <QList>
#include <Qt>

#include <set>

namespace brivandel {

/// Which rows of a list are selected, by the rules that lists follow: a click selects one row, with Shift all
/// from the last one clicked to this, with Control this one more or less.
class RowSelection {
public:
    [[nodiscard]] int currentRow() const { return current_; }
    [[nodiscard]] bool isSelected(int row) const { return selected_.contains(row); }
    /// In their order.
    [[nodiscard]] QList<int> rows() const { return {selected_.begin(), selected_.end()}; }

    /// As a click or a step of the keyboard to a row does.
    void moveTo(int row, Qt::KeyboardModifiers modifiers, bool isClick);
    /// Selects it if it is not, so that a context menu is about what is under the pointer.
    void includeForMenu(int row);
    void toggleCurrent();
    void selectAll(int rowCount);
    void selectOnly(int row);
    void clear();

private:
    int current_ = -1;
    int anchor_ = -1; // where a range begins
    std::set<int> selected_;
};

} // namespace brivandel

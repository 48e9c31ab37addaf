#include "widgets/RowSelection.h"

#include <gtest/gtest.h>

namespace brivandel {
namespace {

class RowSelectionTest : public testing::Test {
protected:
    void click(int row, Qt::KeyboardModifiers modifiers = {}) { selection.moveTo(row, modifiers, true); }
    void step(int row, Qt::KeyboardModifiers modifiers = {}) { selection.moveTo(row, modifiers, false); }
    RowSelection selection;
};

TEST_F(RowSelectionTest, Start_SelectsNothing) {
    EXPECT_EQ(selection.currentRow(), -1);
    EXPECT_TRUE(selection.rows().isEmpty());
}

TEST_F(RowSelectionTest, Click_SelectsOne) {
    click(2);
    click(4);
    EXPECT_EQ(selection.rows(), QList<int>({4}));
    EXPECT_EQ(selection.currentRow(), 4);
}

TEST_F(RowSelectionTest, ControlClick_AddsAndTakesAway) {
    click(2);
    click(4, Qt::ControlModifier);
    EXPECT_EQ(selection.rows(), QList<int>({2, 4}));
    click(2, Qt::ControlModifier);
    EXPECT_EQ(selection.rows(), QList<int>({4}));
    EXPECT_EQ(selection.currentRow(), 2);
}

TEST_F(RowSelectionTest, ShiftClick_SelectsFromTheLastClick) {
    click(3);
    click(5, Qt::ShiftModifier);
    EXPECT_EQ(selection.rows(), QList<int>({3, 4, 5}));
    click(1, Qt::ShiftModifier);
    EXPECT_EQ(selection.rows(), QList<int>({1, 2, 3}));
    click(7, Qt::ControlModifier);
    click(8, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(selection.rows(), QList<int>({1, 2, 3, 7, 8}));
}

TEST_F(RowSelectionTest, ShiftClickWithoutABeginning_SelectsOne) {
    click(3, Qt::ShiftModifier);
    EXPECT_EQ(selection.rows(), QList<int>({3}));
}

TEST_F(RowSelectionTest, Arrows_MoveExtendAndWander) {
    step(0);
    step(1);
    EXPECT_EQ(selection.rows(), QList<int>({1}));
    step(2, Qt::ShiftModifier);
    EXPECT_EQ(selection.rows(), QList<int>({1, 2}));
    step(3, Qt::ControlModifier);
    EXPECT_EQ(selection.rows(), QList<int>({1, 2}));
    EXPECT_EQ(selection.currentRow(), 3);
    selection.toggleCurrent();
    EXPECT_EQ(selection.rows(), QList<int>({1, 2, 3}));
}

TEST_F(RowSelectionTest, Menu_KeepsASelectionThatHoldsTheRow) {
    click(1);
    click(3, Qt::ShiftModifier);
    selection.includeForMenu(2);
    EXPECT_EQ(selection.rows(), QList<int>({1, 2, 3}));
    selection.includeForMenu(5);
    EXPECT_EQ(selection.rows(), QList<int>({5}));
}

TEST_F(RowSelectionTest, AllAndNone) {
    selection.selectAll(3);
    EXPECT_EQ(selection.rows(), QList<int>({0, 1, 2}));
    selection.clear();
    EXPECT_TRUE(selection.rows().isEmpty());
    selection.toggleCurrent();
    EXPECT_TRUE(selection.rows().isEmpty());
}

} // namespace
} // namespace brivandel

#include "widgets/RecyclingList.h"

#include "widgets/Label.h"
#include "widgets/RowFrame.h"
#include "widgets/Switch.h"

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

class FakeRow final : public QWidget {
public:
    FakeRow() {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        toggle->setAccessibleName(QStringLiteral("Switch"));
        column->addWidget(label);
        column->addWidget(toggle);
    }
    Label* label = new Label({});
    Switch* toggle = new Switch;
};

class FakeRows final : public RowSource {
public:
    [[nodiscard]] int rowCount() const override { return count; }
    [[nodiscard]] int rowKind(int row) const override { return row == special ? 1 : 0; }
    [[nodiscard]] QWidget* makeRowWidget(int kind) override {
        ++made;
        if (kind == 1) {
            return new Label({});
        }
        return new FakeRow;
    }
    void fillRowWidget(QWidget& widget, int row) override {
        auto* label = qobject_cast<Label*>(&widget);
        const bool isSpecial = label != nullptr;
        if (!isSpecial) {
            label = static_cast<FakeRow&>(widget).label;
            label->setFixedHeight(heightOf(row));
        }
        label->setText(rowName(row));
    }
    [[nodiscard]] QString rowName(int row) const override {
        return QStringLiteral("%1 %2").arg(prefix).arg(row);
    }
    [[nodiscard]] int heightOf(int row) const { return row % 3 == 2 ? tallHeight : 20; }

    int count = 500;
    int special = -1;
    int tallHeight = 20;
    int made = 0;
    QString prefix = QStringLiteral("row");
};

class RecyclingListTest : public testing::Test {
protected:
    void show() {
        window.resize(300, 200);
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        list = new RecyclingList(rows, RecyclingList::Selection::Extended,
                                 RecyclingList::Separators::BetweenRows);
        column->addWidget(list);
        window.show();
        window.activateWindow();
        turn();
    }
    static void turn() {
        for (int time = 0; time < 3; ++time) {
            QCoreApplication::processEvents();
        }
    }
    FakeRow& row(int index) {
        auto* found = static_cast<FakeRow*>(list->rowWidget(index));
        EXPECT_NE(found, nullptr) << index;
        return *found;
    }
    int firstInSight() { return list->rowAt(QPoint(5, 0)); }
    /// Every place of the viewport shows the row that is said to be there.
    void expectNoGaps() {
        int bottom = list->rowRect(firstInSight()).top();
        for (int index = firstInSight(); index < list->rowCount() && bottom < list->viewport()->height();
             ++index) {
            auto* frame = list->frame(index);
            ASSERT_NE(frame, nullptr) << index;
            EXPECT_TRUE(frame->isVisible());
            EXPECT_EQ(frame->geometry(), list->rowRect(index)) << index;
            EXPECT_EQ(frame->y(), bottom) << index;
            bottom = frame->geometry().bottom() + 1;
            if (index != rows.special) {
                EXPECT_EQ(row(index).label->text(), rows.rowName(index));
            }
        }
    }

    FakeRows rows;
    QWidget window;
    RecyclingList* list = nullptr;
};

TEST_F(RecyclingListTest, LongList_MakesFewWidgets) {
    show();
    expectNoGaps();
    EXPECT_LT(rows.made, 12);
    for (int position = 0; position < list->verticalScrollBar()->maximum(); position += 97) {
        list->verticalScrollBar()->setValue(position);
        expectNoGaps();
    }
    EXPECT_LT(rows.made, 14);
}

TEST_F(RecyclingListTest, RowsOfManyHeights_LeaveNoGaps) {
    rows.tallHeight = 150;
    show();
    for (const int position : {0, 500, 3000, 40, 20000, 10, 25000}) {
        list->verticalScrollBar()->setValue(position);
        expectNoGaps();
    }
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    expectNoGaps();
    EXPECT_EQ(list->rowRect(499).bottom() + 1, list->viewport()->height());
}

TEST_F(RecyclingListTest, ScrollingUpIntoTheUnknown_MovesByWhatWasAsked) {
    rows.tallHeight = 120;
    show();
    list->scrollToRow(400);
    for (int step = 0; step < 60; ++step) {
        const int row = firstInSight();
        const int before = list->rowRect(row).top();
        list->verticalScrollBar()->setValue(list->verticalScrollBar()->value() - 10);
        EXPECT_EQ(list->rowRect(row).top(), before + 10);
        expectNoGaps();
    }
}

TEST_F(RecyclingListTest, ScrollToRow_ShowsTheWholeRow) {
    rows.tallHeight = 90;
    show();
    for (const int row : {250, 251, 499, 0, 77, 2}) {
        list->scrollToRow(row);
        EXPECT_TRUE(list->viewport()->rect().contains(list->rowRect(row))) << row;
        expectNoGaps();
    }
}

TEST_F(RecyclingListTest, RowThatGrows_PushesTheOthers) {
    show();
    row(1).label->setFixedHeight(70);
    turn();
    expectNoGaps();
    EXPECT_GE(list->rowRect(1).height(), 70);
}

TEST_F(RecyclingListTest, Reload_FillsWhatIsInSight) {
    show();
    list->verticalScrollBar()->setValue(1000);
    const int first = firstInSight();
    rows.prefix = QStringLiteral("other");
    list->reload();
    EXPECT_EQ(firstInSight(), first);
    expectNoGaps();
    rows.special = first + 1;
    list->reload();
    EXPECT_NE(qobject_cast<Label*>(list->rowWidget(first + 1)), nullptr);
    expectNoGaps();
}

TEST_F(RecyclingListTest, FewerRows_EndWhereTheyEnd) {
    show();
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    list->selectRow(499);
    QSignalSpy changed(list, &RecyclingList::selectionChanged);
    rows.count = 3;
    list->reload();
    expectNoGaps();
    EXPECT_EQ(list->verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(list->selectedRows().isEmpty());
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(list->rowAt(QPoint(5, 190)), -1);
    rows.count = 0;
    list->reload();
    EXPECT_EQ(list->rowAt(QPoint(5, 5)), -1);
    rows.count = 40;
    list->reload();
    expectNoGaps();
}

TEST_F(RecyclingListTest, RowWithTheKeyboardThatGoes_LeavesTheOthersInOrder) {
    show();
    for (const int position : {0, 800, 5000}) {
        rows.count = 500;
        list->reload();
        list->verticalScrollBar()->setValue(position);
        row(firstInSight() + 2).toggle->setFocus();
        rows.count = 2;
        list->reload();
        expectNoGaps();
    }
    rows.count = 500;
    list->reload();
    row(1).toggle->setFocus();
    rows.special = 1;
    list->reload();
    expectNoGaps();
    for (const int position : {3000, 100, 9000, 0}) {
        list->verticalScrollBar()->setValue(position);
        expectNoGaps();
    }
}

TEST_F(RecyclingListTest, Keys_MoveTheCurrentRow) {
    show();
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->currentRow(), 0);
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(list->currentRow(), 0);
    QTest::keyClick(list, Qt::Key_End);
    EXPECT_EQ(list->selectedRows(), QList<int>({499}));
    EXPECT_TRUE(list->viewport()->rect().contains(list->rowRect(499)));
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_PageDown);
    EXPECT_GT(list->currentRow(), 1);
    QTest::keyClick(list, Qt::Key_PageUp);
    EXPECT_EQ(list->currentRow(), 0);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(list->selectedRows(), QList<int>({0, 1}));
    QTest::keyClick(list, Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(list->selectedRows(), QList<int>({0, 1, 2}));
    QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list->selectedRows().size(), 500);
}

TEST_F(RecyclingListTest, TabIntoTheList_MakesTheFirstRowCurrentAndSelectsNone) {
    auto* before = new QPushButton;
    show();
    window.layout()->addWidget(before);
    before->show();
    before->setFocus();
    turn();
    list->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(list->currentRow(), 0);
    EXPECT_TRUE(list->selectedRows().isEmpty());
    list->selectRow(3);
    before->setFocus();
    list->setFocus(Qt::BacktabFocusReason);
    EXPECT_EQ(list->currentRow(), 3);
}

TEST_F(RecyclingListTest, KeysInARowsOwnControl_DoNothingToTheSelection) {
    show();
    list->selectRow(2);
    QSignalSpy deleted(list, &RecyclingList::deleteRequested);
    QSignalSpy activated(list, &RecyclingList::rowActivated);
    row(3).toggle->setFocus();
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Down, Qt::Key_End}) {
        QTest::keyClick(row(3).toggle, key);
    }
    EXPECT_EQ(deleted.count(), 0);
    EXPECT_EQ(activated.count(), 0);
    EXPECT_EQ(list->selectedRows(), QList<int>({2}));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(activated.count(), 1);
    EXPECT_EQ(deleted.count(), 1);
}

TEST_F(RecyclingListTest, Clicks_SelectByPlace) {
    show();
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(list->frame(row), Qt::LeftButton, modifiers, QPoint(2, 2));
    };
    click(1);
    EXPECT_EQ(list->selectedRows(), QList<int>({1}));
    EXPECT_TRUE(list->hasFocus());
    click(3, Qt::ShiftModifier);
    EXPECT_EQ(list->selectedRows(), QList<int>({1, 2, 3}));
    rows.count = 2;
    list->reload();
    click(0);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(5, 190));
    EXPECT_TRUE(list->selectedRows().isEmpty());
}

TEST_F(RecyclingListTest, ClickInAHalfVisibleRow_MovesNothingUnderThePointer) {
    show();
    list->verticalScrollBar()->setValue(list->rowRect(0).height() / 4);
    const int before = list->verticalScrollBar()->value();
    ASSERT_GT(before, 0);
    Switch* toggle = row(0).toggle;
    const bool wasOn = toggle->isChecked();
    QTest::mouseClick(toggle, Qt::LeftButton);
    EXPECT_TRUE(toggle->hasFocus());
    EXPECT_NE(toggle->isChecked(), wasOn);
    EXPECT_EQ(list->verticalScrollBar()->value(), before);
    QTest::mouseClick(list->frame(0), Qt::LeftButton, {}, QPoint(2, list->frame(0)->height() / 2));
    EXPECT_EQ(list->selectedRows(), QList<int>({0}));
    EXPECT_EQ(list->verticalScrollBar()->value(), before);
}

TEST_F(RecyclingListTest, DoubleClick_ActivatesTheRowOfThePress) {
    show();
    QSignalSpy activated(list, &RecyclingList::rowActivated);
    list->setFocus();
    const QPoint place = list->rowRect(2).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    // Whatever scrolls it meanwhile.
    list->verticalScrollBar()->setValue(list->rowRect(1).height());
    ASSERT_NE(list->rowAt(place), 2);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, place);
    ASSERT_EQ(activated.count(), 1);
    EXPECT_EQ(activated.first().first().toInt(), 2);
}

TEST_F(RecyclingListTest, Tab_GoesThroughTheRowsInTheirOrder) {
    show();
    list->verticalScrollBar()->setValue(2000);
    list->verticalScrollBar()->setValue(0);
    list->setFocus();
    for (int index = 0; index < 40; ++index) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        turn();
        ASSERT_EQ(QApplication::focusWidget(), row(index).toggle) << index;
        EXPECT_TRUE(list->viewport()->rect().contains(list->rowRect(index))) << index;
    }
    for (int index = 38; index >= 20; --index) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        turn();
        ASSERT_EQ(QApplication::focusWidget(), row(index).toggle) << index;
    }
}

TEST_F(RecyclingListTest, RowWithTheKeyboardScrolledAway_KeepsIt) {
    show();
    QWidget* toggle = row(1).toggle;
    toggle->setFocus();
    list->verticalScrollBar()->setValue(5000);
    EXPECT_TRUE(toggle->hasFocus());
    expectNoGaps();
    list->verticalScrollBar()->setValue(0);
    EXPECT_EQ(row(1).toggle, toggle);
    expectNoGaps();
}

TEST_F(RecyclingListTest, AssistiveTechnology_SeesEveryRow) {
    show();
    auto* accessible = QAccessible::queryAccessibleInterface(list);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::List);
    ASSERT_EQ(accessible->childCount(), 500);
    for (const int index : {0, 3, 250, 499}) {
        auto* child = accessible->child(index);
        ASSERT_NE(child, nullptr) << index;
        EXPECT_TRUE(child->isValid());
        EXPECT_EQ(child->role(), QAccessible::ListItem);
        EXPECT_EQ(child->text(QAccessible::Name), rows.rowName(index));
        EXPECT_EQ(child->parent(), accessible);
        EXPECT_EQ(accessible->indexOfChild(child), index);
        EXPECT_EQ(child->state().offscreen != 0, index > 100) << index;
        EXPECT_EQ(child->rect().size(), list->rowRect(index).size());
    }
    EXPECT_EQ(accessible->child(500), nullptr);
    EXPECT_EQ(accessible->child(-1), nullptr);
}

TEST_F(RecyclingListTest, RowInSight_HasItsControlsForAssistiveTechnology) {
    show();
    auto* child = QAccessible::queryAccessibleInterface(list)->child(1);
    ASSERT_GE(child->childCount(), 1);
    bool hasSwitch = false;
    auto* content = child->child(0);
    for (int index = 0; index < content->childCount(); ++index) {
        hasSwitch = hasSwitch || content->child(index)->object() == row(1).toggle;
    }
    EXPECT_TRUE(hasSwitch);
}

TEST_F(RecyclingListTest, AssistiveTechnology_BringsARowIntoSight) {
    show();
    auto* accessible = QAccessible::queryAccessibleInterface(list);
    auto* actions = accessible->child(300)->actionInterface();
    ASSERT_NE(actions, nullptr);
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(list->currentRow(), 300);
    EXPECT_TRUE(list->viewport()->rect().contains(list->rowRect(300)));
    EXPECT_TRUE(accessible->child(300)->state().focused);
    EXPECT_TRUE(accessible->child(300)->state().selected);
    EXPECT_EQ(accessible->focusChild(), accessible->child(300));
}

TEST_F(RecyclingListTest, RowThatIsGone_IsNotValidAnyMore) {
    show();
    auto* last = QAccessible::queryAccessibleInterface(list)->child(499);
    rows.count = 10;
    list->reload();
    EXPECT_FALSE(last->isValid());
    EXPECT_TRUE(last->text(QAccessible::Name).isEmpty());
}

} // namespace
} // namespace brivandel

#include "widgets/Button.h"
#include "widgets/Chip.h"
#include "widgets/PageDots.h"
#include "widgets/SegmentedPicker.h"
#include "widgets/Switch.h"
#include "widgets/TextStyle.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

QAccessible::Role roleOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->role();
}

QString nameOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

TEST(Switch, ToAssistiveTechnology_IsACheckBox) {
    Switch control(QStringLiteral("Use wake word"));
    EXPECT_EQ(roleOf(control), QAccessible::CheckBox);
    EXPECT_EQ(nameOf(control), QStringLiteral("Use wake word"));
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(&control)->state().checked);
    control.setChecked(true);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&control)->state().checked);
}

TEST(Switch, ClickedAnywhereOrPressedBySpace_Flips) {
    Switch control(QStringLiteral("Use wake word"));
    control.resize(300, 26);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(5, 13));
    EXPECT_TRUE(control.isChecked());
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(290, 13));
    EXPECT_FALSE(control.isChecked());
    QTest::keyClick(&control, Qt::Key_Space);
    EXPECT_TRUE(control.isChecked());
}

TEST(Switch, SwitchedByAssistiveTechnology_SaysSo) {
    Switch control(QStringLiteral("Use wake word"));
    const QSignalSpy switches(&control, &Switch::switched);
    QAccessible::queryAccessibleInterface(&control)->actionInterface()->doAction(
        QAccessibleActionInterface::toggleAction());
    ASSERT_EQ(switches.size(), 1);
    EXPECT_EQ(switches[0][0], QVariant(true));
}

TEST(Switch, ShownAsItStands_WasNotSwitched) {
    Switch control(QStringLiteral("Use wake word"));
    const QSignalSpy switches(&control, &Switch::switched);
    control.showState(true);
    EXPECT_TRUE(control.isChecked());
    EXPECT_TRUE(switches.isEmpty());
}

TEST(Button, OfASymbolAlone_SaysItsPurpose) {
    const std::unique_ptr<Button> button(
        Button::withSymbol(QStringLiteral("pencil"), QStringLiteral("Edit")));
    EXPECT_EQ(roleOf(*button), QAccessible::Button);
    EXPECT_EQ(nameOf(*button), QStringLiteral("Edit"));
    EXPECT_EQ(button->toolTip(), QStringLiteral("Edit"));
}

TEST(SegmentedPicker, FirstChoice_IsPicked) {
    const SegmentedPicker picker({QStringLiteral("Built-in"), QStringLiteral("Custom")});
    EXPECT_EQ(picker.currentIndex(), 0);
}

TEST(SegmentedPicker, ClickedOrSteppedThrough_TellsTheChoice) {
    SegmentedPicker picker({QStringLiteral("Built-in"), QStringLiteral("Custom")});
    picker.show();
    picker.activateWindow();
    QCoreApplication::processEvents();
    const QSignalSpy changes(&picker, &SegmentedPicker::currentIndexChanged);
    auto* custom = picker.findChild<QWidget*>(QStringLiteral("Custom"));
    ASSERT_NE(custom, nullptr);
    EXPECT_EQ(roleOf(*custom), QAccessible::RadioButton);
    QTest::mouseClick(custom, Qt::LeftButton);
    EXPECT_EQ(picker.currentIndex(), 1);
    QTest::keyClick(custom, Qt::Key_Left);
    EXPECT_EQ(picker.currentIndex(), 0);
    EXPECT_EQ(changes.size(), 2);
}

TEST(Chip, ItsCross_AsksForItsPhraseToBeRemoved) {
    Chip chip(QStringLiteral("open mixer"), {textFont(TextStyle::Caption), {8, 4, 8, 4}, 12, 0.15, 9},
              NamedColor::Blue);
    EXPECT_EQ(chip.findChild<Button*>(), nullptr);
    chip.setRemovable(true);
    auto* cross = chip.findChild<Button*>();
    ASSERT_NE(cross, nullptr);
    EXPECT_EQ(nameOf(*cross), QStringLiteral("Remove open mixer"));
    const QSignalSpy removals(&chip, &Chip::removeRequested);
    QTest::mouseClick(cross, Qt::LeftButton);
    ASSERT_EQ(removals.size(), 1);
    EXPECT_EQ(removals.at(0).at(0).toString(), QStringLiteral("open mixer"));
    chip.setRemovable(false);
    EXPECT_TRUE(cross->isHidden());
}

TEST(PageDots, SayWhichPageItIs) {
    PageDots dots(3);
    EXPECT_EQ(nameOf(dots), QStringLiteral("Page 1 of 3"));
    dots.setCurrentPage(2);
    EXPECT_EQ(nameOf(dots), QStringLiteral("Page 3 of 3"));
}

} // namespace
} // namespace brivandel

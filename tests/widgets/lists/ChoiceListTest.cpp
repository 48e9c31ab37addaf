#include "widgets/ChoiceList.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

TEST(ChoiceList, ItemToggledByAssistiveTechnology_IsTheOneChosen) {
    ChoiceList list;
    for (const auto& title : {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}) {
        list.addChoice(title, {});
    }
    list.show();
    QCoreApplication::processEvents();
    QSignalSpy changed(&list, &ChoiceList::currentRowChanged);
    for (const int place : {1, 1, 1, 2}) {
        auto* item = QAccessible::queryAccessibleInterface(&list)->child(place);
        ASSERT_NE(item, nullptr);
        ASSERT_NE(item->actionInterface(), nullptr);
        item->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QCoreApplication::processEvents();
        EXPECT_EQ(list.currentRow(), place);
        ASSERT_EQ(list.selectedItems().size(), 1);
        EXPECT_EQ(list.row(list.selectedItems().first()), place);
    }
    EXPECT_EQ(changed.count(), 2);
}

} // namespace
} // namespace brivandel

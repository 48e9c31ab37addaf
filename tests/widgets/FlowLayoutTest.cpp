#include "widgets/FlowLayout.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

class FlowLayoutTest : public testing::Test {
protected:
    QWidget* add(int width) {
        auto* item = new QWidget;
        item->setMinimumSize(width, 20);
        layout->addWidget(item);
        return item;
    }

    QWidget holder;
    FlowLayout* layout = new FlowLayout(80, 6);

    void SetUp() override { holder.setLayout(layout); }
    void place(int width) {
        holder.resize(width, 400);
        layout->setGeometry(holder.rect());
    }
};

TEST_F(FlowLayoutTest, ShortItems_AreAsWideAsTheMinimum) {
    auto* first = add(10);
    auto* second = add(10);
    place(300);
    EXPECT_EQ(first->geometry(), QRect(0, 0, 80, 20));
    EXPECT_EQ(second->geometry(), QRect(86, 0, 80, 20));
}

TEST_F(FlowLayoutTest, ItemThatDoesNotFit_BeginsTheNextRow) {
    add(150);
    auto* second = add(150);
    place(305);
    EXPECT_EQ(second->geometry().topLeft(), QPoint(0, 26));
    place(306);
    EXPECT_EQ(second->geometry().topLeft(), QPoint(156, 0));
}

TEST_F(FlowLayoutTest, ItemWiderThanTheRow_IsCutToIt) {
    auto* only = new QWidget;
    only->setFixedHeight(20);
    layout->addWidget(only);
    layout->itemAt(0)->widget()->setMinimumWidth(0);
    add(5000)->setMinimumWidth(0);
    place(200);
    EXPECT_LE(layout->itemAt(1)->geometry().width(), 200);
}

TEST_F(FlowLayoutTest, HeightForWidth_IsThatOfTheRows) {
    for (int item = 0; item < 4; ++item) {
        add(90);
    }
    EXPECT_EQ(layout->heightForWidth(400), 20);
    EXPECT_EQ(layout->heightForWidth(200), 46);
    EXPECT_EQ(layout->heightForWidth(100), 98);
}

} // namespace
} // namespace brivandel

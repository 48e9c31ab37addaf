#include "widgets/Label.h"

#include <QAccessible>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

TEST(Label, TextThatLooksLikeMarkup_IsShownAsItIs) {
    const Label label(QStringLiteral("<b>bold</b>"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(const_cast<Label*>(&label))->text(QAccessible::Name),
              QStringLiteral("<b>bold</b>"));
}

TEST(Label, LimitedToTwoLines_NeverGrowsBeyondThem) {
    Label label(QString(10'000, u'w'));
    label.setMaximumLines(2);
    EXPECT_EQ(label.heightForWidth(200), 2 * label.fontMetrics().lineSpacing());
    label.setText(QStringLiteral("short"));
    EXPECT_EQ(label.heightForWidth(200), label.fontMetrics().lineSpacing());
}

TEST(Label, LineBreaks_AreKeptWithinTheLimit) {
    Label label(QStringLiteral("one\ntwo"));
    label.setMaximumLines(3);
    EXPECT_EQ(label.heightForWidth(200), 2 * label.fontMetrics().lineSpacing());
    label.setText(QStringLiteral("one\ntwo\nthree\nfour"));
    EXPECT_EQ(label.heightForWidth(200), 3 * label.fontMetrics().lineSpacing());
}

TEST(Label, LimitedToOneLine_MayBeNarrowerThanItsText) {
    Label label(QString(500, u'w'));
    label.setMaximumLines(1);
    EXPECT_EQ(label.minimumSizeHint().width(), 0);
    EXPECT_GT(label.sizeHint().width(), 500);
}

TEST(Label, InADarkPalette_TakesTheDarkColour) {
    QWidget window;
    auto* label = new Label(QStringLiteral("quiet"), TextStyle::Caption, NamedColor::Secondary, &window);
    const auto shown = [&] { return label->palette().color(QPalette::WindowText); };
    window.setPalette(paletteFor(Appearance::Light));
    EXPECT_EQ(shown(), color(NamedColor::Secondary, Appearance::Light));
    window.setPalette(paletteFor(Appearance::Dark));
    EXPECT_EQ(shown(), color(NamedColor::Secondary, Appearance::Dark));
    window.setPalette(paletteFor(Appearance::Light));
    EXPECT_EQ(shown(), color(NamedColor::Secondary, Appearance::Light));
}

TEST(Label, InsideAList_KeepsItsColour) {
    QWidget list;
    list.setBackgroundRole(QPalette::Base);
    auto* label = new Label(QStringLiteral("quiet"), TextStyle::Caption, NamedColor::Secondary, &list);
    EXPECT_EQ(label->palette().color(label->foregroundRole()),
              color(NamedColor::Secondary, Appearance::Light));
}

} // namespace
} // namespace brivandel

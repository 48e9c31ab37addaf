#include "app/MenuBarIcon.h"

#include "widgets/Colors.h"

#include <QImage>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

QImage menuBarIcon(bool listening) {
    return makeMenuBarIcon(listening, Qt::black, 2).toImage();
}

// In points.
QColor at(const QImage& image, double x, double y) {
    return image.pixelColor(static_cast<int>(x * image.devicePixelRatio()),
                            static_cast<int>(y * image.devicePixelRatio()));
}

int countOf(const QImage& image, const QColor& color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == color;
        }
    }
    return count;
}

const QColor green = fillColor(NamedColor::Green, Appearance::Light);

TEST(MenuBarIcon, Size_IsThatOfTheMenuBar) {
    EXPECT_EQ(menuBarIcon(true).size(), QSize(72, 44));
    EXPECT_EQ(menuBarIcon(true).deviceIndependentSize(), QSizeF(36, 22));
}

TEST(MenuBarIcon, NotListening_IsBlackOnNothing) {
    const QImage icon = menuBarIcon(false);
    EXPECT_EQ(countOf(icon, green), 0);
    EXPECT_EQ(countOf(icon, Qt::white), 0);
    EXPECT_GT(countOf(icon, Qt::black), 100);
    EXPECT_EQ(at(icon, 18, 1).alpha(), 0);
}

TEST(MenuBarIcon, Listening_IsWhiteOnAGreenPlate) {
    const QImage icon = menuBarIcon(true);
    EXPECT_GT(countOf(icon, green), 1000);
    EXPECT_GT(countOf(icon, Qt::white), 100);
    EXPECT_EQ(countOf(icon, Qt::black), 0);
    // The plate is inset by 1 and 2 points, with rounded corners.
    EXPECT_EQ(at(icon, 18, 1).alpha(), 0);
    EXPECT_EQ(at(icon, 18, 2.5), green);
    EXPECT_EQ(at(icon, 0, 11).alpha(), 0);
    EXPECT_EQ(at(icon, 1.5, 11), green);
    EXPECT_EQ(at(icon, 1, 2).alpha(), 0);
}

TEST(TrayIcon, NotListening_IsTintedByPanelsThatCan) {
    EXPECT_TRUE(makeTrayIcon(false, Qt::black).isMask());
    EXPECT_FALSE(makeTrayIcon(true, Qt::black).isMask());
}

TEST(TrayIcon, EverySize_IsDrawnForItself) {
    for (const int side : {16, 22, 24, 32, 48, 64}) {
        const QImage idle = makeSquareIcon(false, Qt::black, side).toImage();
        const QImage listening = makeSquareIcon(true, Qt::black, side).toImage();
        ASSERT_EQ(idle.size(), QSize(side, side));
        EXPECT_GT(countOf(listening, green), side * side / 4) << side;
        EXPECT_EQ(countOf(idle, green), 0) << side;
    }
}

TEST(TrayIcon, NotListening_StandsOutFromBlackAndWhitePanelsAlike) {
    for (const int side : {16, 22, 32}) {
        const QImage idle = makeSquareIcon(false, Qt::black, side).toImage();
        int dark = 0;
        int bright = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const QColor pixel = idle.pixelColor(x, y);
                dark += pixel.alpha() > 200 && pixel.lightness() < 60;
                bright += pixel.alpha() > 200 && pixel.lightness() > 195;
            }
        }
        EXPECT_GT(dark, side) << side;
        EXPECT_GT(bright, side) << side;
    }
}

} // namespace
} // namespace brivandel

#include "widgets/Symbol.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace brivandel {
namespace {

QStringList symbolNames() {
    QStringList names;
    for (const QString& file : QDir(QStringLiteral(":/symbols")).entryList()) {
        names += file.chopped(4);
    }
    return names;
}

// How much of the square is inked, from 0 to 1, and whether anything of another colour is.
double ink(const QImage& image, const QColor& color, bool* hasOther) {
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            inked += pixel.alpha() > 128;
            *hasOther |= pixel.alpha() > 250 && pixel.rgb() != color.rgb();
        }
    }
    return static_cast<double>(inked) / (image.width() * image.height());
}

TEST(Symbols, EachOfThem_IsDrawnInTheColourAskedFor) {
    const QStringList names = symbolNames();
    ASSERT_GE(names.size(), 20);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        bool hasOther = false;
        const double inked = ink(symbolPixmap(name, 48, Qt::red, 1).toImage(), Qt::red, &hasOther);
        EXPECT_GT(inked, 0.05);
        EXPECT_LT(inked, 0.9);
        EXPECT_FALSE(hasOther);
    }
}

TEST(Symbols, OfADenserScreen_HaveItsPixels) {
    for (const double density : {1.0, 1.5, 2.0}) {
        const QPixmap pixmap = symbolPixmap(QStringLiteral("mic.fill"), 20, Qt::black, density);
        EXPECT_EQ(pixmap.width(), static_cast<int>(20 * density));
        EXPECT_EQ(pixmap.devicePixelRatio(), density);
    }
}

TEST(Symbols, UnknownName_IsNoPicture) {
    EXPECT_TRUE(symbolPixmap(QStringLiteral("no.such.symbol"), 20, Qt::black, 1).isNull());
    QImage canvas(8, 8, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&canvas);
    EXPECT_FALSE(paintSymbol(painter, QStringLiteral("no.such.symbol"), QRectF(0, 0, 8, 8), Qt::black));
}

TEST(ResourceImages, TheLogo_IsThere) {
    EXPECT_EQ(resourceImage(QStringLiteral("logo-square"), 100, 2).size(), QSize(200, 200));
    EXPECT_TRUE(resourceImage(QStringLiteral("no-such-image"), 100, 1).isNull());
}

} // namespace
} // namespace brivandel

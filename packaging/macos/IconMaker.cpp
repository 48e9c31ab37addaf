#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtEndian>

#include <array>
#include <iostream>

// icon-maker PICTURE.svg ICON.icns: draws the picture in every size that macOS asks of an icon. A file of
// icons is the word "icns" and its own length, then for each picture its kind, its length with these eight
// bytes, and a PNG; all numbers are big-endian.
namespace {

struct Kind {
    const char* code;
    int side;
};
// 16, 32, 128, 256 and 512 points, as far as a PNG may stand there, in one pixel a point and in two.
constexpr std::array kinds{Kind{"ic11", 32},  Kind{"ic12", 64},  Kind{"ic07", 128}, Kind{"ic13", 256},
                           Kind{"ic08", 256}, Kind{"ic14", 512}, Kind{"ic09", 512}, Kind{"ic10", 1024}};

QByteArray lengthOf(qsizetype length) {
    const quint32 bytes = qToBigEndian(static_cast<quint32>(length));
    return {reinterpret_cast<const char*>(&bytes), sizeof bytes};
}

QByteArray chunk(const char* code, const QByteArray& content) {
    constexpr qsizetype headerLength = 8;
    return QByteArray(code) + lengthOf(content.size() + headerLength) + content;
}

// The system puts the picture on no plate of its own, and leaves some room around others.
QByteArray png(QSvgRenderer& picture, int side) {
    constexpr double margin = 0.1;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(
        &painter,
        QRectF(0, 0, side, side).adjusted(side * margin, side * margin, -side * margin, -side * margin));
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::cerr << "icon-maker: say which picture to draw and which icon to write\n";
        return 2;
    }
    QSvgRenderer picture;
    if (!picture.load(QString::fromLocal8Bit(argv[1]))) {
        std::cerr << "icon-maker: " << argv[1] << " is no picture that can be drawn\n";
        return 1;
    }
    QByteArray icons;
    for (const Kind& kind : kinds) {
        icons += chunk(kind.code, png(picture, kind.side));
    }
    const QByteArray whole = chunk("icns", icons);
    QFile file(QString::fromLocal8Bit(argv[2]));
    if (!file.open(QIODevice::WriteOnly) || file.write(whole) != whole.size()) {
        std::cerr << "icon-maker: " << argv[2] << ": " << file.errorString().toStdString() << '\n';
        return 1;
    }
    return 0;
}

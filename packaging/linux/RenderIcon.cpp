// render_icon SVG SIDE PNG: the picture as a square image of SIDE pixels.

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

int main(int argumentCount, char** arguments) {
    if (argumentCount != 4) {
        std::fprintf(stderr, "render_icon: usage: render_icon SVG SIDE PNG\n");
        return EXIT_FAILURE;
    }
    QSvgRenderer renderer(QString::fromLocal8Bit(arguments[1]));
    const int side = QByteArray(arguments[2]).toInt();
    if (!renderer.isValid() || side <= 0) {
        std::fprintf(stderr, "render_icon: no picture can be made of %s in %s pixels\n", arguments[1],
                     arguments[2]);
        return EXIT_FAILURE;
    }
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    if (!image.save(QString::fromLocal8Bit(arguments[3]))) {
        std::fprintf(stderr, "render_icon: %s could not be written\n", arguments[3]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

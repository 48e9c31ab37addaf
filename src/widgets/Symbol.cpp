#include "widgets/Symbol.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>
#include <memory>

namespace brivandel {

namespace {

QSvgRenderer* drawing(const QString& path) {
    // Parsed once a name; there are some thirty.
    static QHash<QString, std::shared_ptr<QSvgRenderer>> drawings;
    const auto known = drawings.constFind(path);
    if (known != drawings.constEnd()) {
        return known->get();
    }
    auto renderer = QFile::exists(path) ? std::make_shared<QSvgRenderer>(path) : nullptr;
    if (renderer) {
        renderer->setAspectRatioMode(Qt::KeepAspectRatio);
    }
    return drawings.insert(path, renderer)->get();
}

QString symbolPath(const QString& name) {
    return QStringLiteral(":/symbols/%1.svg").arg(name);
}

QImage blank(const QSizeF& size, double devicePixelRatio) {
    QImage image(static_cast<int>(std::ceil(size.width() * devicePixelRatio)),
                 static_cast<int>(std::ceil(size.height() * devicePixelRatio)),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

QImage tinted(QSvgRenderer& symbol, const QSizeF& size, const QColor& color, double devicePixelRatio) {
    QImage image = blank(size, devicePixelRatio);
    if (image.isNull()) {
        return image;
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole(QPointF(0, 0), size);
    symbol.render(&painter, whole);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(whole, color);
    return image;
}

} // namespace

bool paintSymbol(QPainter& painter, const QString& name, const QRectF& rect, const QColor& color) {
    QSvgRenderer* symbol = drawing(symbolPath(name));
    if (symbol == nullptr) {
        return false;
    }
    const QImage image = tinted(*symbol, rect.size(), color, painter.device()->devicePixelRatioF());
    painter.drawImage(rect.topLeft(), image);
    return true;
}

QPixmap symbolPixmap(const QString& name, int side, const QColor& color, double devicePixelRatio) {
    QSvgRenderer* symbol = drawing(symbolPath(name));
    return symbol == nullptr
               ? QPixmap()
               : QPixmap::fromImage(tinted(*symbol, QSizeF(side, side), color, devicePixelRatio));
}

QPixmap resourceImage(const QString& name, int side, double devicePixelRatio) {
    QSvgRenderer* image = drawing(QStringLiteral(":/images/%1.svg").arg(name));
    if (image == nullptr) {
        return {};
    }
    QImage canvas = blank(QSizeF(side, side), devicePixelRatio);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    image->render(&painter, QRectF(0, 0, side, side));
    painter.end();
    return QPixmap::fromImage(canvas);
}

} // namespace brivandel

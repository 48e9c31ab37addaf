#pragma once

#include <QColor>
#include <QPixmap>
#include <QSizeF>
#include <QString>

class QPainter;
class QRectF;

namespace brivandel {

/// The program's symbols: drawings by name ("mic.fill"), painted in one colour at any size, as sharp as the
/// device.
///
/// Paints it centred and as large as fits; false when there is no such symbol.
bool paintSymbol(QPainter& painter, const QString& name, const QRectF& rect, const QColor& color);

/// side is in device-independent pixels; a null pixmap when there is no such symbol.
[[nodiscard]] QPixmap symbolPixmap(const QString& name, int side, const QColor& color,
                                   double devicePixelRatio);

/// An image of the program's resources ("logo-square") that keeps its own colours, as large as fits into a
/// square; a null pixmap when there is none.
[[nodiscard]] QPixmap resourceImage(const QString& name, int side, double devicePixelRatio);

} // namespace brivandel

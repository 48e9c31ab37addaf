#include "widgets/ResourceImage.h"

#include "widgets/AccessibleRole.h"
#include "widgets/Symbol.h"

#include <QPainter>

#include <utility>

namespace brivandel {

ResourceImage* ResourceImage::make(const QString& name, int side) {
    return resourceImage(name, 1, 1).isNull() ? nullptr : new ResourceImage(name, side);
}

ResourceImage::ResourceImage(QString name, int side) : name_(std::move(name)) {
    setFixedSize(side, side);
    setAccessibleRole(*this, QAccessible::Graphic);
    setAccessibleName(QStringLiteral("Brivandel"));
}

void ResourceImage::paintEvent(QPaintEvent* /*event*/) {
    // A window may be moved to a screen of another density.
    if (image_.devicePixelRatio() != devicePixelRatioF() || image_.isNull()) {
        image_ = resourceImage(name_, width(), devicePixelRatioF());
    }
    QPainter(this).drawPixmap(0, 0, image_);
}

} // namespace brivandel

#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>

namespace brivandel {

/// Shows an image of the program's resources in a square, as sharp as the screen it is on.
class ResourceImage final : public QWidget {
    Q_OBJECT
public:
    /// None when there is no such image. The caller places it; side is in device-independent pixels.
    [[nodiscard]] static ResourceImage* make(const QString& name, int side);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ResourceImage(QString name, int side);

    QString name_;
    QPixmap image_;
};

} // namespace brivandel

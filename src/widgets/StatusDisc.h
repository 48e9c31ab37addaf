#pragma once

#include "widgets/Colors.h"

#include <QPixmap>
#include <QString>
#include <QVariantAnimation>
#include <QWidget>

namespace brivandel {

/// A soft edge around the disc; the radius is in device-independent pixels.
struct DiscShadow {
    double opacity = 0;
    double radius = 0;
};

/// A disc with a white symbol that grows and glows with the level of the voice. The widget is larger than the
/// disc by what the shadows need, so it is laid over its neighbours, not beside them.
class StatusDisc final : public QWidget {
    Q_OBJECT
public:
    /// Of the disc alone, while nothing is heard; in device-independent pixels.
    static constexpr int restingDiameter = 60;

    explicit StatusDisc(QWidget* parent = nullptr);

    /// What it shows; description is what assistive technology says. Changes at once.
    void setStatus(NamedColor color, const QString& symbol, const QString& description);
    /// Whether the level counts: a disc at rest has its own size and shadows.
    void setIsLive(bool live);
    /// From 0 to 1. What is seen follows within a tenth of a second, slowing towards the end.
    void setLevel(double level);

    [[nodiscard]] NamedColor discColor() const { return color_; }
    [[nodiscard]] const QString& symbol() const { return symbol_; }

    /// What is painted once it has followed the level.
    [[nodiscard]] double scale() const { return scaleAt(level_); }
    [[nodiscard]] DiscShadow firstShadow() const { return firstShadowAt(level_); }
    [[nodiscard]] DiscShadow secondShadow() const { return secondShadowAt(level_); }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] QPixmap picture(double level) const;
    [[nodiscard]] double scaleAt(double level) const;
    [[nodiscard]] DiscShadow firstShadowAt(double level) const;
    [[nodiscard]] DiscShadow secondShadowAt(double level) const;

    NamedColor color_ = NamedColor::Gray;
    QString symbol_;
    bool isLive_ = false;
    double level_ = 0;
    double shownLevel_ = 0;
    QVariantAnimation following_;
};

} // namespace brivandel

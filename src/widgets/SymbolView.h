#pragma once

#include "widgets/Colors.h"

#include <QString>
#include <QWidget>

namespace brivandel {

/// Shows one symbol in one named colour; decoration, so assistive technology passes it by.
class SymbolView final : public QWidget {
    Q_OBJECT
public:
    /// side: of the symbol's square, in device-independent pixels.
    SymbolView(QString name, int side, NamedColor color, QWidget* parent = nullptr);

    [[nodiscard]] const QString& symbol() const { return name_; }
    [[nodiscard]] NamedColor symbolColor() const { return color_; }
    void setSymbolColor(NamedColor color);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString name_;
    int side_;
    NamedColor color_;
};

} // namespace brivandel

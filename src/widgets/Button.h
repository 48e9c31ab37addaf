#pragma once

#include "widgets/Colors.h"

#include <QPushButton>

namespace brivandel {

enum class ButtonStyle {
    Bordered,   ///< a plate with a thin edge
    Prominent,  ///< a plate filled with the tint, under white text
    Borderless, ///< text or symbol alone
};

enum class ControlSize { Small, Regular, Large };

/// A button with a text, a symbol or both.
class Button final : public QPushButton {
    Q_OBJECT
public:
    Button(const QString& text, ButtonStyle style, QWidget* parent = nullptr);
    /// A borderless symbol. Its purpose is its accessible name and its tool tip.
    static Button* withSymbol(const QString& symbol, const QString& purpose, QWidget* parent = nullptr);

    /// Shown before the text.
    void setSymbol(const QString& name);
    [[nodiscard]] const QString& symbol() const { return symbol_; }
    /// In device-independent pixels; by default that of the text.
    void setSymbolSide(int side);
    /// The plate of a prominent button, the text and symbol of a borderless one.
    void setTint(NamedColor tint);
    [[nodiscard]] NamedColor tint() const { return tint_; }
    void setControlSize(ControlSize size);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QColor textColor() const;
    [[nodiscard]] int contentWidth() const;
    void paintPlate(QPainter& painter) const;

    ButtonStyle style_;
    ControlSize size_ = ControlSize::Regular;
    NamedColor tint_;
    QString symbol_;
    int symbolSide_ = 0;
};

} // namespace brivandel

#pragma once

#include "widgets/Colors.h"

#include <QAbstractButton>

namespace brivandel {

/// A filled plate with white text, with a symbol before it where one is set. Cuts a text that is too long
/// with an ellipsis.
class PillButton final : public QAbstractButton {
    Q_OBJECT
public:
    explicit PillButton(QWidget* parent = nullptr);

    /// An empty symbol: text alone.
    void setContent(const QString& symbol, const QString& text, const QFont& font, NamedColor fill);
    [[nodiscard]] const QString& symbol() const { return symbol_; }
    [[nodiscard]] NamedColor fill() const { return fill_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QSize sizeAround(int textWidth) const;

    QString symbol_;
    NamedColor fill_ = NamedColor::Secondary;
};

} // namespace brivandel

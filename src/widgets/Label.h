#pragma once

#include "widgets/Colors.h"
#include "widgets/TextStyle.h"

#include <QLabel>

namespace brivandel {

/// Text in a named style and colour, never read as markup. Wraps when told to; a limit of lines cuts the last
/// one with an ellipsis, and the whole text is then in the tool tip.
class Label final : public QLabel {
    Q_OBJECT
public:
    explicit Label(const QString& text, TextStyle style = TextStyle::Body,
                   NamedColor color = NamedColor::Primary, QWidget* parent = nullptr);

    void setTextColor(NamedColor color);
    [[nodiscard]] NamedColor textColor() const { return color_; }
    /// 0: no limit.
    void setMaximumLines(int count);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showColor();
    [[nodiscard]] QStringList lines(int width) const;
    [[nodiscard]] int heightOfLines(qsizetype count) const;

    NamedColor color_;
    int maximumLines_ = 0;
};

} // namespace brivandel

#pragma once

#include <QScrollArea>

namespace brivandel {

/// As high as what is in it while there is room, and scrolling when there is not. Its width decides how high
/// the content is.
class FittingScrollArea final : public QScrollArea {
    Q_OBJECT
public:
    explicit FittingScrollArea(QWidget* content, QWidget* parent = nullptr);

    /// Scrolls to the end as soon as the content has its new size.
    void revealEnd();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] int contentHeight() const;
};

} // namespace brivandel

#pragma once

#include <QLayout>

#include <vector>

namespace brivandel {

/// Items from the leading edge on, as many in a row as fit; none narrower than the minimum and none wider
/// than the row.
class FlowLayout final : public QLayout {
    Q_OBJECT
public:
    /// Lengths in device-independent pixels; the spacing is the same in and between rows.
    FlowLayout(int minimumItemWidth, int spacing);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    enum class Action { Measure, Place };
    int arrange(const QRect& rect, Action action) const;

    std::vector<QLayoutItem*> items_;
    int minimumItemWidth_;
};

} // namespace brivandel

#pragma once

#include <QWidget>

namespace brivandel {

/// A thin line from edge to edge.
class Divider final : public QWidget {
    Q_OBJECT
public:
    explicit Divider(Qt::Orientation orientation = Qt::Horizontal, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brivandel

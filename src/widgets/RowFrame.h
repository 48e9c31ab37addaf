#pragma once

#include <QWidget>

namespace brivandel {

class RecyclingList;

/// The place of one row in a long list: its widget, and the list's marks around it.
class RowFrame final : public QWidget {
    Q_OBJECT
public:
    /// Owns the content.
    RowFrame(RecyclingList& list, int kind, QWidget* content, QWidget* parent);

    [[nodiscard]] RecyclingList& list() const { return list_; }
    [[nodiscard]] int kind() const { return kind_; }
    [[nodiscard]] QWidget* content() const { return content_; }
    /// -1 while it waits to be used again.
    [[nodiscard]] int row() const { return row_; }
    void setRow(int row) { row_ = row; }
    [[nodiscard]] int heightFor(int width) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    RecyclingList& list_;
    int kind_;
    QWidget* content_;
    int row_ = -1;
};

} // namespace brivandel

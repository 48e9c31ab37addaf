#pragma once

#include <QWidget>

namespace brivandel {

/// A row of dots, one a page, that marks where the reader is.
class PageDots final : public QWidget {
    Q_OBJECT
public:
    explicit PageDots(int pageCount, QWidget* parent = nullptr);

    void setCurrentPage(int page);
    [[nodiscard]] int currentPage() const { return current_; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int pageCount_;
    int current_ = 0;
};

} // namespace brivandel

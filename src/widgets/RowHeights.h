#pragma once

#include <vector>

namespace brivandel {

/// How high the rows of a list are, in device-independent pixels: measured where a row has been seen,
/// estimated where not.
class RowHeights {
public:
    /// Nothing is measured yet.
    void reset(int rowCount);
    /// Rows at the end come or go; the others stay measured.
    void resize(int rowCount);

    [[nodiscard]] int rowCount() const { return static_cast<int>(heights_.size()); }
    [[nodiscard]] bool isMeasured(int row) const;
    void setHeight(int row, int height);
    [[nodiscard]] int height(int row) const;
    /// Of its upper edge; that of the row after the last one is the height of all.
    [[nodiscard]] int top(int row) const;
    /// The row at this height, the first or last one for what is outside; -1 when there is none.
    [[nodiscard]] int rowAt(int position) const;

private:
    static constexpr int unmeasured = -1;

    std::vector<int> heights_;
    int estimate_ =
        unmeasured; // that of the first row measured, since a better one would move all the others
    mutable std::vector<int> tops_;
    mutable int validTops_ = 0; // so many of them are up to date
};

} // namespace brivandel

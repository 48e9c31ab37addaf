#include "widgets/RowHeights.h"

#include <algorithm>

namespace brivandel {

namespace {

std::size_t index(int row) {
    return static_cast<std::size_t>(row);
}

} // namespace

void RowHeights::reset(int rowCount) {
    heights_.assign(index(rowCount), unmeasured);
    estimate_ = unmeasured;
    validTops_ = 0;
}

void RowHeights::resize(int rowCount) {
    validTops_ = std::min({validTops_, rowCount, this->rowCount()});
    heights_.resize(index(rowCount), unmeasured);
}

bool RowHeights::isMeasured(int row) const {
    return heights_[index(row)] != unmeasured;
}

void RowHeights::setHeight(int row, int height) {
    if (heights_[index(row)] == height) {
        return;
    }
    heights_[index(row)] = height;
    validTops_ = std::min(validTops_, row + 1);
    if (estimate_ == unmeasured) {
        estimate_ = height;
        validTops_ = 0;
    }
}

int RowHeights::height(int row) const {
    constexpr int guess = 40;
    return isMeasured(row) ? heights_[index(row)] : (estimate_ == unmeasured ? guess : estimate_);
}

int RowHeights::top(int row) const {
    tops_.resize(heights_.size() + 1);
    for (; validTops_ <= row; ++validTops_) {
        tops_[index(validTops_)] =
            validTops_ == 0 ? 0 : tops_[index(validTops_ - 1)] + height(validTops_ - 1);
    }
    return tops_[index(row)];
}

int RowHeights::rowAt(int position) const {
    if (heights_.empty()) {
        return -1;
    }
    static_cast<void>(top(rowCount()));
    const auto next = std::upper_bound(tops_.begin(), tops_.end(), position);
    return std::clamp(static_cast<int>(next - tops_.begin()) - 1, 0, rowCount() - 1);
}

} // namespace brivandel

#pragma once

#include <algorithm>
#include <cstdlib>
#include <ranges>

namespace brivandel {

/// Whether one phone is put in, left out or exchanged between the two, which are not the same.
template <std::ranges::random_access_range Phones>
[[nodiscard]] bool differByOnePhone(const Phones& one, const Phones& other) {
    if (std::abs(std::ranges::ssize(one) - std::ranges::ssize(other)) > 1) {
        return false;
    }
    const auto [first, second] = std::ranges::mismatch(one, other);
    // All that follows the difference, which of the longer one takes a phone.
    const auto rest = std::max(one.end() - first, other.end() - second) - 1;
    return rest >= 0 && std::equal(one.end() - rest, one.end(), other.end() - rest);
}

} // namespace brivandel

#pragma once

#include <QString>

#include <cstdint>

namespace brivandel {

/// Moving the playhead to a bar, and playing from there if that was said.
struct BarNavigation {
    std::int64_t bar = 0;
    bool thenPlay = false;

    bool operator==(const BarNavigation&) const = default;
};

/// The script that opens Logic Pro's "go to position" field with a slash, types the bar and confirms it.
/// With thenPlay it presses the space bar afterwards; that step stands outside the System Events block on
/// purpose, it is meant for whatever program the script has brought to the front.
[[nodiscard]] QString barNavigationScript(const BarNavigation& navigation);

/// "Go to bar 7" or "Play from bar 7".
[[nodiscard]] QString barNavigationLabel(const BarNavigation& navigation);

} // namespace brivandel

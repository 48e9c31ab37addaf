#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace brivandel {

inline constexpr int alertToneRateHz = 48'000;

/// The sound that stands in where the desktop has no sound theme: a short soft bell, one channel.
[[nodiscard]] std::vector<float> alertTone();

/// Plays it on the sound server's default output to its end; the description of what failed. Blocks.
[[nodiscard]] std::optional<QString> playAlertTone();

} // namespace brivandel

#pragma once

#include <QList>
#include <QString>

#include <cstdint>

namespace brivandel {

/// Phones as numbers, for comparing many phrases quickly.
using PhoneSequence = QList<std::uint8_t>;

/// The phones of a text in ARPAbet, parted by spaces; what is no phone is left out.
[[nodiscard]] PhoneSequence phoneSequence(const QString& text);

/// How far two phrases are from each other in sound: 0 for the same, 1 for nothing in common. The cost of
/// turning one into the other, a phone exchanged for a related one (two vowels; "b" and "p"; "l" and "r") at
/// half, by the length of the longer. Beyond the limit, some number above it.
[[nodiscard]] double soundDistance(const PhoneSequence& one, const PhoneSequence& other, double limit = 1);

/// Up to this distance phrases are taken for one another; found on the built-in phrases, which keep further
/// apart, and on near misses such as "pray" for "play".
inline constexpr double confusableDistance = 0.2;

} // namespace brivandel

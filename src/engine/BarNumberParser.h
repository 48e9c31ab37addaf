#pragma once

#include <QStringView>

#include <cstdint>
#include <memory>
#include <optional>

namespace brivandel {

/// Finds the bar number in what was said: "bar 12", "bar twelve", "bar twenty one". Words reach from zero to
/// 109
/// ("ninety nineteen"); digits to whatever fits in 64 bits.
///
/// Deliberate, since it decides what fires: one or two words after "bar" are read as the number, so "bar five
/// please" is none; and only the first "bar" that is followed by digits, or else by words, is looked at.
class BarNumberParser {
public:
    BarNumberParser();
    ~BarNumberParser();
    BarNumberParser(const BarNumberParser&) = delete;
    BarNumberParser& operator=(const BarNumberParser&) = delete;

    /// The result depends on the text alone. Not to be called on two threads at once: the expressions'
    /// matchers are kept between calls, so that a text without a number costs no allocation.
    [[nodiscard]] std::optional<std::int64_t> extractBarNumber(QStringView text) const;

private:
    struct Expressions;
    std::unique_ptr<Expressions> expressions_;
};

/// The number that one or two lower-case English words stand for.
[[nodiscard]] std::optional<std::int64_t> wordToNumber(QStringView words);

} // namespace brivandel

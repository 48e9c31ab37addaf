#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace brivandel {

/// A whole number from 0 to 9999, as it is said word by word: "one twelve", "one hundred and twelve" and "one
/// one two" are 112, "ten twenty four" is 1024.
class SpokenNumber {
public:
    /// Which words may follow depends on these shapes only, so that a grammar of numbers has as many states.
    enum class Shape : std::uint8_t {
        Nothing,
        Zero,
        Article,
        OneDigit,
        TwoDigits,
        ThreeDigits,
        Teen,
        Tens,
        TensOfPair,
        PairAndOh,
        Hundreds,
        HundredsAnd,
        Thousands,
        ThousandsAndDigit,
        Whole,
    };
    static constexpr std::size_t shapeCount = static_cast<std::size_t>(Shape::Whole) + 1;

    /// Every word that is part of some number.
    [[nodiscard]] static std::span<const QLatin1StringView> words();

    /// The number with one more word; none when no number goes on like that.
    [[nodiscard]] std::optional<SpokenNumber> followedBy(QStringView word) const;

    [[nodiscard]] Shape shape() const { return shape_; }
    /// Whether it may end here.
    [[nodiscard]] bool isWhole() const;
    [[nodiscard]] int value() const { return base_ + group_; }

    /// The usual ways of saying a number, commonest first; none for numbers that are too large.
    [[nodiscard]] static QList<QStringList> waysToSay(int number);

private:
    struct Word;

    [[nodiscard]] std::optional<SpokenNumber> next(const Word& word) const;
    [[nodiscard]] SpokenNumber add(int amount, Shape shape) const;
    [[nodiscard]] SpokenNumber append(int digits, int scale, Shape shape) const;

    Shape shape_ = Shape::Nothing;
    /// What is fixed, as the thousands in "two thousand three", and what a "hundred" would still multiply.
    int base_ = 0;
    int group_ = 0;
};

} // namespace brivandel

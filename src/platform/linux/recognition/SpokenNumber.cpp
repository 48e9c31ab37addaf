#include "platform/linux/recognition/SpokenNumber.h"

#include <algorithm>

namespace brivandel {

namespace {

enum class Kind : std::uint8_t { Zero, Digit, Teen, Tens, Hundred, Thousand, And, Article };

} // namespace

struct SpokenNumber::Word {
    Kind kind;
    int amount;
};

namespace {

constexpr std::array<QLatin1StringView, 33> wordTexts = {
    QLatin1StringView("zero"),     QLatin1StringView("one"),      QLatin1StringView("two"),
    QLatin1StringView("three"),    QLatin1StringView("four"),     QLatin1StringView("five"),
    QLatin1StringView("six"),      QLatin1StringView("seven"),    QLatin1StringView("eight"),
    QLatin1StringView("nine"),     QLatin1StringView("ten"),      QLatin1StringView("eleven"),
    QLatin1StringView("twelve"),   QLatin1StringView("thirteen"), QLatin1StringView("fourteen"),
    QLatin1StringView("fifteen"),  QLatin1StringView("sixteen"),  QLatin1StringView("seventeen"),
    QLatin1StringView("eighteen"), QLatin1StringView("nineteen"), QLatin1StringView("twenty"),
    QLatin1StringView("thirty"),   QLatin1StringView("forty"),    QLatin1StringView("fifty"),
    QLatin1StringView("sixty"),    QLatin1StringView("seventy"),  QLatin1StringView("eighty"),
    QLatin1StringView("ninety"),   QLatin1StringView("hundred"),  QLatin1StringView("thousand"),
    QLatin1StringView("and"),      QLatin1StringView("a"),        QLatin1StringView("oh"),
};
constexpr int firstTens = 20;
constexpr int hundredIndex = 28;
constexpr int ohIndex = 32;

QString textOf(int index) {
    return wordTexts[static_cast<std::size_t>(index)];
}

/// 1 to 99.
QStringList sayBelowHundred(int number) {
    if (number < firstTens) {
        return {textOf(number)};
    }
    QStringList words = {textOf(firstTens + number / 10 - 2)};
    if (number % 10 != 0) {
        words += textOf(number % 10);
    }
    return words;
}

QStringList sayInFull(int number, bool withAnd) {
    QStringList words;
    if (number >= 1000) {
        words << textOf(number / 1000) << QStringLiteral("thousand");
        number %= 1000;
    }
    if (number >= 100) {
        words << textOf(number / 100) << QStringLiteral("hundred");
        number %= 100;
    }
    if (number > 0) {
        if (withAnd && !words.isEmpty()) {
            words << QStringLiteral("and");
        }
        words << sayBelowHundred(number);
    }
    return words;
}

QStringList sayInPairs(int number) {
    QStringList words = sayBelowHundred(number / 100);
    if (number % 100 < 10) {
        words << QStringLiteral("oh");
    }
    return words << sayBelowHundred(number % 100);
}

QStringList sayDigits(int number, const QString& zero) {
    QStringList words;
    for (const QChar digit : QString::number(number)) {
        words << (digit == u'0' ? zero : textOf(digit.digitValue()));
    }
    return words;
}

} // namespace

std::span<const QLatin1StringView> SpokenNumber::words() {
    return wordTexts;
}

std::optional<SpokenNumber> SpokenNumber::followedBy(QStringView word) const {
    const auto* const found =
        std::ranges::find_if(wordTexts, [word](QLatin1StringView text) { return word.compare(text) == 0; });
    if (found == wordTexts.end()) {
        return std::nullopt;
    }
    const auto index = static_cast<int>(found - wordTexts.begin());
    if (index == 0 || index == ohIndex) {
        // "oh" is a digit among digits and never a number of its own.
        return index == ohIndex && shape_ == Shape::Nothing ? std::nullopt : next({Kind::Zero, 0});
    }
    if (index < 10) {
        return next({Kind::Digit, index});
    }
    if (index < firstTens) {
        return next({Kind::Teen, index});
    }
    if (index < hundredIndex) {
        return next({Kind::Tens, (index - firstTens + 2) * 10});
    }
    constexpr std::array rest = {Kind::Hundred, Kind::Thousand, Kind::And, Kind::Article};
    return next({rest[static_cast<std::size_t>(index - hundredIndex)], 0});
}

SpokenNumber SpokenNumber::add(int amount, Shape shape) const {
    SpokenNumber result = *this;
    result.base_ += result.group_;
    result.group_ = amount;
    result.shape_ = shape;
    return result;
}

SpokenNumber SpokenNumber::append(int digits, int scale, Shape shape) const {
    SpokenNumber result = *this;
    result.group_ = result.group_ * scale + digits;
    result.shape_ = shape;
    return result;
}

std::optional<SpokenNumber> SpokenNumber::next(const Word& word) const {
    const auto [kind, amount] = word;
    switch (shape_) {
    case Shape::Nothing:
        switch (kind) {
        case Kind::Zero:
            return add(0, Shape::Zero);
        case Kind::Digit:
            return add(amount, Shape::OneDigit);
        case Kind::Teen:
            return add(amount, Shape::Teen);
        case Kind::Tens:
            return add(amount, Shape::Tens);
        case Kind::Article:
            return add(1, Shape::Article);
        default:
            return std::nullopt;
        }
    case Shape::Article:
    case Shape::OneDigit:
        if (kind == Kind::Hundred) {
            return append(0, 100, Shape::Hundreds);
        }
        if (kind == Kind::Thousand) {
            return append(0, 1000, Shape::Thousands);
        }
        if (shape_ == Shape::Article) {
            return std::nullopt;
        }
        switch (kind) {
        case Kind::Zero:
        case Kind::Digit:
            return append(amount, 10, Shape::TwoDigits);
        case Kind::Teen:
            return append(amount, 100, Shape::Whole);
        case Kind::Tens:
            return append(amount, 100, Shape::TensOfPair);
        default:
            return std::nullopt;
        }
    case Shape::TwoDigits:
    case Shape::ThreeDigits:
        if (kind == Kind::Zero || kind == Kind::Digit) {
            return append(amount, 10, shape_ == Shape::TwoDigits ? Shape::ThreeDigits : Shape::Whole);
        }
        return std::nullopt;
    case Shape::Teen:
    case Shape::Tens:
        switch (kind) {
        case Kind::Digit:
            return shape_ == Shape::Tens ? std::optional(append(amount, 1, Shape::Whole)) : std::nullopt;
        case Kind::Zero:
            return append(0, 100, Shape::PairAndOh);
        case Kind::Teen:
            return append(amount, 100, Shape::Whole);
        case Kind::Tens:
            return append(amount, 100, Shape::TensOfPair);
        case Kind::Hundred:
            return shape_ == Shape::Teen ? std::optional(append(0, 100, Shape::Hundreds)) : std::nullopt;
        default:
            return std::nullopt;
        }
    case Shape::Hundreds:
    case Shape::HundredsAnd:
    case Shape::Thousands:
        switch (kind) {
        case Kind::And:
            return shape_ == Shape::HundredsAnd ? std::nullopt : std::optional(add(0, Shape::HundredsAnd));
        case Kind::Digit:
            return add(amount, shape_ == Shape::Thousands ? Shape::ThousandsAndDigit : Shape::Whole);
        case Kind::Teen:
            return add(amount, Shape::Whole);
        case Kind::Tens:
            return add(amount, Shape::TensOfPair);
        default:
            return std::nullopt;
        }
    case Shape::ThousandsAndDigit:
        return kind == Kind::Hundred ? std::optional(append(0, 100, Shape::Hundreds)) : std::nullopt;
    case Shape::TensOfPair:
    case Shape::PairAndOh:
        return kind == Kind::Digit ? std::optional(append(amount, 1, Shape::Whole)) : std::nullopt;
    case Shape::Zero:
    case Shape::Whole:
        return std::nullopt;
    }
    return std::nullopt;
}

bool SpokenNumber::isWhole() const {
    return shape_ != Shape::Nothing && shape_ != Shape::Article && shape_ != Shape::PairAndOh &&
           shape_ != Shape::HundredsAnd;
}

QList<QStringList> SpokenNumber::waysToSay(int number) {
    if (number < 0 || number > 9999) {
        return {};
    }
    if (number == 0) {
        return {{textOf(0)}};
    }
    QList<QStringList> ways = {sayInFull(number, false)};
    const auto add = [&ways](const QStringList& words) {
        if (!ways.contains(words)) {
            ways << words;
        }
    };
    add(sayInFull(number, true));
    // Not "twenty one oh one": every number like "twenty one" would have to wait whether it goes on.
    const int firstPair = number / 100;
    if (firstPair > 0 && (firstPair <= firstTens || firstPair % 10 == 0) && number % 100 != 0) {
        add(sayInPairs(number));
    }
    if (number >= 10) {
        add(sayDigits(number, QStringLiteral("oh")));
        add(sayDigits(number, textOf(0)));
    }
    return ways;
}

} // namespace brivandel

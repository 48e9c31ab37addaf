#include "engine/BarNumberParser.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <unicode/regex.h>

#include <array>
#include <charconv>
#include <limits>
#include <utility>

namespace brivandel {

namespace {

using NumberWord = std::pair<QStringView, std::int64_t>;

constexpr std::array<NumberWord, 20> unitWords = {{
    {u"zero", 0},     {u"one", 1},      {u"two", 2},        {u"three", 3},     {u"four", 4},
    {u"five", 5},     {u"six", 6},      {u"seven", 7},      {u"eight", 8},     {u"nine", 9},
    {u"ten", 10},     {u"eleven", 11},  {u"twelve", 12},    {u"thirteen", 13}, {u"fourteen", 14},
    {u"fifteen", 15}, {u"sixteen", 16}, {u"seventeen", 17}, {u"eighteen", 18}, {u"nineteen", 19},
}};

constexpr std::array<NumberWord, 8> tensWords = {{
    {u"twenty", 20},
    {u"thirty", 30},
    {u"forty", 40},
    {u"fifty", 50},
    {u"sixty", 60},
    {u"seventy", 70},
    {u"eighty", 80},
    {u"ninety", 90},
}};

template <std::size_t Size>
std::optional<std::int64_t> look(QStringView word, const std::array<NumberWord, Size>& words) {
    for (const auto& [text, value] : words) {
        if (text == word) {
            return value;
        }
    }
    return std::nullopt;
}

// Only the digits 0 to 9 make a number here, although the expression's \d takes the digits of every script.
std::optional<std::int64_t> decimalNumber(QStringView digits) {
    const QByteArray text = digits.toUtf8();
    std::int64_t value = 0;
    const char* const end = text.cend();
    const auto [stop, error] = std::from_chars(text.cbegin(), end, value);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

// A compiled expression with the matcher that is kept for it.
class Expression {
public:
    explicit Expression(const char16_t* pattern) : matcher_(icu::UnicodeString(pattern), 0, status_) {}

    /// The first capture group of the first match.
    std::optional<QStringView> firstGroup(QStringView text, const icu::UnicodeString& aliasOfText) {
        UErrorCode status = status_;
        matcher_.reset(aliasOfText);
        if (U_FAILURE(status) || !matcher_.find(status) || U_FAILURE(status)) {
            return std::nullopt;
        }
        const auto start = matcher_.start(1, status);
        const auto end = matcher_.end(1, status);
        return text.sliced(start, end - start);
    }

private:
    UErrorCode status_ = U_ZERO_ERROR; // stands before the matcher, which reports into it
    icu::RegexMatcher matcher_;
};

} // namespace

struct BarNumberParser::Expressions {
    Expression digits{uR"(\bbar\s+(\d+)\b)"};
    Expression words{uR"(\bbar\s+([a-z]+(?:\s+[a-z]+)?)\b)"};
};

BarNumberParser::BarNumberParser() : expressions_(std::make_unique<Expressions>()) {}

BarNumberParser::~BarNumberParser() = default;

std::optional<std::int64_t> BarNumberParser::extractBarNumber(QStringView text) const {
    // Both expressions hold these letters, and nearly no transcript does.
    if (!text.contains(u"bar") || text.size() > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    constexpr bool isTerminated = false;
    const icu::UnicodeString alias(isTerminated, text.utf16(), static_cast<std::int32_t>(text.size()));
    if (const auto digits = expressions_->digits.firstGroup(text, alias)) {
        if (const auto number = decimalNumber(*digits)) {
            return number;
        }
    }
    if (const auto words = expressions_->words.firstGroup(text, alias)) {
        return wordToNumber(*words);
    }
    return std::nullopt;
}

std::optional<std::int64_t> wordToNumber(QStringView words) {
    const QString lowered = words.toString().toLower();
    const QStringList pieces = lowered.split(u' ', Qt::SkipEmptyParts);
    if (pieces.size() == 1) {
        const auto unit = look(pieces[0], unitWords);
        return unit ? unit : look(pieces[0], tensWords);
    }
    if (pieces.size() == 2) {
        const auto tens = look(pieces[0], tensWords);
        const auto unit = look(pieces[1], unitWords);
        if (tens && unit) {
            return *tens + *unit;
        }
    }
    return std::nullopt;
}

} // namespace brivandel

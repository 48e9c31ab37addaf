#include "platform/linux/recognition/SpokenForms.h"

#include "platform/linux/recognition/SpokenNumber.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace brivandel {

namespace {

constexpr qsizetype mostForms = 8;
constexpr char32_t apostrophe = U'\'';

QString nameOfSymbol(char32_t symbol) {
    switch (symbol) {
    case U'&':
        return QStringLiteral("and");
    case U'+':
        return QStringLiteral("plus");
    case U'%':
        return QStringLiteral("percent");
    case U'@':
        return QStringLiteral("at");
    case U'#':
        return QStringLiteral("number");
    default:
        return {};
    }
}

/// A run of digits: as a number if it is one, else digit by digit, since nobody says "ten million" for a
/// name.
QList<QStringList> waysToSay(std::u32string_view digits) {
    int number = 0;
    QStringList words;
    for (const char32_t digit : digits) {
        const int value = QChar::digitValue(digit);
        number = number < 10000 ? number * 10 + value : number;
        words << SpokenNumber::waysToSay(value).front();
    }
    const bool isNumber = digits.size() == 1 || QChar::digitValue(digits.front()) != 0;
    const QList<QStringList> ways = isNumber ? SpokenNumber::waysToSay(number) : QList<QStringList>();
    return ways.isEmpty() ? QList<QStringList>{words} : ways;
}

/// Without apostrophes around it: those are quotation marks.
QString wordOf(std::u32string_view letters) {
    const auto first = letters.find_first_not_of(apostrophe);
    if (first == std::u32string_view::npos) {
        return {};
    }
    const std::u32string_view word = letters.substr(first, letters.find_last_not_of(apostrophe) + 1 - first);
    return QString::fromUcs4(word.data(), static_cast<qsizetype>(word.size()));
}

void append(QList<QStringList>& forms, const QList<QStringList>& ways) {
    QList<QStringList> longer;
    for (const QStringList& way : ways) {
        for (const QStringList& form : forms) {
            if (longer.size() < mostForms) {
                longer << form + way;
            }
        }
    }
    forms = longer;
}

enum class Class : std::uint8_t { Separator, Letter, Digit };

Class classOf(char32_t character) {
    if (QChar::isDigit(character)) {
        return Class::Digit;
    }
    // What letters of other scripts sound like is for others to say.
    return QChar::isLetter(character) || QChar::isMark(character) || character == apostrophe
               ? Class::Letter
               : Class::Separator;
}

} // namespace

QList<QStringList> spokenForms(const QString& phrase) {
    QString text = phrase.normalized(QString::NormalizationForm_KC).toLower();
    text.replace(u'\u2019', u'\'').replace(u'\u2018', u'\'');

    const std::u32string characters = text.toStdU32String();
    QList<QStringList> forms = {{}};
    for (auto at = characters.begin(); at != characters.end();) {
        const Class kind = classOf(*at);
        if (kind == Class::Separator) {
            if (const QString name = nameOfSymbol(*at); !name.isEmpty()) {
                append(forms, {{name}});
            }
            ++at;
            continue;
        }
        const auto end =
            std::find_if(at, characters.end(), [kind](char32_t c) { return classOf(c) != kind; });
        if (kind == Class::Digit) {
            append(forms, waysToSay({at, end}));
        } else if (const QString word = wordOf({at, end}); !word.isEmpty()) {
            append(forms, {{word}});
        }
        at = end;
    }
    return forms.front().isEmpty() ? QList<QStringList>() : forms;
}

} // namespace brivandel

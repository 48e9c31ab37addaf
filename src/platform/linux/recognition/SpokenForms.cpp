#include "platform/linux/recognition/SpokenForms.h"

#include "platform/linux/recognition/SpokenNumber.h"

namespace brivandel {

namespace {

constexpr qsizetype mostForms = 8;
constexpr char16_t apostrophe = u'\'';

QString nameOfSymbol(QChar symbol) {
    switch (symbol.unicode()) {
    case u'&': return QStringLiteral("and");
    case u'+': return QStringLiteral("plus");
    case u'%': return QStringLiteral("percent");
    case u'@': return QStringLiteral("at");
    case u'#': return QStringLiteral("number");
    default: return {};
    }
}

/// A run of digits: as a number if it is one, else digit by digit, since nobody says "ten million" for a name.
QList<QStringList> waysToSay(const QString& digits) {
    if (digits.size() <= 4 && (digits.size() == 1 || digits.front() != u'0')) {
        return SpokenNumber::waysToSay(digits.toInt());
    }
    QStringList words;
    for (const QChar digit : digits) {
        words << SpokenNumber::waysToSay(digit.digitValue()).front();
    }
    return {words};
}

QString withoutOuterApostrophes(QString word) {
    while (word.startsWith(apostrophe)) {
        word.remove(0, 1);
    }
    while (word.endsWith(apostrophe)) {
        word.chop(1);
    }
    return word;
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

Class classOf(const QString& text, qsizetype at) {
    const QChar c = text[at];
    if (c.isDigit()) {
        return Class::Digit;
    }
    // Letters beyond the first plane come as two surrogates; what they sound like is for others to say.
    return c.isLetter() || c.isMark() || c.isSurrogate() || c == apostrophe ? Class::Letter : Class::Separator;
}

} // namespace

QList<QStringList> spokenForms(const QString& phrase) {
    QString text = phrase.normalized(QString::NormalizationForm_KC).toLower();
    text.replace(u'\u2019', apostrophe).replace(u'\u2018', apostrophe);

    QList<QStringList> forms = {{}};
    for (qsizetype at = 0; at < text.size();) {
        const Class kind = classOf(text, at);
        qsizetype end = at + 1;
        while (end < text.size() && kind != Class::Separator && classOf(text, end) == kind) {
            ++end;
        }
        const QString run = text.mid(at, end - at);
        at = end;
        if (kind == Class::Digit) {
            append(forms, waysToSay(run));
            continue;
        }
        const QString word = kind == Class::Letter ? withoutOuterApostrophes(run) : nameOfSymbol(run.front());
        if (!word.isEmpty()) {
            append(forms, {{word}});
        }
    }
    return forms.front().isEmpty() ? QList<QStringList>() : forms;
}

} // namespace brivandel

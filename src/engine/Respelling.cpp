#include "engine/Respelling.h"

#include <QHash>
#include <QStringList>

namespace brivandel {

namespace {

// As newspapers and dictionaries for the general reader respell American English.
const QHash<QStringView, QStringView>& vowels() {
    static const QHash<QStringView, QStringView> spelling = {
        {u"AA", u"ah"},  {u"AE", u"a"},  {u"AH", u"uh"}, {u"AO", u"aw"}, {u"AW", u"ow"},
        {u"AY", u"eye"}, {u"EH", u"eh"}, {u"ER", u"er"}, {u"EY", u"ay"}, {u"IH", u"ih"},
        {u"IY", u"ee"},  {u"OW", u"oh"}, {u"OY", u"oy"}, {u"UH", u"uu"}, {u"UW", u"oo"},
    };
    return spelling;
}

const QHash<QStringView, QStringView>& consonants() {
    static const QHash<QStringView, QStringView> spelling = {
        {u"B", u"b"},   {u"CH", u"ch"}, {u"D", u"d"}, {u"DH", u"th"}, {u"F", u"f"},   {u"G", u"g"},
        {u"HH", u"h"},  {u"JH", u"j"},  {u"K", u"k"}, {u"L", u"l"},   {u"M", u"m"},   {u"N", u"n"},
        {u"NG", u"ng"}, {u"P", u"p"},   {u"R", u"r"}, {u"S", u"s"},   {u"SH", u"sh"}, {u"T", u"t"},
        {u"TH", u"th"}, {u"V", u"v"},   {u"W", u"w"}, {u"Y", u"y"},   {u"Z", u"z"},   {u"ZH", u"zh"},
    };
    return spelling;
}

} // namespace

QString respelled(QStringView phones) {
    QStringList syllables;
    QStringList waiting; // consonants since the last vowel
    for (const QStringView phone : phones.split(u' ', Qt::SkipEmptyParts)) {
        if (const auto consonant = consonants().constFind(phone); consonant != consonants().cend()) {
            waiting += consonant->toString();
            continue;
        }
        const auto vowel = vowels().constFind(phone);
        if (vowel == vowels().cend()) {
            continue;
        }
        // One consonant begins the next syllable, those before it end the last: right more often than not.
        QString onset;
        if (syllables.isEmpty()) {
            onset = waiting.join(QString());
        } else if (!waiting.isEmpty()) {
            onset = waiting.takeLast();
            syllables.last() += waiting.join(QString());
        }
        waiting.clear();
        syllables += onset + vowel->toString();
    }
    if (syllables.isEmpty()) {
        return waiting.join(QString());
    }
    syllables.last() += waiting.join(QString());
    return syllables.join(u'-');
}

} // namespace brivandel

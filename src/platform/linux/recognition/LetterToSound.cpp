#include "platform/linux/recognition/LetterToSound.h"

#include <QStringList>

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <array>
#include <mutex>

namespace brivandel {

namespace {

struct Correspondence {
    QStringView ipa;
    QLatin1StringView phones;
};

// Longer sequences stand before their beginnings: the first that fits is taken.
constexpr std::array<Correspondence, 68> correspondences = {{
    {u"tʃ", QLatin1StringView("CH")},     {u"dʒ", QLatin1StringView("JH")},
    {u"aɪɚ", QLatin1StringView("AY ER")}, {u"aɪ", QLatin1StringView("AY")},
    {u"aʊ", QLatin1StringView("AW")},     {u"eɪ", QLatin1StringView("EY")},
    {u"oʊ", QLatin1StringView("OW")},     {u"əʊ", QLatin1StringView("OW")},
    {u"ɔɪ", QLatin1StringView("OY")},     {u"ɔːɪ", QLatin1StringView("OY")},
    {u"oːɹ", QLatin1StringView("AO R")},  {u"oː", QLatin1StringView("AO")},
    {u"ɔː", QLatin1StringView("AO")},     {u"ɔn", QLatin1StringView("AA N")},
    {u"ɑː", QLatin1StringView("AA")},     {u"aː", QLatin1StringView("AA")},
    {u"iː", QLatin1StringView("IY")},     {u"uː", QLatin1StringView("UW")},
    {u"ɜː", QLatin1StringView("ER")},     {u"n̩", QLatin1StringView("AH N")},
    {u"m̩", QLatin1StringView("AH M")},    {u"l̩", QLatin1StringView("AH L")},
    {u"ɔ", QLatin1StringView("AO")},      {u"ɑ", QLatin1StringView("AA")},
    {u"ɒ", QLatin1StringView("AA")},      {u"a", QLatin1StringView("AE")},
    {u"æ", QLatin1StringView("AE")},      {u"ɛ", QLatin1StringView("EH")},
    {u"e", QLatin1StringView("EH")},      {u"ɪ", QLatin1StringView("IH")},
    {u"ᵻ", QLatin1StringView("IH")},      {u"ɨ", QLatin1StringView("IH")},
    {u"i", QLatin1StringView("IY")},      {u"ʊ", QLatin1StringView("UH")},
    {u"u", QLatin1StringView("UW")},      {u"y", QLatin1StringView("UW")},
    {u"o", QLatin1StringView("OW")},      {u"ʌ", QLatin1StringView("AH")},
    {u"ɐ", QLatin1StringView("AH")},      {u"ə", QLatin1StringView("AH")},
    {u"ɚ", QLatin1StringView("ER")},      {u"ɜ", QLatin1StringView("ER")},
    {u"p", QLatin1StringView("P")},       {u"b", QLatin1StringView("B")},
    {u"t", QLatin1StringView("T")},       {u"ɾ", QLatin1StringView("T")},
    {u"ʔ", QLatin1StringView("T")},       {u"d", QLatin1StringView("D")},
    {u"k", QLatin1StringView("K")},       {u"x", QLatin1StringView("K")},
    {u"ɡ", QLatin1StringView("G")},       {u"g", QLatin1StringView("G")},
    {u"f", QLatin1StringView("F")},       {u"v", QLatin1StringView("V")},
    {u"θ", QLatin1StringView("TH")},      {u"ð", QLatin1StringView("DH")},
    {u"s", QLatin1StringView("S")},       {u"z", QLatin1StringView("Z")},
    {u"ʃ", QLatin1StringView("SH")},      {u"ʒ", QLatin1StringView("ZH")},
    {u"h", QLatin1StringView("HH")},      {u"m", QLatin1StringView("M")},
    {u"n", QLatin1StringView("N")},       {u"ŋ", QLatin1StringView("NG")},
    {u"l", QLatin1StringView("L")},       {u"ɹ", QLatin1StringView("R")},
    {u"w", QLatin1StringView("W")},       {u"j", QLatin1StringView("Y")},
}};

/// The synthesiser's library keeps its state in the process, not in a handle: it is started once, and used by
/// one thread at a time.
class Synthesiser {
public:
    Synthesiser()
        : started_(espeak_Initialize(AUDIO_OUTPUT_RETRIEVAL, 0, nullptr, espeakINITIALIZE_DONT_EXIT) >= 0 &&
                   espeak_SetVoiceByName("en-us") == EE_OK) {}
    ~Synthesiser() { espeak_Terminate(); }
    Q_DISABLE_COPY_MOVE(Synthesiser)

    [[nodiscard]] QString ipa(const QString& word) const {
        if (!started_) {
            return {};
        }
        const QByteArray utf8 = word.toUtf8();
        const void* rest = utf8.constData();
        QString result;
        while (rest != nullptr) {
            result += QString::fromUtf8(espeak_TextToPhonemes(&rest, espeakCHARS_UTF8, espeakPHONEMES_IPA));
        }
        return result;
    }

private:
    bool started_;
};

bool isLatin(const QString& word) {
    return !word.isEmpty() && std::ranges::all_of(word, [](QChar c) {
        return c.script() == QChar::Script_Latin || c == u'\'' || c.isMark();
    });
}

} // namespace

QString phonesByRule(const QString& word) {
    // Other letters are read by their names ("Chinese letter"), which nobody would say.
    if (!isLatin(word)) {
        return {};
    }
    static std::mutex oneAtATime;
    const std::lock_guard lock(oneAtATime);
    static const Synthesiser synthesiser;
    return phonesFromIpa(synthesiser.ipa(word));
}

QString phonesFromIpa(QStringView ipa) {
    QStringList phones;
    while (!ipa.isEmpty()) {
        if (ipa.front() == u'(') {
            // "(fr)": what follows is read as in that language.
            const qsizetype close = ipa.indexOf(u')');
            ipa = close < 0 ? QStringView() : ipa.mid(close + 1);
            continue;
        }
        const auto* const found = std::ranges::find_if(
            correspondences, [ipa](const Correspondence& c) { return ipa.startsWith(c.ipa); });
        if (found == correspondences.end()) {
            // Marks of stress and length, and sounds that English has not.
            ipa = ipa.mid(1);
            continue;
        }
        phones << found->phones;
        ipa = ipa.mid(found->ipa.size());
    }
    return phones.join(u' ');
}

} // namespace brivandel

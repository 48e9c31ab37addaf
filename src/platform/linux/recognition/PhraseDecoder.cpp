#include "platform/linux/recognition/PhraseDecoder.h"

#include "platform/linux/recognition/Evidence.h"
#include "platform/linux/recognition/LanguageModel.h"

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

// Words begin a little before the gate is sure of them.
constexpr AudioTime lead = std::chrono::milliseconds(150);

// The gate waits for so much of an utterance, or for the first silence in it, to know how loud the voice is
// and how the room colours it. Then it catches up at once.
constexpr AudioTime opening = std::chrono::milliseconds(800);

// Of an utterance with music before and after the words, only the words and so much around them are gone over
// once more: the music would be taken for words, and colour what is known of the voice. Less than the saving
// is not worth the work.
constexpr AudioTime aroundWords = std::chrono::milliseconds(250);
constexpr AudioTime leastSaving = std::chrono::milliseconds(400);

// A wake phrase that begins within this time begins the utterance: before it is what the utterance reaches
// back, and a breath.
constexpr AudioTime latestBeginning = std::chrono::milliseconds(600);

// Below this nobody meant a phrase: music would fill the log.
constexpr double farthestMiss = -40;

const QString& searchFor(Expecting expecting) {
    static const QString wakePhrase = QStringLiteral("wake phrase");
    static const QString command = QStringLiteral("command");
    return expecting == Expecting::WakePhrase ? wakePhrase : command;
}

/// The sound of the words and a little around them.
std::span<const std::int16_t> around(std::span<const HeardSegment> phrase,
                                     std::span<const std::int16_t> sound) {
    std::size_t first = sound.size();
    std::size_t last = 0;
    for (const HeardSegment& segment : phrase) {
        if (!segment.word.isEmpty()) {
            const AudioTime begin = segment.firstFrame * AudioTime(frameLength);
            const AudioTime end = begin + segment.frameCount * AudioTime(frameLength);
            first = std::min(first, sampleCount(std::max(begin - aroundWords, AudioTime(0))));
            last = std::max(last, std::min(sampleCount(end + aroundWords), sound.size()));
        }
    }
    const bool isNarrower = first < last && last - first + sampleCount(leastSaving) <= sound.size();
    return isNarrower ? sound.subspan(first, last - first) : sound;
}

Conclusion accepted(const Reading& reading, const QString& reason) {
    return {.reading = reading,
            .verdict = UtteranceVerdict{.text = reading.text, .isAccepted = true, .reason = reason}};
}

} // namespace

std::unique_ptr<PhraseDecoder> PhraseDecoder::load(const ModelFiles& files) {
    if (files.problem()) {
        return nullptr;
    }
    std::unique_ptr<PhraseDecoder> result(new PhraseDecoder);
    result->gate_ = Decoder::load(files, Decoder::Scoring::AsNeeded);
    result->grammar_ = Decoder::load(files, Decoder::Scoring::InFull);
    result->reference_ = Decoder::load(files, Decoder::Scoring::InFull);
    return result->gate_ && result->grammar_ && result->reference_ ? std::move(result) : nullptr;
}

bool PhraseDecoder::setVocabulary(std::shared_ptr<const CompiledVocabulary> vocabulary) {
    const PhraseGraph& graph = vocabulary->graph;
    Pronunciations phraseWords;
    for (const PhraseGraph::Node& node : graph.nodes()) {
        for (const PhraseGraph::Edge& edge : node.edges) {
            phraseWords.insert(edge.word, vocabulary->pronunciations.value(edge.word));
        }
    }
    bool accepted = gate_->setDictionary(vocabulary->pronunciations) &&
                    reference_->setDictionary(vocabulary->pronunciations) &&
                    grammar_->setDictionary(phraseWords);
    for (const Expecting expecting : {Expecting::WakePhrase, Expecting::Command}) {
        const QString& search = searchFor(expecting);
        const QByteArray model = languageModel(graph, expecting);
        accepted = accepted && gate_->addLanguageModel(search, model) &&
                   reference_->addLanguageModel(search, model) &&
                   grammar_->addGrammar(search, graph, expecting);
    }
    vocabulary_ = accepted ? std::move(vocabulary) : nullptr;
    return accepted;
}

void PhraseDecoder::begin(Expecting expecting) {
    expecting_ = expecting;
    utterance_.clear();
    askedFor_.clear();
    answer_.reset();
    gateHasBegun_ = false;
}

void PhraseDecoder::process(std::span<const std::int16_t> samples) {
    utterance_.insert(utterance_.end(), samples.begin(), samples.end());
    if (gateHasBegun_) {
        gate_->process(samples);
    } else if (utterance_.size() >= sampleCount(opening)) {
        beginGate();
    }
}

void PhraseDecoder::beginGate() {
    gateHasBegun_ = true;
    const std::span<const std::int16_t> sound(utterance_);
    gate_->begin(searchFor(expecting_), sound.first(std::min(sampleCount(opening), sound.size())));
    gate_->process(sound);
}

std::vector<HeardSegment> PhraseDecoder::heardByGate() {
    if (!gateHasBegun_) {
        beginGate();
    }
    return gate_->heard();
}

PhraseDecoder::Addressed PhraseDecoder::addressed(const std::vector<HeardSegment>& heard) const {
    const QStringList words = wordsOf(heard);
    const qsizetype wake = vocabulary_->graph.lastWakePhrase(words);
    if (wake < 0) {
        return expecting_ == Expecting::Command ? Addressed{words} : Addressed{};
    }
    qsizetype before = wake;
    for (const HeardSegment& segment : heard) {
        if (!segment.word.isEmpty() && before-- == 0) {
            return {words.mid(wake),
                    std::max(segment.firstFrame * AudioTime(frameLength) - lead, AudioTime(0))};
        }
    }
    return {};
}

std::span<const std::int16_t> PhraseDecoder::soundSince(AudioTime begin) const {
    return std::span(utterance_).subspan(std::min(sampleCount(begin), utterance_.size()));
}

std::vector<HeardSegment> PhraseDecoder::decodeByGrammar(const QStringList& saidWords,
                                                         std::span<const std::int16_t> sound) {
    const bool hasWakePhrase = vocabulary_->graph.lastWakePhrase(saidWords) == 0;
    grammar_->decodeWhole(searchFor(hasWakePhrase ? Expecting::WakePhrase : expecting_), sound);
    return grammar_->heard();
}

std::optional<Reading> PhraseDecoder::interim() {
    const Addressed said = addressed(heardByGate());
    if (said.words.isEmpty() || said.words == askedFor_) {
        return said.words.isEmpty() ? std::nullopt : answer_;
    }
    askedFor_ = said.words;
    answer_ = vocabulary_->graph.read(said.words);
    if (answer_ && !(answer_->isWhole && isHeardByGrammar(said))) {
        answer_.reset();
    }
    return answer_;
}

bool PhraseDecoder::isPromising() const {
    return gateHasBegun_ && !addressed(gate_->heard()).words.isEmpty();
}

Conclusion PhraseDecoder::conclude() {
    const Addressed said = addressed(heardByGate());
    if (answer_ && said.words == askedFor_) {
        return accepted(*answer_, QStringLiteral("both decoders heard it"));
    }
    if (isBrokenOff(said)) {
        return {.reading = wakePhraseOf(said.words),
                .isUnfinished = true,
                .verdict = UtteranceVerdict{.text = said.words.join(u' '),
                                            .reason = QStringLiteral("more words are needed")}};
    }
    std::span<const std::int16_t> sound = soundSince(said.begin);
    auto phrase = decodeByGrammar(said.words, sound);
    if (isOutOfQuestion(phrase)) {
        return {};
    }
    // A command alone is short, and what is beside it says most about it.
    if (const auto narrower = around(phrase, sound);
        narrower.size() < sound.size() && vocabulary_->graph.wakePhraseLength(wordsOf(phrase)) > 0) {
        sound = narrower;
        phrase = decodeByGrammar(said.words, sound);
    }
    return judge(phrase, sound);
}

Conclusion PhraseDecoder::judge(const std::vector<HeardSegment>& phrase,
                                std::span<const std::int16_t> sound) {
    const QStringList words = wordsOf(phrase);
    const std::optional<Reading> reading = vocabulary_->graph.read(words);
    if (!reading || !reading->isWhole || isOutOfQuestion(phrase)) {
        return {};
    }
    reference_->decodeWhole(searchFor(expecting_), sound);
    const std::vector<HeardSegment> reference = reference_->heard();
    Evidence evidence = Evidence::weigh(phrase, reference,
                                        {.wakeWordCount = vocabulary_->graph.wakePhraseLength(words),
                                         .mayGoOn = reading->mayGoOn,
                                         .mayLackFirstWord = mayLackFirstWord(phrase, sound)});
    if (evidence.provesCommand()) {
        if (const auto other = otherCommand(*reading, addressed(reference).words)) {
            return accepted(*other, QStringLiteral("it was heard among all words"));
        }
        evidence.distinction = distinction(sound, phrase);
    }
    const Evidence::Weakest weakest = evidence.weakest();
    Conclusion conclusion;
    if (weakest.margin >= farthestMiss) {
        conclusion.verdict = UtteranceVerdict{.text = reading->text,
                                              .isAccepted = evidence.provesCommand(),
                                              .score = weakest.margin,
                                              .reason = weakest.what};
    }
    if (evidence.provesCommand()) {
        conclusion.reading = reading;
    } else if (evidence.provesWakePhrase()) {
        conclusion.reading = wakePhraseOf(words);
    }
    return conclusion;
}

bool PhraseDecoder::mayLackFirstWord(const std::vector<HeardSegment>& phrase,
                                     std::span<const std::int16_t> sound) const {
    constexpr qsizetype shortPhoneCount = 2; // "hey", "hi", "oh"
    const auto first =
        std::ranges::find_if(phrase, [](const auto& segment) { return !segment.word.isEmpty(); });
    if (first == phrase.end()) {
        return false;
    }
    const auto soundBegin = AudioTime(static_cast<std::int64_t>(sound.data() - utterance_.data()));
    const QStringList spoken = vocabulary_->pronunciations.value(first->word);
    return soundBegin + first->firstFrame * AudioTime(frameLength) <= latestBeginning &&
           std::ranges::any_of(spoken,
                               [](const QString& phones) { return phones.count(u' ') < shortPhoneCount; });
}

std::optional<Reading> PhraseDecoder::otherCommand(const Reading& reading, const QStringList& heard) const {
    auto other = vocabulary_->graph.read(heard);
    if (!other || !other->isWhole || !other->hasWakePhrase || !other->hasCommand ||
        reading.text.startsWith(other->text)) {
        return std::nullopt;
    }
    return other;
}

bool PhraseDecoder::isHeardByGrammar(const Addressed& said) {
    const auto phrase = decodeByGrammar(said.words, soundSince(said.begin));
    if (wordsOf(phrase) != said.words) {
        return false;
    }
    const Evidence evidence{.distinction = distinction(soundSince(said.begin), phrase)};
    return evidence.isDistinct();
}

double PhraseDecoder::distinction(std::span<const std::int16_t> sound, std::span<const HeardSegment> phrase) {
    const QStringList words = wordsOf(phrase);
    const qsizetype wakeLength = vocabulary_->graph.wakePhraseLength(words);
    const QList<QStringList> others =
        vocabulary_->soundAlikes.value(QStringList(words.mid(wakeLength)).join(u' '));
    if (others.isEmpty()) {
        return Evidence().distinction;
    }
    PhraseGraph graph;
    if (wakeLength > 0) {
        graph.setWakePhrase(QString(), words.first(wakeLength));
    }
    for (const QStringList& other : others) {
        graph.addPhrase(other.join(u' '), other);
    }
    static const QString search = QStringLiteral("sound-alikes");
    if (!grammar_->addGrammar(search, graph, wakeLength > 0 ? Expecting::WakePhrase : Expecting::Command)) {
        return 0;
    }
    grammar_->decodeWhole(search, sound);
    const double result = Evidence::distinguish(phrase, grammar_->heard());
    grammar_->removeSearch(search);
    return result;
}

bool PhraseDecoder::isBrokenOff(const Addressed& said) {
    const auto begun = vocabulary_->graph.read(said.words);
    if (!begun || !begun->hasCommand || begun->isWhole) {
        return false;
    }
    reference_->decodeWhole(searchFor(expecting_), soundSince(said.begin));
    return addressed(reference_->heard()).words == said.words;
}

std::optional<Reading> PhraseDecoder::wakePhraseOf(const QStringList& words) const {
    const qsizetype wordCount = vocabulary_->graph.wakePhraseLength(words);
    return wordCount > 0 ? vocabulary_->graph.read(words.first(wordCount)) : std::nullopt;
}

} // namespace brivandel

#include "platform/linux/recognition/PhraseDecoder.h"

#include "platform/linux/recognition/Evidence.h"
#include "platform/linux/recognition/LanguageModel.h"

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

// Words begin a little before the gate is sure of them.
constexpr AudioTime lead = std::chrono::milliseconds(150);

// Below this nobody meant a phrase: music would fill the log.
constexpr double farthestMiss = -40;

const QString& searchFor(Expecting expecting) {
    static const QString wakePhrase = QStringLiteral("wake phrase");
    static const QString command = QStringLiteral("command");
    return expecting == Expecting::WakePhrase ? wakePhrase : command;
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
    gate_->begin(searchFor(expecting));
}

void PhraseDecoder::process(std::span<const std::int16_t> samples) {
    utterance_.insert(utterance_.end(), samples.begin(), samples.end());
    gate_->process(samples);
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

std::vector<HeardSegment> PhraseDecoder::decodeByGrammar(const Addressed& addressed) {
    const bool hasWakePhrase = vocabulary_->graph.lastWakePhrase(addressed.words) == 0;
    grammar_->decodeWhole(searchFor(hasWakePhrase ? Expecting::WakePhrase : expecting_),
                          soundSince(addressed.begin));
    return grammar_->heard();
}

std::optional<Reading> PhraseDecoder::interim() {
    const Addressed said = addressed(gate_->heard());
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
    return !addressed(gate_->heard()).words.isEmpty();
}

Conclusion PhraseDecoder::conclude() {
    const Addressed said = addressed(gate_->heard());
    if (answer_ && said.words == askedFor_) {
        return {.reading = answer_,
                .verdict = UtteranceVerdict{.text = answer_->text,
                                            .isAccepted = true,
                                            .reason = QStringLiteral("both decoders heard it")}};
    }
    if (isBrokenOff(said)) {
        return {.reading = wakePhraseOf(said.words),
                .isUnfinished = true,
                .verdict = UtteranceVerdict{.text = said.words.join(u' '),
                                            .reason = QStringLiteral("more words are needed")}};
    }
    const auto phrase = decodeByGrammar(said);
    const QStringList words = wordsOf(phrase);
    const std::optional<Reading> reading = vocabulary_->graph.read(words);
    if (!reading || !reading->isWhole || isOutOfQuestion(phrase)) {
        return {};
    }
    reference_->decodeWhole(searchFor(expecting_), soundSince(said.begin));
    Evidence evidence =
        Evidence::weigh(phrase, reference_->heard(), vocabulary_->graph.wakePhraseLength(words));
    if (evidence.provesCommand()) {
        evidence.distinction = distinction(said.begin, phrase);
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

bool PhraseDecoder::isHeardByGrammar(const Addressed& said) {
    const auto phrase = decodeByGrammar(said);
    if (wordsOf(phrase) != said.words) {
        return false;
    }
    const Evidence evidence{.distinction = distinction(said.begin, phrase)};
    return evidence.isDistinct();
}

double PhraseDecoder::distinction(AudioTime begin, std::span<const HeardSegment> phrase) {
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
    grammar_->decodeWhole(search, soundSince(begin));
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

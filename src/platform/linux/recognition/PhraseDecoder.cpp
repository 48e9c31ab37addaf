#include "platform/linux/recognition/PhraseDecoder.h"

#include "platform/linux/recognition/SteadyNoise.h"

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

// Words begin a little before the gate is sure of them.
constexpr AudioTime lead = std::chrono::milliseconds(150);

// The gate waits for so much of an utterance, or for the first silence in it, to know how loud the voice is
// how the room colours it, and whether there is noise to be taken away. Then it catches up at once.
constexpr AudioTime opening = std::chrono::milliseconds(800);

} // namespace

std::unique_ptr<PhraseDecoder> PhraseDecoder::load(const ModelFiles& files) {
    if (files.problem()) {
        return nullptr;
    }
    std::unique_ptr<PhraseDecoder> result(new PhraseDecoder);
    result->gate_ = Decoder::load(files, Decoder::Scoring::AsNeeded);
    result->judge_ = PhraseJudge::load(files);
    return result->gate_ && result->judge_ ? std::move(result) : nullptr;
}

bool PhraseDecoder::setVocabulary(std::shared_ptr<const CompiledVocabulary> vocabulary) {
    bool accepted = judge_->setVocabulary(vocabulary) && gate_->setDictionary(vocabulary->pronunciations);
    for (const auto& [expecting, model] : vocabulary->languageModels) {
        accepted = accepted && gate_->addLanguageModel(searchFor(expecting), model);
    }
    vocabulary_ = accepted ? std::move(vocabulary) : nullptr;
    return accepted;
}

void PhraseDecoder::begin(Expecting expecting) {
    expecting_ = expecting;
    opening_.clear();
    utterance_.clear();
    askedFor_.clear();
    answer_.reset();
    gateHasBegun_ = false;
}

void PhraseDecoder::process(const HeardSound& sound) {
    if (gateHasBegun_) {
        const std::vector<std::int16_t>& samples = isInSteadyNoise_ ? sound.withoutNoise : sound.asHeard;
        utterance_.insert(utterance_.end(), samples.begin(), samples.end());
        gate_->process(samples);
        return;
    }
    opening_.append(sound);
    if (opening_.length() >= opening) {
        beginGate();
    }
}

void PhraseDecoder::beginGate() {
    gateHasBegun_ = true;
    isInSteadyNoise_ = isInSteadyNoise(opening_.asHeard);
    utterance_ = isInSteadyNoise_ ? std::move(opening_.withoutNoise) : std::move(opening_.asHeard);
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
    const QStringList forUs = vocabulary_->graph.addressed(words, expecting_);
    if (vocabulary_->graph.wakePhraseLength(forUs) == 0) {
        return {forUs};
    }
    qsizetype before = words.size() - forUs.size();
    const auto first = std::ranges::find_if(
        heard, [&before](const auto& segment) { return !segment.word.isEmpty() && before-- == 0; });
    return {forUs, std::max(first->firstFrame * AudioTime(frameLength) - lead, AudioTime(0))};
}

PhraseJudge::Question PhraseDecoder::questionAbout(const Addressed& said) const {
    return {.sound = std::span(utterance_).subspan(std::min(sampleCount(said.begin), utterance_.size())),
            .begin = said.begin,
            .expecting = expecting_,
            .hasWakePhrase = vocabulary_->graph.wakePhraseLength(said.words) > 0};
}

std::optional<Reading> PhraseDecoder::interim() {
    const Addressed said = addressed(heardByGate());
    if (said.words.isEmpty() || said.words == askedFor_) {
        return said.words.isEmpty() ? std::nullopt : answer_;
    }
    askedFor_ = said.words;
    answer_ = vocabulary_->graph.read(said.words);
    if (answer_ && !(answer_->isWhole && judge_->confirms(said.words, questionAbout(said)))) {
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
        return {.reading = answer_,
                .verdict = UtteranceVerdict{.text = answer_->text,
                                            .isAccepted = true,
                                            .reason = QStringLiteral("both decoders heard it")}};
    }
    if (isBrokenOff(said)) {
        const qsizetype wakeWordCount = vocabulary_->graph.wakePhraseLength(said.words);
        return {.reading = wakeWordCount > 0 ? vocabulary_->graph.read(said.words.first(wakeWordCount))
                                             : std::nullopt,
                .isUnfinished = true,
                .verdict = UtteranceVerdict{.text = said.words.join(u' '),
                                            .reason = QStringLiteral("more words are needed")}};
    }
    return judge_->judge(questionAbout(said));
}

bool PhraseDecoder::isBrokenOff(const Addressed& said) {
    const auto begun = vocabulary_->graph.read(said.words);
    return begun && begun->hasCommand && !begun->isWhole &&
           judge_->heardAmongAllWords(questionAbout(said)) == said.words;
}

} // namespace brivandel

#include "platform/linux/recognition/PhraseJudge.h"

#include <algorithm>

namespace brivandel {

namespace {

// Of an utterance with music before and after the words, only the words and so much around them are gone over
// once more: the music would be taken for words, and colour what is known of the voice. Less than the saving
// is not worth the work.
constexpr AudioTime aroundWords = std::chrono::milliseconds(250);
constexpr AudioTime leastSaving = std::chrono::milliseconds(400);

// A wake phrase that begins within this time begins the utterance: before it is what the utterance reaches
// back, and a breath.
constexpr AudioTime latestBeginning = std::chrono::milliseconds(600);

// One speaker alone does not make another phrase of what was heard.
constexpr qsizetype leastSpeakersForAnother = 2;

// Below this nobody meant a phrase: music would fill the log.
constexpr double farthestMiss = -40;

const QString& phoneLoop() {
    static const QString search = QStringLiteral("phones");
    return search;
}

/// The sound of the words and a little around them.
PhraseJudge::Question around(std::span<const HeardSegment> phrase, PhraseJudge::Question question) {
    const std::span<const std::int16_t> sound = question.sound;
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
    if (first < last && last - first + sampleCount(leastSaving) <= sound.size()) {
        question.sound = sound.subspan(first, last - first);
        question.begin += AudioTime(static_cast<std::int64_t>(first));
    }
    return question;
}

Conclusion accepted(const Reading& reading, const QString& reason) {
    return {.reading = reading,
            .verdict = UtteranceVerdict{.text = reading.text, .isAccepted = true, .reason = reason}};
}

} // namespace

std::unique_ptr<PhraseJudge> PhraseJudge::load(const ModelFiles& files, const Resonances& resonances) {
    std::unique_ptr<PhraseJudge> result(new PhraseJudge);
    result->grammar_ = Decoder::load(files, Decoder::Scoring::InFull);
    result->reference_ = Decoder::load(files, Decoder::Scoring::InFull);
    if (!result->grammar_ || !result->reference_) {
        return nullptr;
    }
    std::ranges::transform(resonances, result->speakers_.begin(),
                           [&result](double resonance) { return result->grammar_->makeFrontEnd(resonance); });
    const bool isComplete =
        std::ranges::all_of(result->speakers_, [](const auto& it) { return it != nullptr; });
    return isComplete ? std::move(result) : nullptr;
}

bool PhraseJudge::setVocabulary(std::shared_ptr<const CompiledVocabulary> vocabulary) {
    const PhraseGraph& graph = vocabulary->graph;
    Pronunciations phraseWords;
    for (const PhraseGraph::Node& node : graph.nodes()) {
        for (const PhraseGraph::Edge& edge : node.edges) {
            phraseWords.insert(edge.word, vocabulary->pronunciations.value(edge.word));
        }
    }
    bool accepted =
        reference_->setDictionary(vocabulary->pronunciations) && grammar_->setDictionary(phraseWords);
    for (const auto& [expecting, model] : vocabulary->languageModels) {
        const QString& search = searchFor(expecting);
        accepted = accepted && reference_->addLanguageModel(search, model) &&
                   grammar_->addGrammar(search, graph, expecting);
    }
    accepted = accepted && grammar_->addPhoneLoop(phoneLoop());
    vocabulary_ = accepted ? std::move(vocabulary) : nullptr;
    return accepted;
}

std::vector<HeardSegment> PhraseJudge::hearPhrase(const Features& features, const Question& question) {
    grammar_->decodeWhole(searchFor(question.hasWakePhrase ? Expecting::WakePhrase : question.expecting),
                          features);
    return grammar_->heard();
}

bool PhraseJudge::confirms(const QStringList& words, const Question& question) {
    if (wordsOf(hearPhrase(speakers_.front()->features(question.sound), question)) != words) {
        return false;
    }
    const Evidence evidence{.distinction = compare(words, question.sound).distinction};
    return evidence.isDistinct();
}

QStringList PhraseJudge::heardAmongAllWords(const Question& question) {
    reference_->decodeWhole(searchFor(question.expecting), speakers_.front()->features(question.sound));
    return vocabulary_->graph.addressed(wordsOf(reference_->heard()), question.expecting);
}

Conclusion PhraseJudge::judge(const Question& question) {
    const Take first = take(*speakers_.front(), question);
    const Judgement judgement = weigh(first);
    if (!judgement.isOpen) {
        return judgement.conclusion;
    }
    for (const auto& speaker : std::span(speakers_).subspan(1)) {
        const Take other = take(*speaker, question);
        if (wordsOf(other.phrase) != wordsOf(first.phrase)) {
            continue;
        }
        const Judgement again = weigh(other);
        if (const auto& verdict = again.conclusion.verdict; verdict && !again.isOpen) {
            const bool isTheSame = verdict->isAccepted && verdict->text == judgement.conclusion.verdict->text;
            return isTheSame ? again.conclusion : judgement.conclusion;
        }
    }
    return judgement.conclusion;
}

PhraseJudge::Take PhraseJudge::take(FrontEnd& speaker, const Question& question) {
    Take take{.question = question, .features = speaker.features(question.sound)};
    take.phrase = hearPhrase(take.features, question);
    // A command alone is short, and what is beside it says most about it.
    if (vocabulary_->graph.wakePhraseLength(wordsOf(take.phrase)) == 0 || isOutOfQuestion(take.phrase)) {
        return take;
    }
    const Question narrower = around(take.phrase, question);
    if (narrower.sound.size() < question.sound.size()) {
        take = {.question = narrower, .features = speaker.features(narrower.sound)};
        take.phrase = hearPhrase(take.features, narrower);
    }
    return take;
}

PhraseJudge::Judgement PhraseJudge::weigh(const Take& take) {
    const auto& [question, features, phrase] = take;
    const PhraseGraph& graph = vocabulary_->graph;
    const QStringList words = wordsOf(phrase);
    const std::optional<Reading> reading = graph.read(words);
    if (!reading || !reading->isWhole || isOutOfQuestion(phrase)) {
        return {};
    }
    reference_->decodeWhole(searchFor(question.expecting), features);
    const std::vector<HeardSegment> reference = reference_->heard();
    const qsizetype wakeWordCount = graph.wakePhraseLength(words);
    Evidence evidence = Evidence::weigh(phrase, reference,
                                        {.wakeWordCount = wakeWordCount,
                                         .mayGoOn = reading->mayGoOn,
                                         .mayLackFirstWord = mayLackFirstWord(phrase, question)});
    // Whoever said the wake phrase is no instrument.
    if (evidence.commandAlone && evidence.provesCommand()) {
        grammar_->decodeWhole(phoneLoop(), features);
        evidence.amongPhones = Evidence::compareToPhones(phrase, grammar_->heard());
    }
    const bool isProven = evidence.provesCommand();
    if (isProven) {
        const QStringList heard = graph.addressed(wordsOf(reference), question.expecting);
        if (const auto other = otherCommand(words, heard)) {
            return {accepted(*other, QStringLiteral("it was heard among all words"))};
        }
        const Comparison comparison = compare(words, question.sound);
        evidence.distinction = comparison.distinction;
        if (evidence.agreement != Agreement::Whole && !comparison.other.isEmpty()) {
            // Two witnesses need not be as sure as one.
            const double least = comparison.other == heard ? 0 : Evidence::leastDistinction;
            if (comparison.distinction < -least) {
                return {accepted(*graph.read(comparison.other),
                                 QStringLiteral("it fits best of what sounds like it"))};
            }
        }
    }
    const Evidence::Weakest weakest = evidence.weakest();
    Judgement judgement;
    if (weakest.margin >= farthestMiss) {
        judgement.conclusion.verdict = UtteranceVerdict{.text = reading->text,
                                                        .isAccepted = evidence.provesCommand(),
                                                        .score = weakest.margin,
                                                        .reason = weakest.what};
        judgement.isOpen = !isProven && evidence.isSpeech();
    }
    if (evidence.provesCommand()) {
        judgement.conclusion.reading = reading;
    } else if (evidence.provesWakePhrase() && wakeWordCount > 0) {
        judgement.conclusion.reading = graph.read(words.first(wakeWordCount));
    }
    return judgement;
}

bool PhraseJudge::mayLackFirstWord(const std::vector<HeardSegment>& phrase, const Question& question) const {
    constexpr qsizetype shortPhoneCount = 2; // "hey", "hi", "oh"
    const auto first =
        std::ranges::find_if(phrase, [](const auto& segment) { return !segment.word.isEmpty(); });
    if (first == phrase.end()) {
        return false;
    }
    const QStringList spoken = vocabulary_->pronunciations.value(first->word);
    return question.begin + first->firstFrame * AudioTime(frameLength) <= latestBeginning &&
           std::ranges::any_of(spoken,
                               [](const QString& phones) { return phones.count(u' ') < shortPhoneCount; });
}

std::optional<Reading> PhraseJudge::otherCommand(const QStringList& words, const QStringList& heard) const {
    const PhraseGraph& graph = vocabulary_->graph;
    auto other = graph.read(heard);
    if (!other || !other->isWhole || !other->hasWakePhrase || !other->hasCommand ||
        graph.read(words)->text.startsWith(other->text) ||
        soundAlikesOf(words).contains(heard.mid(graph.wakePhraseLength(heard)))) {
        return std::nullopt;
    }
    return other;
}

QList<QStringList> PhraseJudge::soundAlikesOf(const QStringList& words) const {
    const QStringList command = words.mid(vocabulary_->graph.wakePhraseLength(words));
    return vocabulary_->soundAlikes.value(command.join(u' '));
}

PhraseJudge::Comparison PhraseJudge::compare(const QStringList& words, std::span<const std::int16_t> sound) {
    Comparison comparison;
    QList<QStringList> others = soundAlikesOf(words);
    if (others.isEmpty()) {
        return comparison;
    }
    static const QString itself = QStringLiteral("itself");
    static const QString soundAlikes = QStringLiteral("sound-alikes");
    const QStringList wakePhrase = words.first(vocabulary_->graph.wakePhraseLength(words));
    for (QStringList& other : others) {
        other = wakePhrase + other;
    }
    double sum = 0;
    QList<QStringList> betterOnes;
    if (addGrammar(itself, {words}) && addGrammar(soundAlikes, others)) {
        for (const auto& speaker : speakers_) {
            const Features features = speaker->features(sound);
            grammar_->decodeWhole(itself, features);
            const std::vector<HeardSegment> phrase = grammar_->heard();
            grammar_->decodeWhole(soundAlikes, features);
            const std::vector<HeardSegment> other = grammar_->heard();
            const double distinction = Evidence::distinguish(phrase, other);
            sum += distinction;
            if (distinction < 0) {
                betterOnes << wordsOf(other);
            }
        }
    }
    grammar_->removeSearch(itself);
    grammar_->removeSearch(soundAlikes);
    comparison.distinction = sum / static_cast<double>(speakers_.size());
    if (betterOnes.size() >= leastSpeakersForAnother &&
        betterOnes.count(betterOnes.front()) == betterOnes.size()) {
        comparison.other = betterOnes.front();
    }
    return comparison;
}

bool PhraseJudge::addGrammar(const QString& search, const QList<QStringList>& phrases) {
    PhraseGraph graph;
    for (const QStringList& phrase : phrases) {
        graph.addPhrase(phrase.join(u' '), phrase);
    }
    return grammar_->addGrammar(search, graph, Expecting::Command);
}

} // namespace brivandel

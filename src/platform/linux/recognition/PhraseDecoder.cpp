#include "platform/linux/recognition/PhraseDecoder.h"

#include "platform/linux/recognition/LanguageModel.h"

#include <algorithm>
#include <utility>

namespace brivandel {

namespace {

// Words begin a little before the gate is sure of them.
constexpr AudioTime lead = std::chrono::milliseconds(150);

const QString& searchFor(Expecting expecting) {
    static const QString wakePhrase = QStringLiteral("wake phrase");
    static const QString command = QStringLiteral("command");
    return expecting == Expecting::WakePhrase ? wakePhrase : command;
}

/// How many words both have in common, in the same order.
qsizetype commonWords(const QStringList& a, const QStringList& b) {
    std::vector<qsizetype> best(static_cast<std::size_t>(b.size()) + 1);
    for (const QString& word : a) {
        qsizetype diagonal = 0;
        for (std::size_t j = 1; j < best.size(); ++j) {
            const qsizetype above = best[j];
            best[j] = word == b[static_cast<qsizetype>(j) - 1] ? diagonal + 1 : std::max(above, best[j - 1]);
            diagonal = above;
        }
    }
    return best.back();
}

/// Whether what the gate heard, which could have been anything, bears out what the grammar made of it.
bool bearsOut(const QStringList& gate, const QStringList& grammar) {
    return 2 * commonWords(gate, grammar) >= grammar.size() && gate.size() <= grammar.size() + 2;
}

} // namespace

PhraseDecoder::PhraseDecoder(std::unique_ptr<Decoder> gate, std::unique_ptr<Decoder> grammar)
    : gate_(std::move(gate))
    , grammar_(std::move(grammar)) {}

std::unique_ptr<PhraseDecoder> PhraseDecoder::load(const ModelFiles& files) {
    if (files.problem()) {
        return nullptr;
    }
    auto gate = Decoder::load(files);
    auto grammar = Decoder::load(files);
    return gate && grammar
               ? std::unique_ptr<PhraseDecoder>(new PhraseDecoder(std::move(gate), std::move(grammar)))
               : nullptr;
}

bool PhraseDecoder::setVocabulary(std::shared_ptr<const CompiledVocabulary> vocabulary) {
    const PhraseGraph& graph = vocabulary->graph;
    Pronunciations phraseWords;
    for (const PhraseGraph::Node& node : graph.nodes()) {
        for (const PhraseGraph::Edge& edge : node.edges) {
            phraseWords.insert(edge.word, vocabulary->pronunciations.value(edge.word));
        }
    }
    bool accepted = gate_->setDictionary(vocabulary->pronunciations) && grammar_->setDictionary(phraseWords);
    for (const Expecting expecting : {Expecting::WakePhrase, Expecting::Command}) {
        const QString& search = searchFor(expecting);
        accepted = accepted && gate_->addLanguageModel(search, languageModel(graph, expecting)) &&
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

PhraseDecoder::Addressed PhraseDecoder::addressed(const std::vector<HeardWord>& heard) const {
    const QStringList words = textsOf(heard);
    const qsizetype wake = vocabulary_->graph.lastWakePhrase(words);
    if (wake >= 0) {
        return {words.mid(wake), std::max(heard[static_cast<std::size_t>(wake)].begin - lead, AudioTime(0))};
    }
    return expecting_ == Expecting::Command ? Addressed{words} : Addressed{};
}

QStringList PhraseDecoder::decodeByGrammar(const Addressed& addressed) {
    const bool hasWakePhrase = vocabulary_->graph.lastWakePhrase(addressed.words) == 0;
    const std::size_t begin = std::min(sampleCount(addressed.begin), utterance_.size());
    grammar_->decodeWhole(searchFor(hasWakePhrase ? Expecting::WakePhrase : Expecting::Command),
                          std::span(utterance_).subspan(begin));
    return textsOf(grammar_->words());
}

std::optional<Reading> PhraseDecoder::interim() {
    const Addressed said = addressed(gate_->words());
    if (said.words.isEmpty() || said.words == askedFor_) {
        return said.words.isEmpty() ? std::nullopt : answer_;
    }
    askedFor_ = said.words;
    answer_ = vocabulary_->graph.read(said.words);
    if (answer_ && (!answer_->isWhole || decodeByGrammar(said) != said.words)) {
        answer_.reset();
    }
    return answer_;
}

std::optional<Reading> PhraseDecoder::end() {
    gate_->end();
    Addressed said = addressed(gate_->words());
    gate_->decodeWhole(searchFor(expecting_), utterance_);
    if (const Addressed saidInAll = addressed(gate_->words()); !saidInAll.words.isEmpty()) {
        said = saidInAll;
    }
    if (said.words.isEmpty()) {
        return std::nullopt;
    }
    const PhraseGraph& graph = vocabulary_->graph;
    const QStringList byGrammar = decodeByGrammar(said);
    const auto reading = graph.read(byGrammar);
    if (!reading || !reading->isWhole) {
        return std::nullopt;
    }
    if (!reading->hasWakePhrase) {
        return said.words == byGrammar ? reading : std::nullopt;
    }
    const qsizetype wakeLength = graph.wakePhraseLength(byGrammar);
    if (bearsOut(said.words.mid(graph.wakePhraseLength(said.words)), byGrammar.mid(wakeLength))) {
        return reading;
    }
    return graph.read(byGrammar.first(wakeLength));
}

} // namespace brivandel

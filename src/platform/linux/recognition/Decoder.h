#pragma once

#include "platform/linux/recognition/ModelFiles.h"
#include "platform/linux/recognition/PhraseGraph.h"
#include "platform/linux/recognition/Pronunciations.h"
#include "platform/linux/recognition/RecognitionFormat.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

struct ps_decoder_s;

namespace brivandel {

/// A word that was heard, and where in the utterance it begins.
struct HeardWord {
    QString word;
    AudioTime begin{0};
};

/// One decoder of the engine, with the searches that it was given. Any one thread at a time; several decoders may run
/// in several threads.
class Decoder {
public:
    /// None when the model cannot be loaded, which ModelFiles::problem() explains. Some 20 ms.
    [[nodiscard]] static std::unique_ptr<Decoder> load(const ModelFiles& files);

    /// Replaces the dictionary, and drops all searches. False when the engine refuses it.
    [[nodiscard]] bool setDictionary(const Pronunciations& pronunciations);
    /// Adds a search through a language model in ARPA format, or through a graph that every utterance must fit.
    [[nodiscard]] bool addLanguageModel(const QString& search, const QByteArray& arpa);
    [[nodiscard]] bool addGrammar(const QString& search, const PhraseGraph& graph, Expecting expecting);

    /// Begins an utterance; one that is going on is dropped.
    void begin(const QString& search);
    void process(std::span<const std::int16_t> samples);
    void end();
    /// Begins, decodes and ends an utterance that is there as a whole, which is more accurate.
    void decodeWhole(const QString& search, std::span<const std::int16_t> samples);

    /// What was heard so far, or in the utterance that has ended. No pauses and noises.
    [[nodiscard]] std::vector<HeardWord> words() const;

private:
    struct Delete {
        void operator()(ps_decoder_s* handle) const;
    };
    using Handle = std::unique_ptr<ps_decoder_s, Delete>;

    explicit Decoder(Handle handle);

    Handle handle_;
    bool inUtterance_ = false;
    QStringList searches_;
    /// The mean of the model's training: every utterance starts from it, so that none depends on those before.
    std::vector<float> initialMean_;
};

/// The words without their places.
[[nodiscard]] QStringList textsOf(std::span<const HeardWord> words);

} // namespace brivandel

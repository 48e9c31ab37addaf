#pragma once

#include "platform/linux/recognition/FrontEnd.h"
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

/// A piece of an utterance as a decoder hears it, in frames of 10 ms from the utterance's beginning.
struct HeardSegment {
    /// Empty for a pause or a noise.
    QString word;
    int firstFrame = 0;
    int frameCount = 0;
    /// How well the sound fits, summed over the frames: a logarithm, larger is better. Comparable between
    /// decoders that score in full.
    double score = 0;
};

/// What a search is called that goes by what is expected.
[[nodiscard]] const QString& searchFor(Expecting expecting);

/// One decoder of the engine, with the searches that it was given. Any one thread at a time; several decoders
/// may run in several threads.
class Decoder {
public:
    /// Scoring in full takes twice the time, and makes the scores of different searches comparable.
    enum class Scoring : std::uint8_t { AsNeeded, InFull };

    /// None when the model cannot be loaded, which ModelFiles::problem() explains. Some 20 ms.
    [[nodiscard]] static std::unique_ptr<Decoder> load(const ModelFiles& files, Scoring scoring);

    /// One for decodeWhole() of this decoder and of others of the same model.
    [[nodiscard]] std::unique_ptr<FrontEnd> makeFrontEnd(double resonance);

    /// Replaces the dictionary, and drops all searches. False when the engine refuses it.
    [[nodiscard]] bool setDictionary(const Pronunciations& pronunciations);
    /// Adds a search through a language model in ARPA format, or through a graph that every utterance must
    /// fit.
    [[nodiscard]] bool addLanguageModel(const QString& search, const QByteArray& arpa);
    [[nodiscard]] bool addGrammar(const QString& search, const PhraseGraph& graph, Expecting expecting);
    /// Adds a search that hears any phones in any order: the words that it hears are phones, silence and
    /// noises.
    [[nodiscard]] bool addPhoneLoop(const QString& search);
    /// One that is not there is no error. What was heard with it is gone.
    void removeSearch(const QString& search);

    /// Begins an utterance; one that is going on is dropped. How loud it is and how the room colours it is
    /// taken from the opening, some of its sound, and without that from the model's training.
    void begin(const QString& search, std::span<const std::int16_t> opening = {});
    void process(std::span<const std::int16_t> samples);
    void end();
    /// Begins, decodes and ends an utterance that is there as a whole, which is more accurate. The features
    /// are those of a FrontEnd of the same model.
    void decodeWhole(const QString& search, const Features& features);

    /// What was heard so far, or in the utterance that has ended.
    [[nodiscard]] std::vector<HeardSegment> heard() const;

private:
    struct Delete {
        void operator()(ps_decoder_s* handle) const;
    };
    using Handle = std::unique_ptr<ps_decoder_s, Delete>;

    explicit Decoder(Handle handle);
    [[nodiscard]] std::vector<float> expectedMean(std::span<const std::int16_t> opening);

    Handle handle_;
    bool inUtterance_ = false;
    QStringList searches_;
    QString phoneLoop_;
    /// The mean of the features in the model's training: every utterance starts from it, so that none depends
    /// on those before.
    std::vector<float> initialMean_;
};

/// The words alone.
[[nodiscard]] QStringList wordsOf(std::span<const HeardSegment> heard);

} // namespace brivandel

#pragma once

#include "platform/RecognitionVocabulary.h"
#include "platform/linux/recognition/PhraseGraph.h"
#include "platform/linux/recognition/Pronunciations.h"
#include "platform/linux/recognition/SoundAlikes.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>

namespace brivandel {

/// A vocabulary made ready for the decoders. Never changed once made; any thread.
struct CompiledVocabulary {
    RecognitionVocabulary source;
    PhraseGraph graph;
    /// Of the words in the graph, and of the background words.
    Pronunciations pronunciations;
    SoundAlikes soundAlikes;
    /// In ARPA format.
    std::map<Expecting, QByteArray> languageModels;
    /// For each phrase that cannot be listened for, a line that says which and why.
    QStringList problems;

    /// Any thread; takes tens of milliseconds.
    [[nodiscard]] static std::shared_ptr<const CompiledVocabulary>
    compile(const RecognitionVocabulary& vocabulary, const QString& dictionaryPath);
};

} // namespace brivandel

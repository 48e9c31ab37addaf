#include "platform/linux/recognition/RecognitionProblems.h"

#include "platform/linux/recognition/CompiledVocabulary.h"
#include "platform/linux/recognition/ModelFiles.h"

namespace brivandel {

std::optional<QString> recognitionModelProblem() {
    return ModelFiles::locate().problem();
}

QStringList vocabularyProblems(const RecognitionVocabulary& vocabulary) {
    return CompiledVocabulary::compile(vocabulary, ModelFiles::locate().dictionary)->problems;
}

} // namespace brivandel

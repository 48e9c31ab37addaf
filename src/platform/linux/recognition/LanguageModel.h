#pragma once

#include "platform/linux/recognition/PhraseGraph.h"

#include <QByteArray>

namespace brivandel {

/// A trigram model in ARPA format: the phrases of the graph, and around them the background words, so that
/// what is not for us can be heard as what it is. Any thread.
[[nodiscard]] QByteArray languageModel(const PhraseGraph& graph, Expecting expecting);

} // namespace brivandel

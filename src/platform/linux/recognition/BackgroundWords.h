#pragma once

#include <QList>
#include <QStringView>

namespace brivandel {

/// The 2,000 most frequent words of spoken English, most frequent first. They give ordinary talk something
/// better to match than a command.
[[nodiscard]] QList<QStringView> backgroundWords();

} // namespace brivandel

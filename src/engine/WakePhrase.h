#pragma once

#include <QStringView>

#include <optional>

namespace brivandel {

/// What follows the last wake phrase in a transcript, without spaces and tabs around it; empty when nothing
/// follows yet, none when the transcript holds no wake phrase.
///
/// The phrase is compared as it is configured. Where it is not found, the word "logic" stands for it:
/// recognisers often split or mishear the rest of the phrase. An empty phrase is found nowhere.
[[nodiscard]] std::optional<QStringView> textAfterWakePhrase(QStringView transcript, QStringView wakePhrase);

} // namespace brivandel

#pragma once

#include <QString>
#include <QStringList>

namespace brivandel {

/// A spoken phrase between silences, as a sound file in the folder; its path.
[[nodiscard]] QString speak(const QString& phrase, const QString& folder);

/// These phrases at once, each in a channel of its own; the path of the file.
[[nodiscard]] QString speakInChannels(const QStringList& phrases, const QString& folder);

/// Plays a sound file to its end.
void play(const QString& path, const QString& sink);

} // namespace brivandel

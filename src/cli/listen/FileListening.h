#pragma once

#include "cli/WaveFile.h"
#include "engine/TranscriptMatcher.h"
#include "platform/ScriptHost.h"
#include "platform/SpeechRecognition.h"

#include <QString>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <optional>

namespace brivandel {

/// What happens while a file is listened to, each with the seconds of sound that have gone by.
struct FileListeningEvents {
    /// The first sound is about to be heard; at that moment by the steady clock.
    std::function<void(std::chrono::steady_clock::time_point)> began;
    std::function<void(double seconds, const RecognitionResult&)> heard;
    std::function<void(double seconds, const QString& transcript, bool usesWakeWord, const Decision&)>
        command;
    std::function<void(double seconds, const std::optional<ScriptErrorDictionary>& error)> script;
};

/// How a file is listened to.
struct FileListeningOptions {
    QVariantMap storedObjects;        ///< the settings to listen with; they are not changed
    ScriptHost* scriptHost = nullptr; ///< none: nothing is run
    bool inRealTime = false;          ///< at the pace of a microphone, not as fast as it goes
};

/// The whole way from sound to action: a fresh controller, in the time of the sound, over this recogniser.
void listenToFile(WaveFile& file, SpeechRecognition& recognition, const FileListeningOptions& options,
                  const FileListeningEvents& events);

} // namespace brivandel

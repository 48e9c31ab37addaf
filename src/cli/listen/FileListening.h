#pragma once

#include "cli/WaveFile.h"
#include "platform/ScriptHost.h"
#include "platform/SpeechRecognition.h"

#include <QVariantMap>

namespace brivandel {

class ListenReport;

/// How a file is listened to.
struct FileListeningOptions {
    QVariantMap storedObjects;        ///< the settings to listen with; they are not changed
    ScriptHost* scriptHost = nullptr; ///< none: nothing is run
    bool inRealTime = false;          ///< at the pace of a microphone, not as fast as it goes
};

/// The whole way from sound to action: a fresh controller, in the time of the sound, over this recogniser.
void listenToFile(WaveFile& file, SpeechRecognition& recognition, const FileListeningOptions& options,
                  ListenReport& report);

} // namespace brivandel

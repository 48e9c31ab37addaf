#pragma once

#include "platform/Platform.h"

#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>
#include <variant>

// What a system offers in parts, for those who need no whole platform. Defined once a system, like
// makePlatform().
namespace brivandel {

/// Where the user's settings are stored; the file need not be there.
[[nodiscard]] QString userDefaultsPath();

/// Where the last failure of listening is noted, which is no setting; the file need not be there.
[[nodiscard]] QString lastFailurePath();

/// The objects in a settings file, or in words why it cannot be read. One that is not there holds none.
[[nodiscard]] std::variant<QVariantMap, QString> readDefaultsFile(const QString& path);

[[nodiscard]] std::unique_ptr<ScriptHost> makeScriptHost(const PlatformOptions& options);

/// A recogniser for sound that is there already: it decodes what is appended at once, on the caller's thread,
/// and delivers there, as fast as the machine can. Its models are loaded once for all sessions.
[[nodiscard]] std::unique_ptr<SpeechRecognition> makeFileSpeechRecognition();

/// Why speech cannot be recognised here, in words; none when it can.
[[nodiscard]] std::optional<QString> speechRecognitionProblem();

} // namespace brivandel

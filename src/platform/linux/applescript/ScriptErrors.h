#pragma once

#include "platform/ScriptHost.h"
#include "platform/linux/applescript/ScriptParser.h"
#include "platform/linux/keys/KeySender.h"

#include <QString>

namespace brivandel::script {

/// The numbers that AppleScript gives to what can go wrong here (MacErrors.h, AEDataModel.h, AppleScript.h).
namespace ErrorNumber {
inline constexpr int cancelled = -128;            // userCanceledErr
inline constexpr int notRunning = -600;           // procNotFound
inline constexpr int timedOut = -1712;            // errAETimeout
inline constexpr int noSuchObject = -1728;        // errAENoSuchObject
inline constexpr int syntax = -2741;              // OSASyntaxError
inline constexpr int handlerFailed = -10000;      // errAEEventFailed
inline constexpr int notPermitted = -10004;       // errAEPrivilegeError
inline constexpr int keystrokesNotAllowed = 1002; // System Events itself
} // namespace ErrorNumber

[[nodiscard]] ScriptErrorDictionary syntaxErrorDictionary(const ScriptSyntaxError& error);

/// "A got an error: Sentence", as an AppleScript host puts it.
[[nodiscard]] ScriptErrorDictionary runtimeErrorDictionary(int number, const QString& application,
                                                           const QString& sentence, SourceRange range);

/// What a failed key looks like from the script. application: which was told to do it; program: the name
/// under which the keys' receiver stands in the script.
[[nodiscard]] ScriptErrorDictionary keyErrorDictionary(const KeyFailure& failure, const QString& application,
                                                       const QString& program, SourceRange range);

} // namespace brivandel::script

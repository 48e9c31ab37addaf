#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

namespace brivandel {

/// What an AppleScript host says about a script that failed, under the platform's own keys. Values are
/// strings, integers, or for the range a QVariantList of location and length in UTF-16 units.
using ScriptErrorDictionary = QMap<QString, QVariant>;

namespace ScriptErrorKey {
inline constexpr char16_t message[] = u"NSAppleScriptErrorMessage";
inline constexpr char16_t briefMessage[] = u"NSAppleScriptErrorBriefMessage";
inline constexpr char16_t number[] = u"NSAppleScriptErrorNumber";
inline constexpr char16_t appName[] = u"NSAppleScriptErrorAppName";
inline constexpr char16_t range[] = u"NSAppleScriptErrorRange";
} // namespace ScriptErrorKey

/// Compiles and runs AppleScript source.
class ScriptHost {
public:
    virtual ~ScriptHost() = default;
    /// Returns when the script has ended, without a value when it succeeded. Any thread but the main one: it
    /// blocks.
    [[nodiscard]] virtual std::optional<ScriptErrorDictionary> run(const QString& source) = 0;
};

/// The dictionary on one line, keys sorted: {NSAppleScriptErrorMessage = "Not allowed.";
/// NSAppleScriptErrorNumber = -1743;}
[[nodiscard]] QString describe(const ScriptErrorDictionary& error);

} // namespace brivandel

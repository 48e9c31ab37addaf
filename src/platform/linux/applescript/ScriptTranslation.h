#pragma once

#include "platform/linux/applescript/KeyTable.h"
#include "platform/linux/applescript/Script.h"

#include <QString>

#include <variant>

namespace brivandel::script {

/// Why a script cannot be carried out in a workstation, and which statement it is about.
struct TranslationFailure {
    QString sentence;
    SourceRange range;
};

/// The script with the workstation's keys: what it tells the process of that name is translated, and what it
/// presses outside any process block while that was the last to be brought to the front; the rest stays. The
/// whole of it or nothing; nothing, too, when its waits are then longer than any script's may be. Pure; any
/// thread.
[[nodiscard]] std::variant<Script, TranslationFailure> translate(const Script& script, const KeyTable& keys,
                                                                 const QString& process);

} // namespace brivandel::script

#pragma once

#include "commands/CustomCommand.h"
#include "commands/TriggerOverrides.h"

#include <QByteArray>

#include <optional>

namespace brivandel {

/// The stored form of the two collections, JSON in UTF-8. Encoding keeps the order of list, fields and
/// triggers. Decoding is strict: one missing member or one wrong type anywhere, and there is no result.
/// Unknown members are passed over.
[[nodiscard]] QByteArray encodeCustomCommands(const CustomCommandList& commands);
[[nodiscard]] std::optional<CustomCommandList> decodeCustomCommands(const QByteArray& json);

[[nodiscard]] QByteArray encodeTriggerOverrides(const TriggerOverrides& overrides);
[[nodiscard]] std::optional<TriggerOverrides> decodeTriggerOverrides(const QByteArray& json);

} // namespace brivandel

// Any bytes as stored commands and triggers: what is decoded encodes to the same.

#include "Require.h"
#include "commands/CommandStorage.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brivandel;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (const auto commands = decodeCustomCommands(bytes)) {
        const QByteArray stored = encodeCustomCommands(*commands);
        require(decodeCustomCommands(stored) == commands, "stored commands are read as they were");
        require(encodeCustomCommands(*decodeCustomCommands(stored)) == stored, "and stored again the same");
    }
    if (const auto overrides = decodeTriggerOverrides(bytes)) {
        const QByteArray stored = encodeTriggerOverrides(*overrides);
        require(decodeTriggerOverrides(stored) == overrides, "stored triggers are read as they were");
    }
    return 0;
}

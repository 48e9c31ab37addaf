#include "commands/CommandCategory.h"

#include "commands/VoiceCommand.h"

#include <algorithm>

namespace brivandel {

const QString& rawValue(CommandCategory category) {
    static const std::array titles = {
        QStringLiteral("Transport"), QStringLiteral("Recording"), QStringLiteral("Editing"),
        QStringLiteral("Looping"),   QStringLiteral("Metronome"), QStringLiteral("Navigation"),
    };
    return titles.at(static_cast<std::size_t>(category));
}

std::optional<CommandCategory> commandCategory(QStringView rawValue) {
    const auto* found = std::ranges::find_if(allCommandCategories, [rawValue](CommandCategory category) {
        return brivandel::rawValue(category) == rawValue;
    });
    if (found == allCommandCategories.end()) {
        return std::nullopt;
    }
    return *found;
}

int commandCount(CommandCategory category) {
    if (category == CommandCategory::navigation) {
        return 2;
    }
    return static_cast<int>(std::ranges::count(allVoiceCommands, category, &brivandel::category));
}

} // namespace brivandel

#include "views/ReferenceContents.h"

#include "views/LocalizedSearch.h"

#include <algorithm>
#include <array>

namespace brivandel {

namespace {

const std::array<BarNavigationForm, 2>& barNavigationForms() {
    static const std::array<BarNavigationForm, 2> forms{{
        {QStringLiteral("go to bar [number]"),
         QStringLiteral(
             "Move the playhead to any bar. Supports digits or spoken numbers (e.g. \"bar twenty five\").")},
        {QStringLiteral("play from bar [number]"),
         QStringLiteral("Jump to the specified bar and immediately start playback.")},
    }};
    return forms;
}

} // namespace

QList<VoiceCommand> filteredBuiltIn(const ReferenceSelection& selection, const QString& searchText) {
    const LocalizedSearch search(searchText);
    QList<VoiceCommand> found;
    for (const auto command : allVoiceCommands) {
        if (selection.includes(category(command)) &&
            (search.isIn(rawValue(command)) || search.isIn(description(command)))) {
            found += command;
        }
    }
    return found;
}

CustomCommandList filteredCustom(const CustomCommandList& commands, const ReferenceSelection& selection,
                                 const QString& searchText) {
    if (!selection.isAll() && !selection.isCustom()) {
        return {};
    }
    if (searchText.isEmpty()) {
        return commands;
    }
    const LocalizedSearch search(searchText);
    CustomCommandList found;
    std::ranges::copy_if(commands, std::back_inserter(found), [&](const CustomCommand& command) {
        return search.isIn(command.name) ||
               std::ranges::any_of(command.triggers,
                                   [&](const QString& trigger) { return search.isIn(trigger); });
    });
    return found;
}

std::vector<ReferenceItem> referenceContents(const CustomCommandList& commands,
                                             const ReferenceSelection& selection, const QString& searchText) {
    std::vector<ReferenceItem> items;
    if (selection.includes(CommandCategory::navigation)) {
        const LocalizedSearch search(searchText);
        std::ranges::copy_if(barNavigationForms(), std::back_inserter(items),
                             [&](const BarNavigationForm& form) {
                                 return search.isIn(form.phrase) || search.isIn(form.description);
                             });
    }
    std::ranges::copy(filteredBuiltIn(selection, searchText), std::back_inserter(items));
    const CustomCommandList custom = filteredCustom(commands, selection, searchText);
    const bool hasNothing = items.empty() && custom.isEmpty();

    if (selection.isAll() || selection.isCustom()) {
        items.emplace_back(ManageButton{});
    }
    if (selection.isAll() && !custom.isEmpty()) {
        items.emplace_back(CustomSectionHeader{}); // under Custom the title above the list says the same
    }
    std::ranges::copy(custom, std::back_inserter(items));
    if (hasNothing && !searchText.isEmpty()) {
        items.emplace_back(NoMatches{});
    }
    return items;
}

} // namespace brivandel

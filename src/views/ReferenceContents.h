#pragma once

#include "commands/CustomCommand.h"
#include "commands/VoiceCommand.h"
#include "views/ReferenceSelection.h"

#include <QList>
#include <QString>

#include <variant>
#include <vector>

namespace brivandel {

/// One of the two spoken forms with a bar's number.
struct BarNavigationForm {
    QString phrase;
    QString description;
};

// What else stands in the list besides commands.
struct ManageButton {};
struct CustomSectionHeader {};
struct NoMatches {};

/// One row of the command reference.
using ReferenceItem = std::variant<BarNavigationForm, VoiceCommand, ManageButton, CustomSectionHeader,
                                   CustomCommand, NoMatches>;

/// The built-in commands of the selection, in their order, whose name or description has the text in it.
/// Their triggers are not searched.
[[nodiscard]] QList<VoiceCommand> filteredBuiltIn(const ReferenceSelection& selection,
                                                  const QString& searchText);

/// The user's commands, in their order, whose name or one of whose triggers has the text in it; none where
/// the selection does not list them.
[[nodiscard]] CustomCommandList filteredCustom(const CustomCommandList& commands,
                                               const ReferenceSelection& selection,
                                               const QString& searchText);

/// Everything that the list shows, from top to bottom.
[[nodiscard]] std::vector<ReferenceItem> referenceContents(const CustomCommandList& commands,
                                                           const ReferenceSelection& selection,
                                                           const QString& searchText);

} // namespace brivandel

#pragma once

#include "commands/CommandCategory.h"

#include <QString>

namespace brivandel {

/// What the command reference lists: one category, every built-in command, or the user's own.
class ReferenceSelection {
public:
    [[nodiscard]] static ReferenceSelection all() { return {Kind::All, {}}; }
    [[nodiscard]] static ReferenceSelection of(CommandCategory category) {
        return {Kind::Category, category};
    }
    [[nodiscard]] static ReferenceSelection custom() { return {Kind::Custom, {}}; }

    [[nodiscard]] bool isAll() const { return kind_ == Kind::All; }
    [[nodiscard]] bool isCustom() const { return kind_ == Kind::Custom; }
    /// Whether commands of the category are listed.
    [[nodiscard]] bool includes(CommandCategory category) const {
        return kind_ == Kind::All || (kind_ == Kind::Category && category_ == category);
    }
    [[nodiscard]] QString headerTitle() const;

    bool operator==(const ReferenceSelection&) const = default;

private:
    enum class Kind { All, Category, Custom };

    ReferenceSelection(Kind kind, CommandCategory category) : kind_(kind), category_(category) {}

    Kind kind_;
    CommandCategory category_; // of no meaning, and always the first, where the kind has none
};

} // namespace brivandel

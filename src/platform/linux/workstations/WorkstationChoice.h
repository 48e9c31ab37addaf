#pragma once

#include "platform/linux/applescript/StandIn.h"
#include "platform/linux/workstations/KnownWorkstations.h"

namespace brivandel {

/// Who was named stands for "Logic Pro", with the keys of the profile that goes by that name, if there is
/// one. When nobody was named, the one known workstation that runs; a program called "Logic Pro" is one of
/// them, whose keys are the scripts' own. Two profiles that find the same program are one workstation: the
/// first of the known ones goes. When none runs, "Logic Pro", which is then not found.
class WorkstationChoice final : public StandInChoice {
public:
    /// named: an empty text when nobody was. settingPath: the file in which a person can name one.
    WorkstationChoice(TargetName named, KnownWorkstations known, QString settingPath);

    [[nodiscard]] std::variant<StandIn, QString> choose(const FindProgram& find) const override;

private:
    TargetName named_;
    KnownWorkstations known_;
    QString settingPath_;
};

/// The first of the profile's process names that runs; none when the workstation does not.
[[nodiscard]] std::optional<TargetName> runningProcess(const WorkstationProfile& profile,
                                                       const StandInChoice::FindProgram& find);

} // namespace brivandel

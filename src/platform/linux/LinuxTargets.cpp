#include "platform/Targets.h"
#include "platform/linux/TargetSetting.h"
#include "platform/linux/workstations/RunningWorkstations.h"
#include "platform/linux/workstations/WorkstationChoice.h"

#include <algorithm>

namespace brivandel {

TargetList listTargets(const QString& wanted) {
    const TargetSetting setting = targetSetting({.target = wanted});
    const KnownWorkstations known = readKnownWorkstations();
    const RunningWorkstations isRunning;
    // As scripts are sent: to nobody while the target's name cannot be read.
    const std::variant<StandIn, QString> choice =
        setting.problem.isEmpty() ? WorkstationChoice(setting.name, known).choose(isRunning)
                                  : setting.problem;

    TargetList list;
    list.problems = known.problems;
    if (const auto* const problem = std::get_if<QString>(&choice)) {
        list.problems += *problem;
    }
    const auto* const standIn = std::get_if<StandIn>(&choice);
    for (const KnownWorkstation& workstation : known.all) {
        list.targets.push_back({.name = workstation.profile.name,
                                .isRunning = runningProcess(workstation.profile, isRunning).has_value(),
                                .isChosen = standIn != nullptr && standIn->keys == workstation.profile.keys,
                                .profile = workstation.path,
                                .tried = workstation.profile.tried});
    }
    const TargetName logicPro{QStringLiteral("Logic Pro")};
    const TargetName chosen =
        standIn == nullptr || standIn->target.text.isEmpty() ? logicPro : standIn->target;
    const bool isWithoutProfile = standIn != nullptr && !standIn->keys;
    list.targets.push_back({.name = logicPro.text,
                            .isRunning = isRunning(logicPro),
                            .isChosen = isWithoutProfile && chosen == logicPro,
                            .profile = {},
                            .tried = {}});
    if (isWithoutProfile && chosen != logicPro) {
        list.targets.push_back({.name = chosen.text,
                                .isRunning = isRunning(chosen),
                                .isChosen = true,
                                .profile = {},
                                .tried = {}});
    }
    return list;
}

} // namespace brivandel

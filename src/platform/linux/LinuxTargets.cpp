#include "platform/Targets.h"
#include "platform/linux/TargetChoice.h"
#include "platform/linux/workstations/WorkstationChoice.h"

namespace brivandel {

TargetList listTargets(const QString& wanted) {
    const auto targetChoice = readTargetChoice(wanted);
    const TargetOutlook outlook = targetChoice->look();
    const bool isKnownWhatRuns = outlook.running.problem().isEmpty();
    const auto isRunning = [&](const std::optional<TargetName>& process) {
        return isKnownWhatRuns ? std::optional(process && outlook.running(*process)) : std::nullopt;
    };

    TargetList list;
    list.problems = targetChoice->known().problems;
    const auto* const standIn = std::get_if<StandIn>(&outlook.choice);
    if (standIn == nullptr) {
        list.problems += std::get<QString>(outlook.choice);
    }
    for (const auto& [profile, path] : targetChoice->known().all) {
        list.targets.push_back({.name = profile.name,
                                .isRunning = isRunning(runningProcess(profile, outlook.running)),
                                .isChosen = standIn != nullptr && standIn->keys == profile.keys,
                                .profile = path,
                                .tried = profile.tried});
    }
    const TargetName logicPro{QStringLiteral("Logic Pro")};
    const bool isWithoutProfile = standIn != nullptr && !standIn->keys;
    const auto addWithoutProfile = [&](const TargetName& name) {
        list.targets.push_back({.name = name.text,
                                .isRunning = isRunning(name),
                                .isChosen = isWithoutProfile && outlook.target() == name,
                                .profile = {},
                                .tried = {}});
    };
    addWithoutProfile(logicPro);
    if (isWithoutProfile && outlook.target() != logicPro) {
        addWithoutProfile(outlook.target());
    }
    return list;
}

} // namespace brivandel

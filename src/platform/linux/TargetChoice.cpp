#include "platform/linux/TargetChoice.h"

#include "platform/linux/workstations/WorkstationChoice.h"

#include <utility>

namespace brivandel {

std::unique_ptr<const StandInChoice> makeStandInChoice(const TargetSetting& setting,
                                                       KnownWorkstations known) {
    if (setting.problem.isEmpty()) {
        return std::make_unique<WorkstationChoice>(setting.name, std::move(known));
    }
    // Whoever named a program does not want another one to get the keys.
    return std::make_unique<NoStandIn>(
        QStringLiteral("The target's name cannot be read: %1").arg(setting.problem));
}

TargetName TargetOutlook::target() const {
    const auto* const standIn = std::get_if<StandIn>(&choice);
    return standIn == nullptr || standIn->target.text.isEmpty() ? TargetName{QStringLiteral("Logic Pro")}
                                                                : standIn->target;
}

TargetOutlook lookForTarget(const QString& wanted) {
    TargetOutlook outlook{.setting = targetSetting({.target = wanted}),
                          .known = readKnownWorkstations(),
                          .running = RunningWorkstations(),
                          .choice = {}};
    if (const QString& problem = outlook.running.problem(); !problem.isEmpty()) {
        outlook.choice = problem;
    } else {
        outlook.choice = makeStandInChoice(outlook.setting, outlook.known)->choose(outlook.running);
    }
    return outlook;
}

} // namespace brivandel

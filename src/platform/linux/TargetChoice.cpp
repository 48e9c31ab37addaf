#include "platform/linux/TargetChoice.h"

#include "platform/linux/keys/X11KeySender.h"
#include "platform/linux/workstations/WorkstationChoice.h"

#include <utility>

namespace brivandel {

namespace {

std::shared_ptr<const StandInChoice> standInFor(const TargetSetting& setting,
                                                const KnownWorkstations& known) {
    if (setting.problem.isEmpty()) {
        return std::make_shared<WorkstationChoice>(setting.name, known, targetFilePath());
    }
    // Whoever named a program does not want another one to get the keys.
    return std::make_shared<NoStandIn>(
        QStringLiteral("The target's name cannot be read: %1").arg(setting.problem));
}

} // namespace

TargetName TargetOutlook::target() const {
    const auto* const standIn = std::get_if<StandIn>(&choice);
    return standIn == nullptr || standIn->target.text.isEmpty() ? TargetName{QStringLiteral("Logic Pro")}
                                                                : standIn->target;
}

TargetChoice::TargetChoice(TargetSetting setting, KnownWorkstations known, std::unique_ptr<KeySender> display)
    : setting_(std::move(setting))
    , known_(std::move(known))
    , standIn_(standInFor(setting_, known_))
    , display_(std::move(display)) {}

TargetOutlook TargetChoice::look() const {
    TargetOutlook outlook{.running = RunningWorkstations(*display_), .choice = {}};
    if (const QString& problem = outlook.running.problem(); !problem.isEmpty()) {
        outlook.choice = problem;
    } else {
        outlook.choice = standIn_->choose(outlook.running);
    }
    return outlook;
}

QString TargetChoice::inWords() const {
    const TargetOutlook outlook = look();
    const auto* const standIn = std::get_if<StandIn>(&outlook.choice);
    if (standIn == nullptr) {
        return std::get<QString>(outlook.choice);
    }
    const TargetName target = outlook.target();
    const QString name = standIn->name.isEmpty() ? target.text : standIn->name;
    return outlook.running(target) ? QStringLiteral("Commands go to %1.").arg(name)
                                   : QStringLiteral("Commands go to %1, which is not running.").arg(name);
}

std::unique_ptr<const TargetChoice> readTargetChoice(const QString& wanted,
                                                     std::unique_ptr<KeySender> display) {
    return std::make_unique<TargetChoice>(targetSetting({.target = wanted}), readKnownWorkstations(),
                                          display ? std::move(display) : std::make_unique<X11KeySender>());
}

} // namespace brivandel

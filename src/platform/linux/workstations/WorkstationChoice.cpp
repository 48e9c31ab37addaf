#include "platform/linux/workstations/WorkstationChoice.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace brivandel {

namespace {

const QString& workstation() {
    static const QString name = QStringLiteral("Logic Pro");
    return name;
}

} // namespace

WorkstationChoice::WorkstationChoice(TargetName named, KnownWorkstations known, QString settingPath)
    : named_(std::move(named))
    , known_(std::move(known))
    , settingPath_(std::move(settingPath)) {}

std::variant<StandIn, QString> WorkstationChoice::choose(const FindProgram& find) const {
    if (!named_.text.isEmpty()) {
        StandIn standIn{named_, {}, {}};
        const KnownWorkstation* const known =
            named_.by == TargetName::By::Process ? known_.called(named_.text) : nullptr;
        if (known != nullptr) {
            standIn.keys = known->profile.keys;
            // Its profile may know it under a name that the display has, when the user's word is another.
            if (!find(named_)) {
                standIn.target = runningProcess(known->profile, find).value_or(named_);
                standIn.name = named_.text;
            }
        }
        return standIn;
    }
    std::vector<StandIn> running;
    std::vector<KeyTarget> programs;
    const auto add = [&](StandIn standIn) {
        const auto program = find(standIn.target);
        if (program && std::ranges::find(programs, *program) == programs.end()) {
            programs.push_back(*program);
            running.push_back(std::move(standIn));
        }
    };
    add({TargetName{workstation()}, {}, {}});
    for (const KnownWorkstation& known : known_.all) {
        if (auto process = runningProcess(known.profile, find)) {
            add({*std::move(process), known.profile.name, known.profile.keys});
        }
    }
    if (running.empty()) {
        return StandIn();
    }
    if (running.size() > 1) {
        QStringList names;
        for (const StandIn& standIn : running) {
            names += standIn.name.isEmpty() ? standIn.target.text : standIn.name;
        }
        const QString last = names.takeLast();
        return QStringLiteral("%1 and %2 are running, and none is chosen: end all but one, or name one in "
                              "%3, which is read when Brivandel starts.")
            .arg(names.join(QStringLiteral(", ")), last, settingPath_);
    }
    return running.front();
}

std::optional<TargetName> runningProcess(const WorkstationProfile& profile,
                                         const StandInChoice::FindProgram& find) {
    for (const QString& process : profile.processes) {
        if (const TargetName name{process}; find(name)) {
            return name;
        }
    }
    return std::nullopt;
}

} // namespace brivandel

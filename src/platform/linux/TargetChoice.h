#pragma once

#include "platform/linux/TargetSetting.h"
#include "platform/linux/applescript/StandIn.h"
#include "platform/linux/workstations/KnownWorkstations.h"
#include "platform/linux/workstations/RunningWorkstations.h"

#include <memory>
#include <variant>

namespace brivandel {

/// The one rule by which scripts, and those who tell a person about it, find who stands for "Logic Pro": the
/// one that was named, else the known workstation that runs; nobody while the name cannot be read.
[[nodiscard]] std::unique_ptr<const StandInChoice> makeStandInChoice(const TargetSetting& setting,
                                                                     KnownWorkstations known);

/// Who a command would go to, as of the moment in which this was made.
struct TargetOutlook {
    TargetSetting setting;
    KnownWorkstations known;
    RunningWorkstations running;
    /// The stand-in, or as a sentence why there is none.
    std::variant<StandIn, QString> choice;

    /// The stand-in's name on the display, that of Logic Pro without one.
    [[nodiscard]] TargetName target() const;
};

/// wanted: as PlatformOptions has it. Takes up to two seconds. Any thread.
[[nodiscard]] TargetOutlook lookForTarget(const QString& wanted);

} // namespace brivandel

#pragma once

#include "platform/Targets.h"
#include "platform/linux/TargetSetting.h"
#include "platform/linux/applescript/StandIn.h"
#include "platform/linux/keys/KeySender.h"
#include "platform/linux/workstations/KnownWorkstations.h"
#include "platform/linux/workstations/RunningWorkstations.h"

#include <QString>

#include <memory>
#include <variant>

namespace brivandel {

/// Who a command would go to, as of the moment in which this was made.
struct TargetOutlook {
    RunningWorkstations running;
    /// The stand-in, or as a sentence why there is none.
    std::variant<StandIn, QString> choice;

    /// The stand-in's name on the display, that of Logic Pro without one.
    [[nodiscard]] TargetName target() const;
};

/// Which program stands for "Logic Pro", by what was said of that and the workstations that are known. Both
/// are read once; which workstations run is asked anew each time. Scripts, and those who tell a person about
/// them, go by the same of these, so that they cannot disagree. Any thread.
class TargetChoice final : public TargetInquiry {
public:
    /// display: asked which workstations run.
    TargetChoice(TargetSetting setting, KnownWorkstations known, std::unique_ptr<KeySender> display);

    [[nodiscard]] const TargetSetting& setting() const { return setting_; }
    [[nodiscard]] const KnownWorkstations& known() const { return known_; }
    /// The one that was named, else the known workstation that runs; nobody while the name cannot be read. It
    /// may outlive this.
    [[nodiscard]] std::shared_ptr<const StandInChoice> standIn() const { return standIn_; }

    /// Takes up to two seconds.
    [[nodiscard]] TargetOutlook look() const;
    [[nodiscard]] QString inWords() const override;

private:
    TargetSetting setting_;
    KnownWorkstations known_;
    std::shared_ptr<const StandInChoice> standIn_;
    std::unique_ptr<KeySender> display_;
};

/// By what the environment, the file and the profiles say now. wanted: as PlatformOptions has it. display:
/// null for the X display.
[[nodiscard]] std::unique_ptr<const TargetChoice>
readTargetChoice(const QString& wanted, std::unique_ptr<KeySender> display = nullptr);

} // namespace brivandel

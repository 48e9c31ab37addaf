#include "platform/Targets.h"
#include "platform/macos/MacServices.h"
#include "platform/macos/MacTrust.h"

#include <memory>

namespace brivandel {

namespace {

class MacTargetInquiry final : public TargetInquiry {
public:
    [[nodiscard]] QString inWords() const override {
        return isRunning(QStringLiteral("Logic Pro"))
                   ? QStringLiteral("Commands go to Logic Pro.")
                   : QStringLiteral("Commands go to Logic Pro, which is not running.");
    }
};

} // namespace

// Logic Pro itself is here, and nothing stands for it.
TargetList listTargets(const QString& /*wanted*/) {
    const QString workstation = QStringLiteral("Logic Pro");
    TargetList list;
    list.targets.push_back({.name = workstation,
                            .isRunning = isRunning(workstation),
                            .isChosen = true,
                            .profile = {},
                            .tried = {}});
    return list;
}

std::unique_ptr<const TargetInquiry> makeMacTargetInquiry() {
    return std::make_unique<MacTargetInquiry>();
}

} // namespace brivandel

#include "platform/linux/workstations/RunningWorkstations.h"

#include <utility>

namespace brivandel {

RunningWorkstations::RunningWorkstations(KeySender& display, std::chrono::milliseconds patience)
    : deadline_(std::chrono::steady_clock::now() + patience) {
    auto opened = display.openSession(deadline_);
    if (auto* const session = std::get_if<std::unique_ptr<KeySession>>(&opened)) {
        session_ = std::move(*session);
    } else {
        problem_ = std::get<KeyFailure>(opened).detail;
    }
}

std::optional<KeyTarget> RunningWorkstations::operator()(const TargetName& name) const {
    if (!session_) {
        return std::nullopt;
    }
    const auto found = session_->find(name, deadline_);
    const auto* const target = std::get_if<KeyTarget>(&found);
    return target == nullptr ? std::nullopt : std::optional(*target);
}

} // namespace brivandel

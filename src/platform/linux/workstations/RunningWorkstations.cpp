#include "platform/linux/workstations/RunningWorkstations.h"

#include "platform/linux/keys/X11KeySender.h"

#include <utility>

namespace brivandel {

RunningWorkstations::RunningWorkstations(std::chrono::milliseconds patience)
    : deadline_(std::chrono::steady_clock::now() + patience) {
    auto opened = X11KeySender().openSession(deadline_);
    if (auto* const session = std::get_if<std::unique_ptr<KeySession>>(&opened)) {
        session_ = std::move(*session);
    }
}

bool RunningWorkstations::operator()(const TargetName& name) const {
    return session_ && std::holds_alternative<KeyTarget>(session_->find(name, deadline_));
}

} // namespace brivandel

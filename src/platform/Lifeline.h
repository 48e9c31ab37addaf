#pragma once

#include <memory>
#include <utility>

namespace brivandel {

/// Lets callbacks that may outlive their owner ask whether it is still there. The owner holds one as a
/// member; a guarded callback does nothing once the owner is gone. Guarding is allowed on any thread, calling
/// only on the owner's.
class Lifeline {
public:
    template <typename Callback>
    [[nodiscard]] auto guard(Callback callback) const {
        return [life = std::weak_ptr<const char>(life_),
                callback = std::move(callback)](auto&&... arguments) mutable {
            if (!life.expired()) {
                callback(std::forward<decltype(arguments)>(arguments)...);
            }
        };
    }

private:
    std::shared_ptr<const char> life_ = std::make_shared<const char>();
};

} // namespace brivandel

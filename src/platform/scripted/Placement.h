#pragma once

#include <memory>
#include <utility>

namespace brivandel {

/// Makes a service and puts it where it belongs; the reference is for whoever plays it.
template <typename Service, typename Slot, typename... Arguments>
Service& place(std::unique_ptr<Slot>& slot, Arguments&&... arguments) {
    auto service = std::make_unique<Service>(std::forward<Arguments>(arguments)...);
    Service& reference = *service;
    slot = std::move(service);
    return reference;
}

} // namespace brivandel

#pragma once

#include <QString>

#include <nlohmann/json.hpp>

#include <functional>
#include <string_view>

namespace brivandel {

/// Where scripted services report what was asked of them: the event's name, and its members in the order of
/// printing.
using EventSink = std::function<void(std::string_view event, nlohmann::ordered_json members)>;

} // namespace brivandel

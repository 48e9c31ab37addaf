#pragma once

#include <QVariant>

#include <nlohmann/json.hpp>

namespace brivandel {

/// A stored object as a "store" event shows it: data as the text that it holds; null for what a defaults
/// store does not keep.
[[nodiscard]] nlohmann::ordered_json storedValueJson(const QVariant& value);

} // namespace brivandel

#pragma once

#include <QMetaProperty>

#include <nlohmann/json.hpp>

#include <vector>

namespace brivandel {

class VoiceController;

/// The observable properties, in the order of their declaration.
[[nodiscard]] std::vector<QMetaProperty> observableProperties();

/// A property's value as it is printed: a history as its length, a level with six significant digits, the
/// collections in their stored form.
[[nodiscard]] nlohmann::ordered_json propertyJson(const VoiceController& controller,
                                                  const QMetaProperty& property);

} // namespace brivandel

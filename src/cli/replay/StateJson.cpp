#include "cli/replay/StateJson.h"

#include "commands/CommandStorage.h"
#include "listening/VoiceController.h"

namespace brivandel {

namespace {

nlohmann::ordered_json stored(const QByteArray& json) {
    return nlohmann::ordered_json::parse(json.cbegin(), json.cend());
}

} // namespace

std::vector<QMetaProperty> observableProperties() {
    const QMetaObject& type = VoiceController::staticMetaObject;
    std::vector<QMetaProperty> properties;
    for (int index = type.propertyOffset(); index < type.propertyCount(); ++index) {
        properties.push_back(type.property(index));
    }
    return properties;
}

nlohmann::ordered_json propertyJson(const VoiceController& controller, const QMetaProperty& property) {
    const QVariant value = property.read(&controller);
    if (value.canConvert<CommandHistory>() && value.metaType() == QMetaType::fromType<CommandHistory>()) {
        return value.value<CommandHistory>().size();
    }
    if (value.metaType() == QMetaType::fromType<CustomCommandList>()) {
        return stored(encodeCustomCommands(value.value<CustomCommandList>()));
    }
    if (value.metaType() == QMetaType::fromType<TriggerOverrides>()) {
        return stored(encodeTriggerOverrides(value.value<TriggerOverrides>()));
    }
    if (value.metaType() == QMetaType::fromType<std::optional<QString>>()) {
        const auto text = value.value<std::optional<QString>>();
        return text ? nlohmann::ordered_json(text->toStdString()) : nlohmann::ordered_json(nullptr);
    }
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Float: {
        constexpr int significantDigits = 6;
        return QString::number(value.toDouble(), 'g', significantDigits).toDouble();
    }
    default:
        return value.toString().toStdString();
    }
}

} // namespace brivandel

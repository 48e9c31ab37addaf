#include "commands/CommandStorage.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <string>

namespace brivandel {

namespace {

using Json = nlohmann::ordered_json;

std::string toUtf8(const QString& text) {
    return text.toStdString();
}

Json toJson(const QStringList& texts) {
    Json array = Json::array();
    for (const QString& text : texts) {
        array.push_back(toUtf8(text));
    }
    return array;
}

Json toJson(const CustomCommand& command) {
    return {
        {"id", toUtf8(command.id.toString(QUuid::WithoutBraces).toUpper())},
        {"name", toUtf8(command.name)},
        {"triggers", toJson(command.triggers)},
        {"capturedKey",
         {
             {"keyCode", command.capturedKey.keyCode},
             {"modifierFlags", command.capturedKey.modifierFlags},
             {"displayString", toUtf8(command.capturedKey.displayString)},
             {"appleScript", toUtf8(command.capturedKey.appleScript)},
         }},
        {"isEnabled", command.isEnabled},
    };
}

// Each read... takes the member's value, or says by false that the whole document is not in the stored form.

bool read(const Json& json, QString& text) {
    if (!json.is_string()) {
        return false;
    }
    text = QString::fromStdString(json.get_ref<const std::string&>());
    return true;
}

bool read(const Json& json, bool& flag) {
    if (!json.is_boolean()) {
        return false;
    }
    flag = json.get<bool>();
    return true;
}

bool read(const Json& json, std::int64_t& number) {
    const bool fits = json.is_number_unsigned() ? json.get<std::uint64_t>() <=
                                                      std::uint64_t{std::numeric_limits<std::int64_t>::max()}
                                                : json.is_number_integer();
    if (!fits) {
        return false;
    }
    number = json.get<std::int64_t>();
    return true;
}

bool read(const Json& json, QUuid& id) {
    QString text;
    constexpr qsizetype canonicalLength = 36; // 8-4-4-4-12; QUuid alone would take other forms, too
    if (!read(json, text) || text.size() != canonicalLength) {
        return false;
    }
    id = QUuid::fromString(text);
    return id.toString(QUuid::WithoutBraces) == text.toLower();
}

bool read(const Json& json, QStringList& texts) {
    return json.is_array() && std::ranges::all_of(json, [&texts](const Json& element) {
               QString text;
               const bool isText = read(element, text);
               texts.append(text);
               return isText;
           });
}

bool read(const Json& json, CapturedKey& key);

template <typename Value>
bool readMember(const Json& object, const char* name, Value& value) {
    const auto member = object.find(name);
    return member != object.end() && read(*member, value);
}

bool read(const Json& json, CapturedKey& key) {
    return json.is_object() && readMember(json, "keyCode", key.keyCode) &&
           readMember(json, "modifierFlags", key.modifierFlags) &&
           readMember(json, "displayString", key.displayString) &&
           readMember(json, "appleScript", key.appleScript);
}

bool read(const Json& json, CustomCommand& command) {
    return json.is_object() && readMember(json, "id", command.id) && readMember(json, "name", command.name) &&
           readMember(json, "triggers", command.triggers) &&
           readMember(json, "capturedKey", command.capturedKey) &&
           readMember(json, "isEnabled", command.isEnabled);
}

Json parse(const QByteArray& text) {
    constexpr bool allowExceptions = false;
    return Json::parse(text.cbegin(), text.cend(), nullptr, allowExceptions);
}

QByteArray dump(const Json& json) {
    return QByteArray::fromStdString(json.dump());
}

} // namespace

QByteArray encodeCustomCommands(const CustomCommandList& commands) {
    Json array = Json::array();
    for (const CustomCommand& command : commands) {
        array.push_back(toJson(command));
    }
    return dump(array);
}

std::optional<CustomCommandList> decodeCustomCommands(const QByteArray& json) {
    const Json array = parse(json);
    if (!array.is_array()) {
        return std::nullopt;
    }
    CustomCommandList commands;
    for (const Json& element : array) {
        if (!read(element, commands.emplace_back())) {
            return std::nullopt;
        }
    }
    return commands;
}

QByteArray encodeTriggerOverrides(const TriggerOverrides& overrides) {
    Json object = Json::object();
    for (auto entry = overrides.cbegin(); entry != overrides.cend(); ++entry) {
        object[toUtf8(entry.key())] = toJson(entry.value());
    }
    return dump(object);
}

std::optional<TriggerOverrides> decodeTriggerOverrides(const QByteArray& json) {
    const Json object = parse(json);
    if (!object.is_object()) {
        return std::nullopt;
    }
    TriggerOverrides overrides;
    for (const auto& [name, value] : object.items()) {
        if (!read(value, overrides[QString::fromStdString(name)])) {
            return std::nullopt;
        }
    }
    return overrides;
}

} // namespace brivandel

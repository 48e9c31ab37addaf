#include "cli/ScriptErrorJson.h"

namespace brivandel {

namespace {

nlohmann::ordered_json toJson(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::QString:
        return value.toString().toStdString();
    case QMetaType::QVariantList: {
        auto array = nlohmann::ordered_json::array();
        for (const QVariant& element : value.toList()) {
            array.push_back(toJson(element));
        }
        return array;
    }
    default:
        return value.toLongLong();
    }
}

} // namespace

nlohmann::ordered_json scriptErrorJson(const ScriptErrorDictionary& error) {
    auto json = nlohmann::ordered_json::object();
    for (auto entry = error.cbegin(); entry != error.cend(); ++entry) {
        json[entry.key().toStdString()] = toJson(entry.value());
    }
    return json;
}

} // namespace brivandel

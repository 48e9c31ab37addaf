#include "cli/replay/ScenarioStep.h"

#include <limits>
#include <utility>

namespace brivandel {

namespace {

[[noreturn]] void wrongType(const std::string& member, const char* wanted, const ScenarioStep::Json& value) {
    throw ScenarioError("\"" + member + "\" must be " + wanted + ", not " + value.dump());
}

} // namespace

bool scenarioBoolean(const ScenarioStep::Json& value, const std::string& member) {
    if (!value.is_boolean()) {
        wrongType(member, "true or false", value);
    }
    return value.get<bool>();
}

qlonglong scenarioInteger(const ScenarioStep::Json& value, const std::string& member) {
    const bool isTooLarge =
        value.is_number_unsigned() &&
        value.get<std::uint64_t>() > std::uint64_t{std::numeric_limits<std::int64_t>::max()};
    if (!value.is_number_integer() || isTooLarge) {
        wrongType(member, "an integer", value);
    }
    return value.get<qlonglong>();
}

double scenarioNumber(const ScenarioStep::Json& value, const std::string& member) {
    if (!value.is_number()) {
        wrongType(member, "a number", value);
    }
    return value.get<double>();
}

QString scenarioText(const ScenarioStep::Json& value, const std::string& member) {
    if (!value.is_string()) {
        wrongType(member, "a text", value);
    }
    return QString::fromStdString(value.get_ref<const std::string&>());
}

ScenarioStep::ScenarioStep(const std::string& line) : members_(Json::parse(line, nullptr, false)) {
    if (members_.is_discarded()) {
        throw ScenarioError("no JSON");
    }
    if (!members_.is_object()) {
        throw ScenarioError("a step must be a JSON object");
    }
    name_ = text("do").toStdString();
}

const ScenarioStep::Json* ScenarioStep::find(const char* member) {
    read_.insert(member);
    const auto found = members_.find(member);
    return found == members_.end() ? nullptr : &*found;
}

const ScenarioStep::Json& ScenarioStep::need(const char* member) {
    const Json* value = find(member);
    if (value == nullptr) {
        throw ScenarioError("\"" + std::string(member) + "\" is missing");
    }
    return *value;
}

bool ScenarioStep::boolean(const char* member) {
    return scenarioBoolean(need(member), member);
}

bool ScenarioStep::booleanOr(const char* member, bool absent) {
    const Json* value = find(member);
    return value == nullptr ? absent : scenarioBoolean(*value, member);
}

qlonglong ScenarioStep::integer(const char* member) {
    return scenarioInteger(need(member), member);
}

std::optional<qlonglong> ScenarioStep::optionalInteger(const char* member) {
    const Json* value = find(member);
    return value == nullptr ? std::nullopt : std::optional(scenarioInteger(*value, member));
}

double ScenarioStep::number(const char* member) {
    return scenarioNumber(need(member), member);
}

double ScenarioStep::numberOr(const char* member, double absent) {
    const Json* value = find(member);
    return value == nullptr ? absent : scenarioNumber(*value, member);
}

QString ScenarioStep::text(const char* member) {
    return scenarioText(need(member), member);
}

std::optional<QString> ScenarioStep::optionalText(const char* member) {
    const Json* value = find(member);
    return value == nullptr ? std::nullopt : std::optional(scenarioText(*value, member));
}

void ScenarioStep::expectNothingElse() const {
    for (const auto& [member, value] : members_.items()) {
        if (!read_.contains(member)) {
            throw ScenarioError("\"" + name_ + "\" has no member \"" + member + "\"");
        }
    }
}

} // namespace brivandel

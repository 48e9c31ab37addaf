#pragma once

#include <QString>

#include <nlohmann/json.hpp>

#include <optional>
#include <set>
#include <stdexcept>
#include <string>

namespace brivandel {

/// What is wrong with a line of a scenario, in words.
class ScenarioError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One step of a scenario: a JSON object whose members are read by name and type. Every reading throws
/// ScenarioError when the member is of another type, or is needed and missing.
class ScenarioStep {
public:
    using Json = nlohmann::ordered_json;

    /// Throws ScenarioError when the line is no JSON object with a text under "do".
    explicit ScenarioStep(const std::string& line);

    [[nodiscard]] const std::string& name() const { return name_; }

    [[nodiscard]] const Json* find(const char* member);
    [[nodiscard]] const Json& need(const char* member);

    [[nodiscard]] bool boolean(const char* member);
    [[nodiscard]] bool booleanOr(const char* member, bool absent);
    [[nodiscard]] qlonglong integer(const char* member);
    [[nodiscard]] std::optional<qlonglong> optionalInteger(const char* member);
    [[nodiscard]] double number(const char* member);
    [[nodiscard]] double numberOr(const char* member, double absent);
    [[nodiscard]] QString text(const char* member);
    [[nodiscard]] std::optional<QString> optionalText(const char* member);

    /// Throws when there is a member that nobody has asked for: it would be a mistake in the scenario.
    void expectNothingElse() const;

private:
    std::string name_;
    Json members_;
    std::set<std::string> read_;
};

/// Reads a value of a type, or throws ScenarioError that names the member.
[[nodiscard]] bool scenarioBoolean(const ScenarioStep::Json& value, const std::string& member);
[[nodiscard]] qlonglong scenarioInteger(const ScenarioStep::Json& value, const std::string& member);
[[nodiscard]] double scenarioNumber(const ScenarioStep::Json& value, const std::string& member);
[[nodiscard]] QString scenarioText(const ScenarioStep::Json& value, const std::string& member);

} // namespace brivandel

#include "platform/linux/workstations/WorkstationProfile.h"

#include "platform/linux/applescript/ScriptParser.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

namespace brivandel {

using script::BarSteps;
using script::NothingOfTheKind;
using script::Press;
using script::Step;
using script::Steps;

namespace {

/// What replaces one press; the longest of those shipped has six steps and waits for 0.4 seconds.
constexpr std::size_t maxStepCount = 32;
constexpr std::chrono::seconds maxWaits{5};

/// A fault found; unwinds to parseWorkstationProfile() and no further.
struct Fault {
    std::size_t offset;
    QString sentence;
};

const PlacedJson::Object& objectIn(const PlacedJson& json) {
    if (const auto* const object = std::get_if<PlacedJson::Object>(&json.value)) {
        return *object;
    }
    throw Fault{json.offset, QStringLiteral("an object {…} belongs here")};
}

const PlacedJson::Array& arrayIn(const PlacedJson& json) {
    if (const auto* const array = std::get_if<PlacedJson::Array>(&json.value)) {
        return *array;
    }
    throw Fault{json.offset, QStringLiteral("a list […] belongs here")};
}

QString textIn(const PlacedJson& json) {
    const auto* const text = std::get_if<QString>(&json.value);
    if (text == nullptr || text->trimmed().isEmpty()) {
        throw Fault{json.offset, QStringLiteral("a text \"…\" belongs here")};
    }
    return *text;
}

const PlacedJson* member(const PlacedJson& json, QStringView key) {
    const auto& members = objectIn(json);
    const auto found = std::ranges::find(members, key, &PlacedJson::Member::key);
    return found == members.end() ? nullptr : &found->value;
}

const PlacedJson& neededMember(const PlacedJson& json, const QString& key) {
    const PlacedJson* const found = member(json, key);
    if (found == nullptr) {
        throw Fault{json.offset, QStringLiteral("\"%1\" is missing here").arg(key)};
    }
    return *found;
}

void allowOnly(const PlacedJson& json, const QStringList& keys) {
    for (const PlacedJson::Member& member : objectIn(json)) {
        if (!keys.contains(member.key)) {
            throw Fault{member.keyOffset, QStringLiteral("\"%1\" means nothing here; it may be %2")
                                              .arg(member.key, keys.join(QStringLiteral(", ")))};
        }
    }
}

/// Whether a step may type the number of a bar.
enum class BarNumber : bool { Unknown, Known };

bool typesBar(const Step& step) {
    const auto* const keystroke = std::get_if<script::Keystroke>(&step);
    return keystroke != nullptr && script::namesBarNumber(keystroke->text);
}

/// One line of a script: a press, or a wait.
Step stepIn(const QString& line, std::size_t offset, BarNumber barNumber = BarNumber::Unknown) {
    const auto parsed = script::parseScript(line);
    if (const auto* const error = std::get_if<script::ScriptSyntaxError>(&parsed)) {
        throw Fault{offset, QStringLiteral("`%1` is no key press: %2").arg(line, error->message)};
    }
    const auto& body = std::get<script::Script>(parsed).body;
    std::optional<Step> step;
    if (body.size() == 1) {
        std::visit(
            [&](const auto& action) {
                if constexpr (std::is_constructible_v<Step, decltype(action)>) {
                    step = action;
                }
            },
            body.front().action);
    }
    if (!step) {
        throw Fault{offset, QStringLiteral("`%1` is not one key press").arg(line)};
    }
    if (barNumber == BarNumber::Unknown && typesBar(*step)) {
        throw Fault{
            offset,
            QStringLiteral("%1 stands for a number only under \"bar\", \"go\"").arg(script::barPlaceholder)};
    }
    return *step;
}

Press pressIn(const PlacedJson::Member& entry) {
    const Step step = stepIn(entry.key, entry.keyOffset);
    if (const auto* const keystroke = std::get_if<script::Keystroke>(&step)) {
        return *keystroke;
    }
    if (const auto* const key = std::get_if<script::KeyCode>(&step)) {
        return *key;
    }
    throw Fault{entry.keyOffset, QStringLiteral("a wait cannot be replaced")};
}

/// Counts what a list of steps asks for, and faults the one with which it is too much.
class Bounds {
public:
    void take(const Step& step, std::size_t offset) {
        if (const auto* const delay = std::get_if<script::Delay>(&step)) {
            waits_ += delay->duration;
        } else if (const auto* const keystroke = std::get_if<script::Keystroke>(&step)) {
            typedLength_ += keystroke->text.size();
        }
        if (++stepCount_ > maxStepCount) {
            throw Fault{offset, QStringLiteral("this is more than %1 steps").arg(maxStepCount)};
        }
        if (waits_ > maxWaits) {
            throw Fault{offset, QStringLiteral("with this the waits are longer than %1 seconds together")
                                    .arg(maxWaits.count())};
        }
        if (typedLength_ > script::limits::keystrokeLength) {
            throw Fault{offset, QStringLiteral("with this more than %1 characters are typed")
                                    .arg(script::limits::keystrokeLength)};
        }
    }

private:
    std::size_t stepCount_ = 0;
    std::chrono::milliseconds waits_{0};
    qsizetype typedLength_ = 0;
};

Steps stepsIn(const PlacedJson& json, BarNumber barNumber = BarNumber::Unknown) {
    Steps steps;
    Bounds bounds;
    const auto take = [&](const PlacedJson& line) {
        steps.push_back(stepIn(textIn(line), line.offset, barNumber));
        bounds.take(steps.back(), line.offset);
    };
    if (std::holds_alternative<QString>(json.value)) {
        take(json);
        return steps;
    }
    for (const PlacedJson& line : arrayIn(json)) {
        take(line);
    }
    if (steps.empty()) {
        throw Fault{json.offset,
                    QStringLiteral("a key press is missing; {\"nothing\": \"…\"} says that there is none")};
    }
    return steps;
}

std::optional<NothingOfTheKind> nothingIn(const PlacedJson& json) {
    if (!std::holds_alternative<PlacedJson::Object>(json.value)) {
        return std::nullopt;
    }
    const PlacedJson* const sentence = member(json, u"nothing");
    if (sentence == nullptr) {
        return std::nullopt;
    }
    allowOnly(json, {QStringLiteral("nothing")});
    return NothingOfTheKind{textIn(*sentence)};
}

std::uint64_t barNumberIn(const PlacedJson& json) {
    const auto* const bar = std::get_if<PlacedJson::Number>(&json.value);
    if (bar == nullptr) {
        throw Fault{json.offset, QStringLiteral("the number of a bar belongs here, as in 999")};
    }
    return *bar;
}

std::optional<script::BarRange> barRangeIn(const PlacedJson& json) {
    const PlacedJson* const first = member(json, u"first");
    if (first == nullptr && member(json, u"last") == nullptr && member(json, u"beyond") == nullptr) {
        return std::nullopt;
    }
    const PlacedJson& last = neededMember(json, QStringLiteral("last"));
    script::BarRange range{first == nullptr ? 0 : barNumberIn(*first), barNumberIn(last),
                           textIn(neededMember(json, QStringLiteral("beyond")))};
    if (range.last == 0 || range.first > range.last) {
        throw Fault{last.offset, QStringLiteral("there is no bar up to this one")};
    }
    return range;
}

std::variant<BarSteps, NothingOfTheKind> barIn(const PlacedJson& json) {
    if (auto nothing = nothingIn(json)) {
        return *std::move(nothing);
    }
    allowOnly(json, {QStringLiteral("go"), QStringLiteral("play"), QStringLiteral("first"),
                     QStringLiteral("last"), QStringLiteral("beyond")});
    const PlacedJson& go = neededMember(json, QStringLiteral("go"));
    BarSteps bar{stepsIn(go, BarNumber::Known), stepsIn(neededMember(json, QStringLiteral("play"))),
                 barRangeIn(json)};
    if (std::ranges::none_of(bar.goTo, typesBar)) {
        throw Fault{go.offset, QStringLiteral("no step types %1").arg(script::barPlaceholder)};
    }
    return bar;
}

WorkstationProfile profileIn(const PlacedJson& json) {
    allowOnly(json, {QStringLiteral("name"), QStringLiteral("processes"), QStringLiteral("tried"),
                     QStringLiteral("keys"), QStringLiteral("bar")});
    WorkstationProfile profile;
    profile.name = textIn(neededMember(json, QStringLiteral("name")));
    const PlacedJson& processes = neededMember(json, QStringLiteral("processes"));
    for (const PlacedJson& process : arrayIn(processes)) {
        profile.processes += textIn(process);
    }
    if (profile.processes.isEmpty()) {
        throw Fault{processes.offset, QStringLiteral("the name of a process is missing")};
    }
    if (const PlacedJson* const tried = member(json, u"tried")) {
        profile.tried = textIn(*tried);
    }
    script::KeyTable keys;
    for (const PlacedJson::Member& entry : objectIn(neededMember(json, QStringLiteral("keys")))) {
        const Press press = pressIn(entry);
        if (std::ranges::any_of(keys.presses, [&](const auto& other) { return other.first == press; })) {
            throw Fault{entry.keyOffset, QStringLiteral("`%1` stands here twice").arg(entry.key)};
        }
        if (auto nothing = nothingIn(entry.value)) {
            keys.presses.emplace_back(press, *std::move(nothing));
        } else {
            keys.presses.emplace_back(press, stepsIn(entry.value));
        }
    }
    if (const PlacedJson* const bar = member(json, u"bar")) {
        keys.bar = barIn(*bar);
    }
    profile.keys = std::make_shared<const script::KeyTable>(std::move(keys));
    return profile;
}

} // namespace

bool WorkstationProfile::isCalled(const QString& what) const {
    return name.compare(what, Qt::CaseInsensitive) == 0 || processes.contains(what, Qt::CaseInsensitive);
}

std::variant<WorkstationProfile, TextFault> parseWorkstationProfile(const QByteArray& text) {
    const auto parsed = parsePlacedJson(text);
    if (const auto* const fault = std::get_if<TextFault>(&parsed)) {
        return *fault;
    }
    try {
        return profileIn(std::get<PlacedJson>(parsed));
    } catch (const Fault& fault) {
        return faultAt(text, fault.offset, fault.sentence);
    }
}

} // namespace brivandel

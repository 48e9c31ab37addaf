#include "cli/replay/ReplaySession.h"

#include "cli/replay/StateJson.h"
#include "commands/CommandStorage.h"
#include "listening/VoiceController.h"

#include <QMetaMethod>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace brivandel {

using Json = ScenarioStep::Json;

namespace {

VirtualMainQueue::Duration duration(double seconds, const char* member) {
    constexpr double longestSeconds = 1e9; // some thirty years; far from where the clock would overflow
    if (!(seconds >= 0 && seconds <= longestSeconds)) {
        throw ScenarioError("\"" + std::string(member) + "\" must be between 0 and 1000000000");
    }
    return std::chrono::round<VirtualMainQueue::Duration>(std::chrono::duration<double>(seconds));
}

// Far above what any input has, and small enough to be held in memory.
constexpr std::uint32_t mostFrames = 1'000'000;
constexpr std::uint32_t mostChannels = 1'000;

template <typename Number>
Number inRange(qlonglong value, const char* member, Number most = std::numeric_limits<Number>::max()) {
    if (value < qlonglong{std::numeric_limits<Number>::min()} || value > qlonglong{most}) {
        throw ScenarioError("\"" + std::string(member) + "\" is out of range: " + std::to_string(value));
    }
    return static_cast<Number>(value);
}

Json secondsJson(VirtualMainQueue::Duration time) {
    const auto milliseconds = std::chrono::round<std::chrono::milliseconds>(time).count();
    constexpr double millisecondsPerSecond = 1000;
    return milliseconds % 1000 == 0 ? Json(milliseconds / 1000)
                                    : Json(static_cast<double>(milliseconds) / millisecondsPerSecond);
}

const QMetaProperty& propertyNamed(const std::vector<QMetaProperty>& properties, const QString& name) {
    const auto found = std::ranges::find(properties, name.toLatin1(), [](const QMetaProperty& property) {
        return QByteArray(property.name());
    });
    if (found == properties.end()) {
        throw ScenarioError("there is no property \"" + name.toStdString() + "\"");
    }
    return *found;
}

// What a scenario gives for a property of that type.
QVariant propertyValue(const QMetaProperty& property, const Json& value) {
    constexpr auto member = "value";
    if (property.metaType() == QMetaType::fromType<std::optional<QString>>()) {
        return QVariant::fromValue(value.is_null() ? std::nullopt
                                                   : std::optional(scenarioText(value, member)));
    }
    switch (property.typeId()) {
    case QMetaType::Bool:
        return scenarioBoolean(value, member);
    case QMetaType::LongLong:
        return scenarioInteger(value, member);
    case QMetaType::Float:
        return static_cast<float>(scenarioNumber(value, member));
    case QMetaType::QString:
        return scenarioText(value, member);
    default:
        throw ScenarioError("\"" + std::string(property.name()) + "\" has a step of its own, or none");
    }
}

QByteArray bytes(const Json& json) {
    return QByteArray::fromStdString(json.dump());
}

QVariant errorValue(const Json& value, const std::string& key) {
    if (value.is_string()) {
        return scenarioText(value, key);
    }
    if (value.is_array()) {
        QVariantList list;
        for (const Json& element : value) {
            list += scenarioInteger(element, key);
        }
        return list;
    }
    if (value.is_boolean()) {
        return value.get<bool>();
    }
    return value.is_number_float() ? QVariant(value.get<double>()) : QVariant(scenarioInteger(value, key));
}

std::vector<ScriptedChannel> channels(const Json& buffer) {
    constexpr auto member = "buffers";
    if (!buffer.is_array()) {
        throw ScenarioError("\"buffers\" must hold arrays of channels");
    }
    std::vector<ScriptedChannel> all;
    std::optional<std::size_t> length;
    for (const Json& channel : buffer) {
        if (channel.is_null()) {
            all.emplace_back();
            continue;
        }
        if (!channel.is_array()) {
            throw ScenarioError("a channel in \"buffers\" must be an array of samples or null");
        }
        std::vector<float> samples;
        for (const Json& sample : channel) {
            samples.push_back(static_cast<float>(scenarioNumber(sample, member)));
        }
        if (length && *length != samples.size()) {
            throw ScenarioError("the channels of a buffer must be of one length");
        }
        length = samples.size();
        all.emplace_back(std::move(samples));
    }
    return all;
}

} // namespace

ReplaySession::ReplaySession(Print print, const QVariantMap& storedObjects)
    : print_(std::move(print))
    , scripted_(makeScriptedPlatform(
          [this](std::string_view event, const Json& members) { this->print(event, members); },
          storedObjects)) {}

ReplaySession::~ReplaySession() = default;

void ReplaySession::print(std::string_view event, const Json& members) {
    Json effect = {{"t", secondsJson(scripted_.mainQueue.elapsed())}, {"event", event}};
    effect.update(members);
    print_(effect);
}

ReplaySession::Handler ReplaySession::handlerOf(const std::string& name) {
    struct Entry {
        std::string_view name;
        Handler handler;
    };
    static constexpr auto entries = std::to_array<Entry>({
        {"store", &ReplaySession::store},
        {"launch", &ReplaySession::launch},
        {"permission", &ReplaySession::permission},
        {"set", &ReplaySession::setProperty},
        {"customCommands", &ReplaySession::customCommands},
        {"overrides", &ReplaySession::overrides},
        {"hear", &ReplaySession::hear},
        {"recognitionError", &ReplaySession::recognitionError},
        {"engine", &ReplaySession::engine},
        {"recognizer", &ReplaySession::recognizer},
        {"request", &ReplaySession::request},
        {"input", &ReplaySession::input},
        {"devices", &ReplaySession::devices},
        {"audio", &ReplaySession::audio},
        {"script", &ReplaySession::script},
        {"wait", &ReplaySession::wait},
        {"show", &ReplaySession::show},
    });
    const auto* found = std::ranges::find(entries, name, &Entry::name);
    if (found == entries.end()) {
        throw ScenarioError("there is no step \"" + name + "\"");
    }
    return found->handler;
}

void ReplaySession::play(ScenarioStep& step) {
    (this->*handlerOf(step.name()))(step);
    scripted_.mainQueue.runDue();
}

void ReplaySession::propertyAssigned() {
    for (const QMetaProperty& property : observableProperties()) {
        if (property.notifySignalIndex() == senderSignalIndex()) {
            const auto& source = *qobject_cast<VoiceController*>(sender());
            print("change", {{"property", property.name()}, {"value", propertyJson(source, property)}});
        }
    }
}

void ReplaySession::launchProgram() {
    controller_.reset();
    scripted_.endProgram();
    controller_ = std::make_unique<VoiceController>(*scripted_.platform, [this](VoiceController& controller) {
        const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("propertyAssigned()"));
        for (const QMetaProperty& property : observableProperties()) {
            connect(&controller, property.notifySignal(), this, slot);
        }
    });
    scripted_.mainQueue.runDue();
}

VoiceController& ReplaySession::controller() {
    if (!controller_) {
        launchProgram();
    }
    return *controller_;
}

void ReplaySession::store(ScenarioStep& step) {
    const QString key = step.text("key");
    const Json& value = step.need("value");
    const auto type = step.optionalText("type");
    step.expectNothingElse();
    if (type && *type != QStringLiteral("data")) {
        throw ScenarioError(R"("type" must be "data", or absent)");
    }
    if (controller_) {
        throw ScenarioError(R"("store" must come before "launch")");
    }
    if (type) {
        scripted_.defaults.preset(key, scenarioText(value, "value").toUtf8());
    } else if (value.is_null()) {
        scripted_.defaults.preset(key, {});
    } else if (value.is_boolean()) {
        scripted_.defaults.preset(key, value.get<bool>());
    } else if (value.is_number_integer()) {
        scripted_.defaults.preset(key, scenarioInteger(value, "value"));
    } else if (value.is_number_float()) {
        scripted_.defaults.preset(key, value.get<double>());
    } else {
        scripted_.defaults.preset(key, scenarioText(value, "value"));
    }
}

void ReplaySession::launch(ScenarioStep& step) {
    step.expectNothingElse();
    launchProgram();
}

void ReplaySession::permission(ScenarioStep& step) {
    std::optional<SpeechAuthorization> speech;
    if (const Json* value = step.find("speech")) {
        static const QStringList names = {QStringLiteral("notDetermined"), QStringLiteral("denied"),
                                          QStringLiteral("restricted"), QStringLiteral("authorized")};
        if (value->is_string()) {
            const auto index = names.indexOf(scenarioText(*value, "speech"));
            if (index < 0) {
                throw ScenarioError("\"speech\" must be one of " +
                                    names.join(QStringLiteral(", ")).toStdString());
            }
            speech = static_cast<SpeechAuthorization>(index);
        } else {
            speech =
                static_cast<SpeechAuthorization>(inRange<int>(scenarioInteger(*value, "speech"), "speech"));
        }
    }
    std::optional<bool> microphone;
    if (const Json* value = step.find("microphone")) {
        microphone = scenarioBoolean(*value, "microphone");
    }
    step.expectNothingElse();
    static_cast<void>(controller());
    if (speech) {
        scripted_.permissions.answerSpeech(*speech);
    }
    if (microphone) {
        scripted_.permissions.answerMicrophone(*microphone);
    }
}

void ReplaySession::setProperty(ScenarioStep& step) {
    const auto properties = observableProperties();
    const QMetaProperty& property = propertyNamed(properties, step.text("property"));
    const QVariant value = propertyValue(property, step.need("value"));
    step.expectNothingElse();
    property.write(&controller(), value);
}

void ReplaySession::customCommands(ScenarioStep& step) {
    const auto commands = decodeCustomCommands(bytes(step.need("value")));
    const bool save = step.booleanOr("save", false);
    step.expectNothingElse();
    if (!commands) {
        throw ScenarioError("\"value\" must be an array of custom commands in their stored form");
    }
    controller().setCustomCommands(*commands);
    if (save) {
        controller().saveCustomCommands();
    }
}

void ReplaySession::overrides(ScenarioStep& step) {
    const auto overrides = decodeTriggerOverrides(bytes(step.need("value")));
    const bool save = step.booleanOr("save", false);
    step.expectNothingElse();
    if (!overrides) {
        throw ScenarioError("\"value\" must be an object of arrays of texts");
    }
    controller().setBuiltInTriggerOverrides(*overrides);
    if (save) {
        controller().saveTriggerOverrides();
    }
}

void ReplaySession::hear(ScenarioStep& step) {
    const RecognitionResult result{step.text("text"), step.booleanOr("final", false)};
    const auto error = step.optionalText("error");
    const auto task = step.optionalInteger("task");
    step.expectNothingElse();
    static_cast<void>(controller());
    scripted_.speechRecognition.deliver(result, error, task);
}

void ReplaySession::recognitionError(ScenarioStep& step) {
    const QString message = step.text("message");
    const auto task = step.optionalInteger("task");
    step.expectNothingElse();
    static_cast<void>(controller());
    scripted_.speechRecognition.deliver(std::nullopt, message, task);
}

void ReplaySession::engine(ScenarioStep& step) {
    const auto count = inRange<int>(step.integer("failStarts"), "failStarts");
    const QString message = step.optionalText("message").value_or(QString());
    step.expectNothingElse();
    scripted_.audioEngine.failStarts(count, message);
}

void ReplaySession::recognizer(ScenarioStep& step) {
    const bool available = step.boolean("available");
    step.expectNothingElse();
    if (controller_) {
        throw ScenarioError(R"("recognizer" must come before "launch")");
    }
    scripted_.speechRecognition.setRecognizerAvailable(available);
}

void ReplaySession::request(ScenarioStep& step) {
    const bool available = step.boolean("available");
    step.expectNothingElse();
    scripted_.speechRecognition.setRequestAvailable(available);
}

void ReplaySession::input(ScenarioStep& step) {
    AudioFormat format;
    format.sampleRateHz = step.numberOr("sampleRate", format.sampleRateHz);
    const auto count = [&step](const char* member, std::uint32_t absent) {
        return inRange<std::uint32_t>(step.optionalInteger(member).value_or(absent), member);
    };
    format.channelCount = inRange<std::uint32_t>(
        step.optionalInteger("channels").value_or(format.channelCount), "channels", mostChannels);
    format.formatID = count("formatID", format.formatID);
    format.bitsPerChannel = count("bitsPerChannel", format.bitsPerChannel);
    step.expectNothingElse();
    inputFormat_ = format;
    scripted_.audioEngine.setInputFormat(format);
}

void ReplaySession::devices(ScenarioStep& step) {
    std::vector<ScriptedAudioDevices::Entry> devices;
    const Json& value = step.need("value");
    if (!value.is_array()) {
        throw ScenarioError("\"value\" must be an array of devices");
    }
    for (const Json& device : value) {
        const auto member = [&device](const char* name) -> const Json& {
            if (!device.is_object() || !device.contains(name)) {
                throw ScenarioError(R"(a device must have "uid", "name" and "id")");
            }
            return device.at(name);
        };
        devices.push_back({{scenarioText(member("uid"), "uid"), scenarioText(member("name"), "name")},
                           inRange<AudioDeviceID>(scenarioInteger(member("id"), "id"), "id")});
    }
    const auto status = inRange<std::int32_t>(step.optionalInteger("status").value_or(0), "status");
    step.expectNothingElse();
    scripted_.audioDevices.setDevices(std::move(devices));
    scripted_.audioEngine.setDeviceStatus(status);
}

void ReplaySession::audio(ScenarioStep& step) {
    std::vector<std::vector<ScriptedChannel>> buffers;
    std::uint32_t times = 1;
    if (const Json* given = step.find("buffers")) {
        if (!given->is_array()) {
            throw ScenarioError("\"buffers\" must be an array");
        }
        for (const Json& buffer : *given) {
            buffers.push_back(channels(buffer));
        }
    } else {
        const auto sample = static_cast<float>(step.number("constant"));
        const auto frames = inRange<std::uint32_t>(step.integer("frames"), "frames", mostFrames);
        times = inRange<std::uint32_t>(step.optionalInteger("times").value_or(1), "times");
        buffers.emplace_back(inputFormat_.channelCount, std::vector<float>(frames, sample));
    }
    step.expectNothingElse();
    static_cast<void>(controller());
    for (std::uint32_t time = 0; time < times; ++time) {
        for (const auto& buffer : buffers) {
            scripted_.audioEngine.feed(buffer);
            scripted_.mainQueue.runDue();
        }
    }
}

void ReplaySession::script(ScenarioStep& step) {
    const Json& error = step.need("error");
    const auto time = duration(step.numberOr("seconds", 0), "seconds");
    step.expectNothingElse();
    if (error.is_null()) {
        scripted_.scriptHost.setOutcome(std::nullopt, time);
        return;
    }
    if (!error.is_object()) {
        throw ScenarioError("\"error\" must be an object or null");
    }
    ScriptErrorDictionary dictionary;
    for (const auto& [key, value] : error.items()) {
        dictionary.insert(QString::fromStdString(key), errorValue(value, key));
    }
    scripted_.scriptHost.setOutcome(dictionary, time);
}

void ReplaySession::wait(ScenarioStep& step) {
    const auto time = duration(step.number("seconds"), "seconds");
    step.expectNothingElse();
    scripted_.mainQueue.advance(time);
}

void ReplaySession::show(ScenarioStep& step) {
    const auto name = step.optionalText("property");
    step.expectNothingElse();
    auto properties = observableProperties();
    if (name) {
        properties = {propertyNamed(properties, *name)};
    }
    Json value = Json::object();
    for (const QMetaProperty& property : properties) {
        value[property.name()] = propertyJson(controller(), property);
    }
    print("state", {{"value", value}});
}

} // namespace brivandel

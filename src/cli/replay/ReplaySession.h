#pragma once

#include "cli/replay/ScenarioStep.h"
#include "platform/scripted/ScriptedPlatform.h"

#include <QObject>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <string>

namespace brivandel {

class VoiceController;

/// Plays the steps of a scenario against a real controller on a scripted platform, and reports what happens.
class ReplaySession final : public QObject {
    Q_OBJECT

public:
    /// One effect: {"t": seconds, "event": name, ...}.
    using Print = std::function<void(const nlohmann::ordered_json& effect)>;

    ReplaySession(Print print, const QVariantMap& storedObjects);
    ~ReplaySession() override;

    /// Throws ScenarioError when the step is unknown or a member of it is wrong; nothing of it has happened
    /// then, except that a program may have been launched for it.
    void play(ScenarioStep& step);

private Q_SLOTS:
    void propertyAssigned();

private:
    using Handler = void (ReplaySession::*)(ScenarioStep&);
    [[nodiscard]] static Handler handlerOf(const std::string& name);

    void print(std::string_view event, const nlohmann::ordered_json& members);
    void launchProgram();
    [[nodiscard]] VoiceController& controller();

    void store(ScenarioStep& step);
    void launch(ScenarioStep& step);
    void permission(ScenarioStep& step);
    void setProperty(ScenarioStep& step);
    void customCommands(ScenarioStep& step);
    void overrides(ScenarioStep& step);
    void hear(ScenarioStep& step);
    void recognitionError(ScenarioStep& step);
    void engine(ScenarioStep& step);
    void recognizer(ScenarioStep& step);
    void request(ScenarioStep& step);
    void input(ScenarioStep& step);
    void devices(ScenarioStep& step);
    void audio(ScenarioStep& step);
    void script(ScenarioStep& step);
    void wait(ScenarioStep& step);
    void show(ScenarioStep& step);

    Print print_;
    ScriptedPlatform scripted_;
    AudioFormat inputFormat_;
    std::unique_ptr<VoiceController> controller_;
};

} // namespace brivandel

#pragma once

#include "listening/VoiceController.h"
#include "platform/scripted/ScriptedPlatform.h"

#include <QVariantMap>

#include <string>
#include <vector>

namespace brivandel {

/// A real controller on a platform in virtual time that allows listening.
class ScriptedListening {
public:
    explicit ScriptedListening(const QVariantMap& storedObjects = {})
        : scripted(makeScriptedPlatform(
              [this](std::string_view event, const nlohmann::ordered_json& members) {
                  events.emplace_back(std::string(event) + ' ' + members.dump());
              },
              storedObjects))
        , controller(*scripted.platform) {
        scripted.permissions.answerSpeech(SpeechAuthorization::Authorized);
        scripted.permissions.answerMicrophone(true);
        scripted.mainQueue.runDue();
        events.clear();
    }

    std::vector<std::string> events;
    ScriptedPlatform scripted;
    VoiceController controller;
};

} // namespace brivandel

#include "listening/ListeningDay.h"

#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <utility>
#include <vector>

namespace brivandel {

using namespace std::chrono_literals;

namespace {

/// Longer than any script of such a day takes, and than any delay of the pipeline.
constexpr auto longestDelay = 12s;

template <std::size_t count>
QString pick(const std::array<const char16_t*, count>& texts, int index) {
    return QString::fromUtf16(texts.at(static_cast<std::size_t>(index)));
}

} // namespace

ListeningDay::ListeningDay(std::uint64_t seed)
    : chance_(seed)
    , watched_([this](std::string_view event, const nlohmann::ordered_json& members) {
        table_.observe(event, members);
        diary_.scripts += event == "script" ? 1 : 0;
        diary_.notifications += event == "notification" ? 1 : 0;
        tasks_ += event == "task" && members.at("action") == "begin" ? 1U : 0U;
    })
    , table_(watched_.mainQueue()) {
    relaunch();
}

std::span<const ListeningDay::Step> ListeningDay::steps() {
    static constexpr auto all = std::to_array<Step>({
        {30, &ListeningDay::waitAMoment},
        {20, &ListeningDay::waitLong},
        {2, &ListeningDay::leaveAlone},
        {10, &ListeningDay::switchOn},
        {4, &ListeningDay::switchOff},
        {1, &ListeningDay::toggleInOneTurn},
        {15, &ListeningDay::talk},
        {10, &ListeningDay::wake},
        {20, &ListeningDay::sayCommand},
        {6, &ListeningDay::sayBarNumber},
        {2, &ListeningDay::sayTriggerWordSwitch},
        {5, &ListeningDay::hearFromAnEarlierTask},
        {5, &ListeningDay::failRecognition},
        {3, &ListeningDay::failAnEarlierTask},
        {4, &ListeningDay::failTheEngine},
        {2, &ListeningDay::refuseARequest},
        {3, &ListeningDay::chooseDevice},
        {3, &ListeningDay::changeInput},
        {20, &ListeningDay::play},
        {4, &ListeningDay::changeScripts},
        {2, &ListeningDay::changeIdleSettings},
        {1, &ListeningDay::changeWakePhrase},
        {2, &ListeningDay::changeCommands},
        {1, &ListeningDay::answerPermissions},
        {1, &ListeningDay::relaunch},
        {2, &ListeningDay::settle},
    });
    return all;
}

void ListeningDay::spend(std::chrono::hours time) {
    const auto end = watched_.mainQueue().elapsed() + time;
    while (watched_.mainQueue().elapsed() < end && !testing::Test::HasFailure()) {
        takeOneStep();
    }
    settle();
}

void ListeningDay::takeOneStep() {
    static const int total = std::accumulate(steps().begin(), steps().end(), 0,
                                             [](int sum, const Step& step) { return sum + step.weight; });
    int at = anyOf(total);
    for (const Step& step : steps()) {
        at -= step.weight;
        if (at < 0) {
            (this->*step.take)();
            break;
        }
    }
    ++diary_.steps;
    check();
}

int ListeningDay::anyOf(int count) {
    return std::uniform_int_distribution<int>(0, count - 1)(chance_);
}

void ListeningDay::advance(std::chrono::milliseconds time) {
    watched_.mainQueue().advance(time);
}

void ListeningDay::check() {
    advance(0ms);
    SCOPED_TRACE(testing::Message()
                 << "step " << diary_.steps << ", "
                 << std::chrono::round<std::chrono::milliseconds>(watched_.mainQueue().elapsed()).count()
                 << " ms");
    table_.check(*controller_, watched_.holdings());

    const CommandHistory history = controller_->commandHistory();
    EXPECT_LE(history.size(), commandHistoryLimit);
    for (qsizetype i = 1; i < history.size(); ++i) {
        EXPECT_GE(history[i - 1].timestamp, history[i].timestamp);
    }
}

void ListeningDay::deliver(const QString& text, std::optional<QString> error,
                           std::optional<std::size_t> task) {
    // A task that was finished before listening was switched off may still speak; then it says nothing that
    // would be acted upon.
    const QString said = controller_->isListening() ? text : QStringLiteral("it is a piano");
    watched_.scripted().speechRecognition.deliver(
        RecognitionResult{.formattedString = said, .isFinal = oneIn(3)}, error, task.value_or(tasks_));
    advance(0ms);
}

void ListeningDay::waitAMoment() {
    advance(std::chrono::milliseconds(anyOf(1500)));
}

void ListeningDay::waitLong() {
    advance(std::chrono::milliseconds(anyOf(60'000)));
}

void ListeningDay::leaveAlone() {
    advance(std::chrono::minutes(anyOf(12)));
}

void ListeningDay::switchOn() {
    controller_->setIsListening(true);
}

void ListeningDay::switchOff() {
    controller_->setIsListening(false);
}

void ListeningDay::toggleInOneTurn() {
    const bool on = oneIn(2);
    controller_->setIsListening(on);
    controller_->setIsListening(!on);
}

void ListeningDay::talk() {
    deliver(pick(std::to_array({u"", u"Could we have the lights lower", u"Say 'hey'", u"it is a piano"}),
                 anyOf(4)));
}

void ListeningDay::wake() {
    deliver(pick(std::to_array({u"Hey Logic", u"hey logic", u"is that logic"}), anyOf(3)));
}

void ListeningDay::sayCommand() {
    const QString command =
        pick(std::to_array({u"play", u"stop", u"start recording", u"undo", u"bounce it", u"mute the choir"}),
             anyOf(6));
    // As a recogniser does: the beginning first.
    deliver(QStringLiteral("hey logic"));
    deliver(QStringLiteral("hey logic ") + command);
    if (oneIn(2)) {
        deliver(QStringLiteral("hey logic ") + command);
    }
}

void ListeningDay::sayBarNumber() {
    deliver(QStringLiteral("hey logic %1 bar %2")
                .arg(oneIn(2) ? QStringLiteral("go to") : QStringLiteral("play from"))
                .arg(anyOf(3)));
}

void ListeningDay::sayTriggerWordSwitch() {
    deliver(QStringLiteral("hey logic trigger word ") +
            (oneIn(3) ? QStringLiteral("off") : QStringLiteral("on")));
}

void ListeningDay::hearFromAnEarlierTask() {
    if (tasks_ > 3) {
        deliver(QStringLiteral("hey logic play"), std::nullopt,
                tasks_ - 1 - static_cast<std::size_t>(anyOf(3)));
    }
}

void ListeningDay::failRecognition() {
    if (oneIn(2)) {
        deliver(QStringLiteral("hey"), QStringLiteral("No speech detected"));
    } else {
        watched_.scripted().speechRecognition.deliver(std::nullopt, QStringLiteral("No speech detected"),
                                                      tasks_);
    }
}

void ListeningDay::failAnEarlierTask() {
    if (tasks_ > 1) {
        watched_.scripted().speechRecognition.deliver(std::nullopt, QStringLiteral("Too late"), tasks_ - 1);
    }
}

void ListeningDay::failTheEngine() {
    watched_.scripted().audioEngine.failStarts(anyOf(4), QStringLiteral("the device is busy"));
}

void ListeningDay::refuseARequest() {
    watched_.scripted().speechRecognition.setRequestAvailable(false);
    controller_->setIsListening(true);
    advance(std::chrono::seconds(anyOf(50)));
    watched_.scripted().speechRecognition.setRequestAvailable(true);
}

void ListeningDay::chooseDevice() {
    watched_.scripted().audioDevices.setDevices(
        {{.device = {.uid = QStringLiteral("vmic"), .name = QStringLiteral("Vmic")}, .id = 7}});
    watched_.scripted().audioEngine.setDeviceStatus(oneIn(3) ? -50 : 0);
    switch (anyOf(3)) {
    case 0:
        controller_->setSelectedAudioDevice(std::nullopt);
        break;
    case 1:
        controller_->setSelectedAudioDevice(QStringLiteral("vmic"));
        break;
    default:
        controller_->setSelectedAudioDevice(QStringLiteral("unplugged"));
    }
}

void ListeningDay::changeInput() {
    constexpr std::array<std::uint32_t, 4> channelCounts = {1, 2, 3, 6};
    watched_.scripted().audioEngine.setInputFormat(
        {.sampleRateHz = oneIn(2) ? 44100.0 : 48000.0,
         .channelCount = channelCounts.at(static_cast<std::size_t>(anyOf(4)))});
}

void ListeningDay::play() {
    const float sample = static_cast<float>(anyOf(1000)) / 500.0F - 1.0F;
    std::vector<ScriptedChannel> channels(static_cast<std::size_t>(anyOf(7)), std::vector<float>(64, sample));
    if (oneIn(4) && !channels.empty()) {
        channels.front().reset();
    }
    for (int block = anyOf(5); block >= 0; --block) {
        watched_.scripted().audioEngine.feed(channels);
    }
    if (oneIn(5)) {
        // Levels are on their way when it stops.
        controller_->setIsListening(false);
    }
}

void ListeningDay::changeScripts() {
    std::optional<ScriptErrorDictionary> error;
    if (oneIn(3)) {
        error = ScriptErrorDictionary{
            {QString::fromUtf16(ScriptErrorKey::message), QStringLiteral("Not allowed.")}};
    }
    watched_.scripted().scriptHost.setOutcome(error, std::chrono::milliseconds(oneIn(2) ? 0 : anyOf(11'000)));
}

void ListeningDay::changeIdleSettings() {
    controller_->setIdleTimeoutMinutes(anyOf(6));
    controller_->setAutoDisableOnIdle(!oneIn(3));
    controller_->setIdleReminderEnabled(!oneIn(3));
}

void ListeningDay::changeWakePhrase() {
    controller_->setWakeWord(oneIn(2) ? QStringLiteral("hey logic") : QStringLiteral("okay studio"));
    controller_->setAudioFeedbackEnabled(oneIn(2));
    controller_->setUseWakeWord(!oneIn(4));
}

void ListeningDay::changeCommands() {
    CustomCommand command;
    command.name = QStringLiteral("Bounce");
    command.triggers = {QStringLiteral("bounce it")};
    controller_->setCustomCommands(oneIn(2) ? CustomCommandList{command} : CustomCommandList());
    controller_->setBuiltInTriggerOverrides(
        oneIn(2) ? TriggerOverrides{{rawValue(VoiceCommand::undo), {QStringLiteral("mute the choir")}}}
                 : TriggerOverrides());
}

void ListeningDay::answerPermissions() {
    watched_.scripted().permissions.answerSpeech(static_cast<SpeechAuthorization>(anyOf(5)));
    watched_.scripted().permissions.answerMicrophone(oneIn(2));
}

void ListeningDay::relaunch() {
    controller_.reset();
    watched_.scripted().endProgram();
    watched_.platform().audioEngine->stop(); // with the process
    table_.relaunch();
    EXPECT_EQ(watched_.holdings(), Holdings());
    controller_ = std::make_unique<VoiceController>(watched_.platform());
    QObject::connect(controller_.get(), &VoiceController::statusMessageChanged, controller_.get(),
                     [this] { table_.observeStatus(controller_->statusMessage()); });
    advance(0ms);
    ++diary_.launches;
}

// Once it is switched off, and what was under way has come to its end, nothing is held and nothing waits.
void ListeningDay::settle() {
    controller_->setIsListening(false);
    advance(longestDelay);
    EXPECT_EQ(watched_.holdings(), Holdings()) << "step " << diary_.steps;
    ++diary_.timesWithNothingHeld;
}

} // namespace brivandel

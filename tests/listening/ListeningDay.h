#pragma once

#include "listening/SessionTable.h"
#include "listening/VoiceController.h"
#include "listening/WatchedPlatform.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <memory>
#include <random>
#include <span>

namespace brivandel {

/// Somebody uses the program by chance, in virtual time: talks, plays, switches, changes settings, unplugs
/// things. After every step the state table must hold, and what must not outlive its session is looked for.
/// One seed gives one day.
class ListeningDay {
public:
    explicit ListeningDay(std::uint64_t seed);

    void spend(std::chrono::hours time);

    /// What happened, so that a test can tell a day from one in which nothing did.
    struct Diary {
        int steps = 0;
        int scripts = 0;
        int notifications = 0;
        int launches = 0;
        int timesWithNothingHeld = 0;
    };
    [[nodiscard]] const Diary& diary() const { return diary_; }
    [[nodiscard]] const SessionTable& table() const { return table_; }

private:
    struct Step {
        int weight;
        void (ListeningDay::*take)();
    };
    static std::span<const Step> steps();

    void takeOneStep();
    void advance(std::chrono::milliseconds time);
    void check();
    [[nodiscard]] int anyOf(int count);
    [[nodiscard]] bool oneIn(int count) { return anyOf(count) == 0; }
    void deliver(const QString& text, std::optional<QString> error = std::nullopt,
                 std::optional<std::size_t> task = std::nullopt);

    void waitAMoment();
    void waitLong();
    void leaveAlone();
    void switchOn();
    void switchOff();
    void toggleInOneTurn();
    void talk();
    void wake();
    void sayCommand();
    void sayBarNumber();
    void sayTriggerWordSwitch();
    void hearFromAnEarlierTask();
    void failRecognition();
    void failAnEarlierTask();
    void failTheEngine();
    void refuseARequest();
    void chooseDevice();
    void changeInput();
    void play();
    void changeScripts();
    void changeIdleSettings();
    void changeWakePhrase();
    void changeCommands();
    void answerPermissions();
    void relaunch();
    void settle();

    std::mt19937_64 chance_;
    Diary diary_;
    WatchedPlatform watched_;
    SessionTable table_;
    std::unique_ptr<VoiceController> controller_;
    std::size_t tasks_ = 0;
};

} // namespace brivandel

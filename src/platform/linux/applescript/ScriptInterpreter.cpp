#include "platform/linux/applescript/ScriptInterpreter.h"

#include "platform/linux/applescript/ScriptErrors.h"
#include "platform/linux/applescript/ScriptTranslation.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace brivandel::script {

namespace {

const QString systemEvents = QStringLiteral("System Events");
const QString workstation = QStringLiteral("Logic Pro");

using Outcome = std::optional<ScriptErrorDictionary>;

/// A program that the script named, found on the display.
struct Program {
    KeyTarget target;
    QString name; ///< as people are told it
};

constexpr std::uint16_t escapeKey = 53;

/// Whether all that the script does is to press Escape, which gets a person out of a dialog.
bool onlyCancels(const Script& script) {
    bool pressesEscape = false;
    bool doesMore = false;
    const auto look = [&](const auto& self, const auto& body) -> void {
        for (const auto& statement : body) {
            std::visit(
                [&](const auto& action) {
                    using Action = std::decay_t<decltype(action)>;
                    if constexpr (requires { action.body; }) {
                        self(self, action.body);
                    } else if constexpr (std::is_same_v<Action, KeyCode>) {
                        (action == KeyCode{escapeKey, {}} ? pressesEscape : doesMore) = true;
                    } else if constexpr (std::is_same_v<Action, Keystroke>) {
                        doesMore = true;
                    }
                },
                statement.action);
        }
    };
    look(look, script.body);
    return pressesEscape && !doesMore;
}

class Run {
public:
    explicit Run(const ScriptSurroundings& surroundings)
        : surroundings_(surroundings)
        , deadline_(surroundings.time.now() + surroundings.patience) {}

    Outcome run(const Script& script) {
        auto opened = surroundings_.keys.openSession(deadline_);
        if (const auto* const failure = std::get_if<KeyFailure>(&opened)) {
            return keyErrorDictionary(*failure, systemEvents, workstation, {});
        }
        session_ = std::get<std::unique_ptr<KeySession>>(std::move(opened));
        if (Outcome error = chooseStandIn()) {
            return error;
        }
        answersDialogs_ = onlyCancels(script);
        if (!standIn_.keys) {
            return runAll(script.body, {});
        }
        const auto translated = translate(script, *standIn_.keys, workstation);
        if (const auto* const failure = std::get_if<TranslationFailure>(&translated)) {
            return runtimeErrorDictionary(ErrorNumber::handlerFailed, systemEvents, failure->sentence,
                                          failure->range);
        }
        return runAll(std::get<Script>(translated).body, {});
    }

private:
    /// What the block that a statement stands in is told to.
    struct Surrounding {
        QString application;
        /// The receiver of keys in a process block; the turn to press them is held for all of such a block.
        const Program* process = nullptr;
    };

    Outcome chooseStandIn() {
        auto chosen = surroundings_.standIn.choose([this](const TargetName& name) {
            const auto found = session_->find(name, deadline_);
            const auto* const target = std::get_if<KeyTarget>(&found);
            return target == nullptr ? std::nullopt : std::optional(*target);
        });
        if (const auto* const problem = std::get_if<QString>(&chosen)) {
            return runtimeErrorDictionary(ErrorNumber::handlerFailed, systemEvents, *problem, {});
        }
        standIn_ = std::get<StandIn>(std::move(chosen));
        return std::nullopt;
    }

    template <class S>
    Outcome runAll(const std::vector<S>& body, const Surrounding& surrounding) {
        for (const S& statement : body) {
            if (Outcome stopped = stopIfDue(statement.range)) {
                return stopped;
            }
            Outcome error =
                std::visit([&](const auto& action) { return perform(action, statement.range, surrounding); },
                           statement.action);
            if (error) {
                return error;
            }
        }
        return std::nullopt;
    }

    Outcome perform(const TellSystemEvents& tell, SourceRange, const Surrounding&) {
        return runAll(tell.body, {.application = systemEvents});
    }

    Outcome perform(const TellApplication& tell, SourceRange, const Surrounding&) {
        return runAll(tell.body, {.application = tell.application});
    }

    Outcome perform(const TellProcess& tell, SourceRange range, const Surrounding&) {
        const auto turn = surroundings_.turns.take(deadline_ - surroundings_.time.now());
        if (!turn) {
            return noTurn(range);
        }
        auto found = find(tell.process);
        if (const auto* const failure = std::get_if<KeyFailure>(&found)) {
            return keyErrorDictionary(*failure, systemEvents, spokenName(tell.process), range);
        }
        return runAll(tell.body, {.application = systemEvents, .process = &std::get<Program>(found)});
    }

    Outcome perform(const Activate&, SourceRange range, const Surrounding& surrounding) {
        const QString& application = surrounding.application;
        auto found = find(application);
        if (const auto* const failure = std::get_if<KeyFailure>(&found)) {
            if (failure->kind == KeyFailure::Kind::NotRunning) {
                return runtimeErrorDictionary(ErrorNumber::notRunning, spokenName(application),
                                              QStringLiteral("Application isn’t running."), range);
            }
            return keyErrorDictionary(*failure, spokenName(application), spokenName(application), range);
        }
        return bringToFront(std::get<Program>(found), spokenName(application), range);
    }

    Outcome perform(const SetFrontmost&, SourceRange range, const Surrounding& surrounding) {
        return bringToFront(*surrounding.process, systemEvents, range);
    }

    Outcome perform(const Delay& delay, SourceRange, const Surrounding&) {
        deadline_ += delay.duration;
        surroundings_.time.waitUntil(surroundings_.time.now() + delay.duration);
        return std::nullopt;
    }

    Outcome perform(const Keystroke& keystroke, SourceRange range, const Surrounding& surrounding) {
        return sendKeys(range, surrounding, [&](KeyTarget target) {
            return session_->typeText(target, keystroke.text, keystroke.modifiers, deadline_);
        });
    }

    Outcome perform(const KeyCode& key, SourceRange range, const Surrounding& surrounding) {
        return sendKeys(range, surrounding, [&](KeyTarget target) {
            return session_->pressKey(target, key.virtualKeyCode, key.modifiers, deadline_);
        });
    }

    /// Keys go to the process that is being told. Outside such a block they go to the frontmost program,
    /// which has to be the one that this script brought to the front.
    template <class Send>
    Outcome sendKeys(SourceRange range, const Surrounding& surrounding, Send send) {
        if (surrounding.process != nullptr) {
            return sendKeysTo(*surrounding.process, range, send);
        }
        if (!frontmost_) {
            return runtimeErrorDictionary(
                ErrorNumber::notPermitted, systemEvents,
                QStringLiteral("The script brought no program to the front that the key could go to."),
                range);
        }
        const auto turn = surroundings_.turns.take(deadline_ - surroundings_.time.now());
        if (!turn) {
            return noTurn(range);
        }
        return sendKeysTo(*frontmost_, range, send);
    }

    template <class Send>
    Outcome sendKeysTo(const Program& program, SourceRange range, Send send) {
        if (Outcome refusal = refuseOpenDialog(program, systemEvents, range)) {
            return refusal;
        }
        if (!hasPressedIn(program)) {
            pressedIn_.push_back(program.target);
        }
        return failed(send(program.target), program, systemEvents, range);
    }

    Outcome bringToFront(const Program& program, const QString& application, SourceRange range) {
        frontmost_ = program;
        if (auto failure = session_->raise(program.target, deadline_)) {
            return failed(failure, program, application, range);
        }
        return refuseOpenDialog(program, application, range);
    }

    [[nodiscard]] bool hasPressedIn(const Program& program) const {
        return std::ranges::find(pressedIn_, program.target) != pressedIn_.end();
    }

    /// A command is meant for the project: in a dialog that somebody else opened, its keys would be letters
    /// of a name, or press a button. A dialog that the command itself opens is a step of it, and it can have
    /// opened one as soon as the program has got a key. So each program is asked until its first: at once
    /// when it comes to the front, and right before the key, for a script waits in between.
    Outcome refuseOpenDialog(const Program& program, const QString& application, SourceRange range) const {
        if (answersDialogs_ || hasPressedIn(program)) {
            return std::nullopt;
        }
        const auto title = session_->openDialog(program.target, deadline_);
        return title ? failed(KeyFailure{KeyFailure::Kind::DialogOpen, *title}, program, application, range)
                     : std::nullopt;
    }

    static Outcome failed(const std::optional<KeyFailure>& failure, const Program& program,
                          const QString& application, SourceRange range) {
        return failure ? Outcome(keyErrorDictionary(*failure, application, program.name, range))
                       : std::nullopt;
    }

    std::variant<Program, KeyFailure> find(const QString& name) {
        const bool hasStandIn = name == workstation && !standIn_.target.text.isEmpty();
        auto found = session_->find(hasStandIn ? standIn_.target : TargetName{.text = name}, deadline_);
        if (auto* const failure = std::get_if<KeyFailure>(&found)) {
            return std::move(*failure);
        }
        return Program{.target = std::get<KeyTarget>(found), .name = spokenName(name)};
    }

    /// The name that helps a person who looks for the program: that of the stand-in.
    [[nodiscard]] QString spokenName(const QString& name) const {
        if (name != workstation || standIn_.target.text.isEmpty()) {
            return name;
        }
        return standIn_.name.isEmpty() ? standIn_.target.text : standIn_.name;
    }

    Outcome stopIfDue(SourceRange range) const {
        if (surroundings_.stopping) {
            return runtimeErrorDictionary(ErrorNumber::cancelled, systemEvents,
                                          QStringLiteral("User canceled."), range);
        }
        if (surroundings_.time.now() >= deadline_) {
            return runtimeErrorDictionary(ErrorNumber::timedOut, systemEvents,
                                          QStringLiteral("AppleEvent timed out."), range);
        }
        return std::nullopt;
    }

    Outcome noTurn(SourceRange range) const {
        if (Outcome stopped = stopIfDue(range)) {
            return stopped;
        }
        return runtimeErrorDictionary(ErrorNumber::timedOut, systemEvents,
                                      QStringLiteral("AppleEvent timed out."), range);
    }

    const ScriptSurroundings& surroundings_;
    /// Moves on with every delay of the script's own.
    ScriptTime::TimePoint deadline_;
    std::unique_ptr<KeySession> session_;
    StandIn standIn_;
    std::optional<Program> frontmost_;
    bool answersDialogs_ = false;
    /// Programs to which keys of this script have gone, or were about to go.
    std::vector<KeyTarget> pressedIn_;
};

} // namespace

std::optional<ScriptErrorDictionary> runScript(const Script& script, const ScriptSurroundings& surroundings) {
    return Run(surroundings).run(script);
}

} // namespace brivandel::script

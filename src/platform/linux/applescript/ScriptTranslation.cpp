#include "platform/linux/applescript/ScriptTranslation.h"

#include "platform/linux/applescript/ScriptParser.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace brivandel::script {

namespace {

/// The virtual key codes of the bar script: its slash opens the workstation's field, Return confirms it.
constexpr std::uint16_t slashKey = 44;
constexpr std::uint16_t returnKey = 36;
/// What the bar script presses after that to start playback.
const Press playPress = Keystroke{QStringLiteral(" "), {}};

template <class T, class S>
const T* as(const std::vector<S>& body, std::size_t index) {
    return index < body.size() ? std::get_if<T>(&body[index].action) : nullptr;
}

bool isNumber(const QString& text) {
    return !text.isEmpty() && std::ranges::all_of(text, [](QChar digit) { return digit.isDigit(); });
}

/// The number that the block types between the slash and Return; none when it does anything else.
std::optional<QString> barOf(const TellProcess& tell) {
    const auto* const opening = as<KeyCode>(tell.body, 0);
    const auto* const number = as<Keystroke>(tell.body, 2);
    const auto* const confirmation = as<KeyCode>(tell.body, 4);
    const bool isBar = tell.body.size() == 5 && opening != nullptr && *opening == KeyCode{slashKey, {}} &&
                       as<Delay>(tell.body, 1) != nullptr && number != nullptr && isNumber(number->text) &&
                       !number->modifiers && as<Delay>(tell.body, 3) != nullptr && confirmation != nullptr &&
                       *confirmation == KeyCode{returnKey, {}};
    return isBar ? std::optional(number->text) : std::nullopt;
}

Step withBar(Step step, const QString& bar) {
    if (auto* const keystroke = std::get_if<Keystroke>(&step)) {
        keystroke->text = withBarNumber(keystroke->text, bar);
    }
    return step;
}

template <class S>
std::chrono::milliseconds waitsIn(const std::vector<S>& body) {
    std::chrono::milliseconds sum{0};
    for (const S& statement : body) {
        std::visit(
            [&](const auto& action) {
                using Action = std::decay_t<decltype(action)>;
                if constexpr (requires { action.body; }) {
                    sum += waitsIn(action.body);
                } else if constexpr (std::is_same_v<Action, Delay>) {
                    sum += action.duration;
                }
            },
            statement.action);
    }
    return sum;
}

class Translation {
public:
    Translation(const KeyTable& keys, const QString& process) : keys_(keys), process_(process) {}

    std::variant<Script, TranslationFailure> run(const Script& script) {
        Script translated;
        for (const TopStatement& statement : script.body) {
            if (const auto* const tell = std::get_if<TellSystemEvents>(&statement.action)) {
                translated.body.push_back({systemEvents(*tell), statement.range});
                continue;
            }
            if (const auto* const tell = std::get_if<TellApplication>(&statement.action)) {
                noteActivation(*tell);
            }
            appendToFrontmost(translated.body, statement);
        }
        if (!failure_ && waitsIn(translated.body) > limits::totalDelay) {
            fail(QStringLiteral(
                     "With the waits that the workstation’s profile puts between keys, this would take "
                     "longer than %1 seconds.")
                     .arg(std::chrono::duration_cast<std::chrono::seconds>(limits::totalDelay).count()),
                 {});
        }
        if (failure_) {
            return std::move(*failure_);
        }
        return translated;
    }

private:
    TellSystemEvents systemEvents(const TellSystemEvents& tell) {
        TellSystemEvents translated;
        for (const SystemEventsStatement& statement : tell.body) {
            const auto* const process = std::get_if<TellProcess>(&statement.action);
            if (process == nullptr) {
                appendToFrontmost(translated.body, statement);
            } else if (process->process != process_) {
                noteBlock(*process);
                translated.body.push_back(statement);
            } else {
                translated.body.push_back({workstation(*process), statement.range});
            }
        }
        return translated;
    }

    TellProcess workstation(const TellProcess& tell) {
        TellProcess translated{tell.process, {}};
        noteBlock(tell);
        if (const auto bar = barOf(tell); bar && keys_.bar) {
            const SourceRange range = tell.body.front().range;
            if (const auto* const nothing = std::get_if<NothingOfTheKind>(&*keys_.bar)) {
                fail(nothing->sentence, range);
                return translated;
            }
            const auto& steps = std::get<BarSteps>(*keys_.bar);
            if (steps.range && !steps.range->holds(*bar)) {
                fail(steps.range->beyond, range);
                return translated;
            }
            startsPlaybackNext_ = true;
            for (const Step& step : steps.goTo) {
                appendStep(translated.body, withBar(step, *bar), range);
            }
            return translated;
        }
        for (const ProcessStatement& statement : tell.body) {
            append(translated.body, statement);
        }
        return translated;
    }

    void noteActivation(const TellApplication& tell) {
        const bool activates = std::ranges::any_of(tell.body, [](const ApplicationStatement& statement) {
            return std::holds_alternative<Activate>(statement.action);
        });
        if (activates) {
            frontmost_ = tell.application;
            startsPlaybackNext_ = false;
        }
    }

    void noteBlock(const TellProcess& tell) {
        const bool comesToFront = std::ranges::any_of(tell.body, [](const ProcessStatement& statement) {
            return std::holds_alternative<SetFrontmost>(statement.action);
        });
        if (comesToFront) {
            frontmost_ = tell.process;
        }
        startsPlaybackNext_ = false;
    }

    /// What stands outside a process block goes to the program that the script last brought to the front.
    template <class S>
    void appendToFrontmost(std::vector<S>& body, const S& statement) {
        if (frontmost_ == process_) {
            append(body, statement);
        } else {
            body.push_back(statement);
        }
    }

    template <class S>
    void append(std::vector<S>& body, const S& statement) {
        if (const auto* const keystroke = std::get_if<Keystroke>(&statement.action)) {
            appendPress(body, *keystroke, statement.range);
        } else if (const auto* const key = std::get_if<KeyCode>(&statement.action)) {
            appendPress(body, *key, statement.range);
        } else {
            body.push_back(statement);
        }
    }

    template <class S>
    void appendPress(std::vector<S>& body, const Press& press, SourceRange range) {
        if (std::exchange(startsPlaybackNext_, false) && press == playPress) {
            for (const Step& step : std::get<BarSteps>(*keys_.bar).thenPlay) {
                appendStep(body, step, range);
            }
            return;
        }
        const auto found = std::ranges::find(keys_.presses, press,
                                             &std::pair<Press, std::variant<Steps, NothingOfTheKind>>::first);
        if (found == keys_.presses.end()) {
            std::visit([&](const auto& action) { body.push_back({action, range}); }, press);
            return;
        }
        if (const auto* const nothing = std::get_if<NothingOfTheKind>(&found->second)) {
            fail(nothing->sentence, range);
            return;
        }
        for (const Step& step : std::get<Steps>(found->second)) {
            appendStep(body, step, range);
        }
    }

    template <class S>
    static void appendStep(std::vector<S>& body, const Step& step, SourceRange range) {
        std::visit([&](const auto& action) { body.push_back({action, range}); }, step);
    }

    void fail(const QString& sentence, SourceRange range) {
        if (!failure_) {
            failure_ = TranslationFailure{sentence, range};
        }
    }

    const KeyTable& keys_;
    const QString& process_;
    /// As of the statement that is being translated.
    QString frontmost_;
    /// The bar has been gone to and nothing has been pressed since: playback would be started now.
    bool startsPlaybackNext_ = false;
    std::optional<TranslationFailure> failure_;
};

} // namespace

std::variant<Script, TranslationFailure> translate(const Script& script, const KeyTable& keys,
                                                   const QString& process) {
    return Translation(keys, process).run(script);
}

} // namespace brivandel::script

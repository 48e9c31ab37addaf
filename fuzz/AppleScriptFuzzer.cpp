// Any text as a script: what it would press stands in it, within the limits.

#include "FuzzText.h"
#include "Require.h"
#include "platform/linux/applescript/ScriptParser.h"

namespace {

using namespace brivandel;
using namespace brivandel::script;

class PressesStandInTheSource {
public:
    explicit PressesStandInTheSource(QStringView source) : source_(source) {}

    void operator()(const Keystroke& keystroke) const {
        require(keystroke.text.size() <= limits::keystrokeLength, "a keystroke is short");
        for (const QChar character : keystroke.text) {
            // An escaped quote, backslash, tab or line break is written with a backslash.
            require(source_.contains(character) || source_.contains(u'\\'),
                    "a typed character stands in the source");
        }
    }
    void operator()(const KeyCode& keyCode) const {
        require(keyCode.virtualKeyCode <= limits::virtualKeyCode, "a key code has seven bits");
        require(says(u"key") && says(u"code"), "a pressed key stands in the source");
    }
    void operator()(const Delay& delay) {
        require(delay.duration >= std::chrono::milliseconds::zero() && delay.duration <= limits::delay,
                "a delay is bounded");
        total_ += delay.duration;
        require(total_ <= limits::totalDelay, "all delays together are bounded");
    }
    void operator()(const Activate&) const { require(says(u"activate"), "activate is asked for"); }
    void operator()(const SetFrontmost&) const {
        require(says(u"frontmost"), "coming to the front is asked for");
    }
    void operator()(const TellProcess& tell) {
        require(!tell.process.isEmpty(), "a process has a name");
        each(tell.body);
    }
    void operator()(const TellSystemEvents& tell) { each(tell.body); }
    void operator()(const TellApplication& tell) { each(tell.body); }

    template <typename Body>
    void each(const Body& body) {
        for (const auto& statement : body) {
            require(statement.range.location >= 0 && statement.range.length >= 0 &&
                        statement.range.location + statement.range.length <= source_.size(),
                    "a statement stands in the source");
            std::visit(*this, statement.action);
        }
    }

private:
    // The language minds neither case nor how much space there is between words.
    [[nodiscard]] bool says(QStringView word) const { return source_.contains(word, Qt::CaseInsensitive); }

    QStringView source_;
    std::chrono::milliseconds total_{0};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString source = fuzzText(data, size);
    const auto parsed = parseScript(source);
    if (const auto* script = std::get_if<Script>(&parsed)) {
        PressesStandInTheSource(source).each(script->body);
        require(source.size() <= limits::sourceLength, "a script is short");
    } else {
        const auto& error = std::get<ScriptSyntaxError>(parsed);
        require(!error.message.isEmpty(), "an error says what is wrong");
        require(error.line >= 1 && error.column >= 1, "an error says where");
    }
    return 0;
}

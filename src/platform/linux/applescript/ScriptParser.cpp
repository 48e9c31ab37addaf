#include "platform/linux/applescript/ScriptParser.h"

#include "platform/linux/applescript/ScriptLexer.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace brivandel::script {

namespace {

const QString systemEvents = QStringLiteral("System Events");

/// Leaves the descent at the first error; it never leaves this file.
struct Refusal {
    QString message;
    SourceRange range;
};

QString nameOf(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Word:
        return u'“' + token.text + u'”';
    case Token::Kind::String:
        return QStringLiteral("string");
    case Token::Kind::Number:
        return QStringLiteral("number");
    case Token::Kind::OpenBrace:
        return QStringLiteral("“{”");
    case Token::Kind::CloseBrace:
        return QStringLiteral("“}”");
    case Token::Kind::Comma:
        return QStringLiteral("“,”");
    case Token::Kind::EndOfLine:
        return QStringLiteral("end of line");
    case Token::Kind::EndOfScript:
        return QStringLiteral("end of script");
    case Token::Kind::Bad:
        break;
    }
    return QStringLiteral("unknown token");
}

std::optional<KeyModifier> modifierNamed(const QString& word) {
    if (word == u"command") {
        return KeyModifier::Command;
    }
    if (word == u"shift") {
        return KeyModifier::Shift;
    }
    if (word == u"option") {
        return KeyModifier::Option;
    }
    if (word == u"control") {
        return KeyModifier::Control;
    }
    return std::nullopt;
}

/// Line feed, tab and return have keys; other control characters and halves of surrogate pairs have none.
bool canBeTyped(const QString& text) {
    return text.isValidUtf16() && std::ranges::none_of(text, [](QChar unit) {
               return unit.category() == QChar::Other_Control && unit != u'\n' && unit != u'\t' &&
                      unit != u'\r';
           });
}

class Parser {
public:
    explicit Parser(QStringView source) : lexer_(source) { advance(); }

    Script script() {
        Script result;
        for (skipBlankLines(); current_.kind != Token::Kind::EndOfScript; skipBlankLines()) {
            result.body.push_back(topStatement());
            endStatement();
        }
        return result;
    }

private:
    TopStatement topStatement() {
        const qsizetype start = current_.range.location;
        if (!isWord(u"tell")) {
            return finish<TopStatement>(
                start, commonAction<TopStatement>("“tell”, “delay”, “keystroke” or “key code”"));
        }
        advance();
        takeWord(u"application");
        const QString application = takeString();
        if (application.compare(systemEvents, Qt::CaseInsensitive) == 0) {
            TellSystemEvents tell{
                .body = block<SystemEventsStatement>([this] { return systemEventsStatement(); })};
            return finish<TopStatement>(start, std::move(tell));
        }
        TellApplication tell{.application = application, .body = {}};
        if (isWord(u"to")) {
            advance();
            tell.body.push_back(activateStatement());
        } else {
            tell.body = block<ApplicationStatement>([this] { return applicationStatement(); });
        }
        return finish<TopStatement>(start, std::move(tell));
    }

    ApplicationStatement activateStatement() {
        const qsizetype start = current_.range.location;
        takeWord(u"activate");
        return finish<ApplicationStatement>(start, Activate{});
    }

    ApplicationStatement applicationStatement() {
        if (isWord(u"activate")) {
            return activateStatement();
        }
        const qsizetype start = current_.range.location;
        if (!isWord(u"delay")) {
            refuseExpected("“activate”, “delay” or “end tell”");
        }
        return finish<ApplicationStatement>(start, delay());
    }

    SystemEventsStatement systemEventsStatement() {
        const qsizetype start = current_.range.location;
        if (!isWord(u"tell")) {
            return finish<SystemEventsStatement>(
                start, commonAction<SystemEventsStatement>(
                           "“tell process”, “delay”, “keystroke”, “key code” or “end tell”"));
        }
        advance();
        takeWord(u"process");
        TellProcess tell{.process = takeString(), .body = {}};
        tell.body = block<ProcessStatement>([this] { return processStatement(); });
        return finish<SystemEventsStatement>(start, std::move(tell));
    }

    ProcessStatement processStatement() {
        const qsizetype start = current_.range.location;
        if (!isWord(u"set")) {
            return finish<ProcessStatement>(
                start, commonAction<ProcessStatement>(
                           "“set frontmost”, “delay”, “keystroke”, “key code” or “end tell”"));
        }
        advance();
        for (const QStringView word : {u"frontmost", u"to", u"true"}) {
            takeWord(word);
        }
        return finish<ProcessStatement>(start, SetFrontmost{});
    }

    /// The statements up to "end tell", and that.
    template <class S, class Read>
    std::vector<S> block(Read readStatement) {
        std::vector<S> body;
        endStatement();
        for (skipBlankLines(); !isWord(u"end"); skipBlankLines()) {
            if (current_.kind == Token::Kind::EndOfScript) {
                refuseExpected("“end tell”");
            }
            body.push_back(readStatement());
            endStatement();
        }
        advance();
        takeWord(u"tell");
        return body;
    }

    /// What can be said in any block that keys are sent from.
    template <class S>
    decltype(S::action) commonAction(const char* expected) {
        if (isWord(u"delay")) {
            return delay();
        }
        if (isWord(u"keystroke")) {
            return keystroke();
        }
        if (isWord(u"key")) {
            return keyCode();
        }
        refuseExpected(expected);
    }

    Delay delay() {
        advance();
        const Token number = take(Token::Kind::Number, "number");
        bool isNumber = false;
        const double seconds = number.text.toDouble(&isNumber);
        const std::chrono::duration<double> asked{seconds};
        if (!isNumber || asked > limits::delay) {
            throw Refusal{QStringLiteral("A delay can’t be longer than %1 seconds.")
                              .arg(std::chrono::duration_cast<std::chrono::seconds>(limits::delay).count()),
                          number.range};
        }
        const auto duration = std::chrono::round<std::chrono::milliseconds>(asked);
        totalDelay_ += duration;
        if (totalDelay_ > limits::totalDelay) {
            throw Refusal{
                QStringLiteral("The delays of a script can’t be longer than %1 seconds together.")
                    .arg(std::chrono::duration_cast<std::chrono::seconds>(limits::totalDelay).count()),
                number.range};
        }
        return {.duration = duration};
    }

    Keystroke keystroke() {
        advance();
        const Token text = take(Token::Kind::String, "string");
        if (text.text.size() > limits::keystrokeLength) {
            throw Refusal{QStringLiteral("A keystroke can’t have more than %1 characters.")
                              .arg(limits::keystrokeLength),
                          text.range};
        }
        if (!canBeTyped(text.text)) {
            throw Refusal{QStringLiteral("The string has characters that can’t be typed."), text.range};
        }
        return {.text = text.text, .modifiers = usingClause()};
    }

    KeyCode keyCode() {
        advance();
        takeWord(u"code");
        const Token number = take(Token::Kind::Number, "number");
        bool isInteger = false;
        const uint code = number.text.toUInt(&isInteger);
        if (!isInteger || code > limits::virtualKeyCode) {
            throw Refusal{
                QStringLiteral("A key code is a whole number from 0 to %1.").arg(limits::virtualKeyCode),
                number.range};
        }
        return {.virtualKeyCode = static_cast<std::uint16_t>(code), .modifiers = usingClause()};
    }

    KeyModifiers usingClause() {
        if (!isWord(u"using")) {
            return {};
        }
        advance();
        if (current_.kind != Token::Kind::OpenBrace) {
            return modifierDown();
        }
        advance();
        KeyModifiers modifiers = modifierDown();
        while (current_.kind == Token::Kind::Comma) {
            advance();
            modifiers |= modifierDown();
        }
        take(Token::Kind::CloseBrace, "“,” or “}”");
        return modifiers;
    }

    KeyModifier modifierDown() {
        const auto modifier =
            current_.kind == Token::Kind::Word ? modifierNamed(current_.text) : std::nullopt;
        if (!modifier) {
            refuseExpected("“command down”, “shift down”, “option down” or “control down”");
        }
        advance();
        takeWord(u"down");
        return *modifier;
    }

    [[nodiscard]] bool isWord(QStringView word) const {
        return current_.kind == Token::Kind::Word && current_.text == word;
    }

    void advance() {
        lastEnd_ = current_.range.location + current_.range.length;
        current_ = lexer_.next();
        if (current_.kind == Token::Kind::Bad) {
            throw Refusal{current_.text, current_.range};
        }
    }

    Token take(Token::Kind kind, const char* expected) {
        if (current_.kind != kind) {
            refuseExpected(expected);
        }
        Token token = current_;
        advance();
        return token;
    }

    QString takeString() { return take(Token::Kind::String, "string").text; }

    void takeWord(QStringView word) {
        if (!isWord(word)) {
            refuseExpected((u'“' + word.toString() + u'”').toUtf8().constData());
        }
        advance();
    }

    void skipBlankLines() {
        while (current_.kind == Token::Kind::EndOfLine) {
            advance();
        }
    }

    void endStatement() {
        if (current_.kind != Token::Kind::EndOfLine && current_.kind != Token::Kind::EndOfScript) {
            refuseExpected("end of line");
        }
    }

    [[noreturn]] void refuseExpected(const char* expected) const {
        throw Refusal{
            QStringLiteral("Expected %1 but found %2.").arg(QString::fromUtf8(expected), nameOf(current_)),
            current_.range};
    }

    template <class S, class Action>
    S finish(qsizetype start, Action action) const {
        return {.action = std::move(action), .range = {.location = start, .length = lastEnd_ - start}};
    }

    ScriptLexer lexer_;
    Token current_;
    qsizetype lastEnd_ = 0;
    std::chrono::milliseconds totalDelay_{0};
};

ScriptSyntaxError place(QStringView source, const Refusal& refusal) {
    ScriptSyntaxError error{.message = refusal.message, .range = refusal.range};
    qsizetype lineStart = 0;
    for (qsizetype i = 0; i < refusal.range.location; ++i) {
        const bool isFirstOfPair = source[i] == u'\r' && i + 1 < source.size() && source[i + 1] == u'\n';
        if ((source[i] == u'\n' || source[i] == u'\r') && !isFirstOfPair) {
            ++error.line;
            lineStart = i + 1;
        }
    }
    error.column = static_cast<int>(refusal.range.location - lineStart) + 1;
    return error;
}

} // namespace

std::variant<Script, ScriptSyntaxError> parseScript(QStringView source) {
    if (source.size() > limits::sourceLength) {
        return ScriptSyntaxError{
            .message =
                QStringLiteral("A script can’t have more than %1 characters.").arg(limits::sourceLength),
            .range = {.location = limits::sourceLength, .length = source.size() - limits::sourceLength}};
    }
    try {
        return Parser(source).script();
    } catch (const Refusal& refusal) {
        return place(source, refusal);
    }
}

} // namespace brivandel::script

#include "platform/linux/applescript/ScriptLexer.h"

#include <utility>

namespace brivandel::script {

namespace {

// The language's own alphabet is ASCII: a letter of another script must not pass for one of its words.
bool isLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}
bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}
bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t';
}
bool isLineEnd(char16_t unit) {
    return unit == u'\n' || unit == u'\r';
}

} // namespace

Token ScriptLexer::next() {
    while (hasMore() && isBlank(peek())) {
        ++position_;
    }
    if (!hasMore()) {
        return token(Token::Kind::EndOfScript, position_);
    }
    const char16_t unit = peek();
    if (isLineEnd(unit)) {
        return endOfLine();
    }
    if (isLetter(unit)) {
        return word();
    }
    if (isDigit(unit)) {
        return number();
    }
    const qsizetype start = position_;
    switch (unit) {
    case u'"':
        return string();
    case u'{':
        ++position_;
        return token(Token::Kind::OpenBrace, start);
    case u'}':
        ++position_;
        return token(Token::Kind::CloseBrace, start);
    case u',':
        ++position_;
        return token(Token::Kind::Comma, start);
    default:
        ++position_;
        return bad(start, QStringLiteral("Expected expression but found unknown token."));
    }
}

Token ScriptLexer::token(Token::Kind kind, qsizetype start, QString text) const {
    return {.kind = kind, .text = std::move(text), .range = {.location = start, .length = position_ - start}};
}

Token ScriptLexer::bad(qsizetype start, const QString& sentence) {
    Token result = token(Token::Kind::Bad, start, sentence);
    position_ = source_.size();
    return result;
}

Token ScriptLexer::endOfLine() {
    const qsizetype start = position_;
    const bool isPair = source_.mid(position_).startsWith(u"\r\n");
    position_ += isPair ? 2 : 1;
    return token(Token::Kind::EndOfLine, start);
}

Token ScriptLexer::word() {
    const qsizetype start = position_;
    while (hasMore() && (isLetter(peek()) || isDigit(peek()) || peek() == u'_')) {
        ++position_;
    }
    return token(Token::Kind::Word, start, source_.mid(start, position_ - start).toString().toLower());
}

Token ScriptLexer::number() {
    const qsizetype start = position_;
    while (hasMore() && isDigit(peek())) {
        ++position_;
    }
    if (hasMore() && peek() == u'.') {
        ++position_;
        const qsizetype fraction = position_;
        while (hasMore() && isDigit(peek())) {
            ++position_;
        }
        if (position_ == fraction) {
            return bad(start, QStringLiteral("Expected a digit after the decimal point."));
        }
    }
    if (hasMore() && (isLetter(peek()) || peek() == u'.')) {
        ++position_;
        return bad(start, QStringLiteral("Expected end of line but found unknown token."));
    }
    return token(Token::Kind::Number, start, source_.mid(start, position_ - start).toString());
}

Token ScriptLexer::string() {
    const qsizetype start = position_++;
    QString text;
    while (hasMore()) {
        const char16_t unit = peek();
        if (unit == u'"') {
            ++position_;
            return token(Token::Kind::String, start, std::move(text));
        }
        if (isLineEnd(unit)) {
            break;
        }
        if (unit != u'\\') {
            text += QChar(unit);
            ++position_;
            continue;
        }
        ++position_;
        if (!hasMore()) {
            break;
        }
        switch (peek()) {
        case u'"':
        case u'\\':
            text += QChar(peek());
            break;
        case u'n':
            text += u'\n';
            break;
        case u't':
            text += u'\t';
            break;
        case u'r':
            text += u'\r';
            break;
        default:
            ++position_;
            return bad(position_ - 2, QStringLiteral("Expected “\"”, “\\”, “n”, “r” or “t” after “\\”."));
        }
        ++position_;
    }
    return bad(start, QStringLiteral("Expected “\"” but found end of line."));
}

} // namespace brivandel::script

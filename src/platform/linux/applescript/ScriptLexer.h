#pragma once

#include "platform/linux/applescript/Script.h"

#include <QString>
#include <QStringView>

#include <cstdint>

namespace brivandel::script {

struct Token {
    enum class Kind : std::uint8_t {
        Word,   ///< text: in lower case, as the language takes no notice of case
        String, ///< text: without the quotes, escapes resolved
        Number, ///< text: digits, with a fraction or without
        OpenBrace,
        CloseBrace,
        Comma,
        EndOfLine,
        EndOfScript,
        Bad, ///< text: what is wrong with it, as a sentence
    };

    Kind kind = Kind::EndOfScript;
    QString text;
    SourceRange range;
};

/// Cuts a source into tokens, one a call. After the end, and after a bad token, it gives EndOfScript for
/// ever.
class ScriptLexer {
public:
    explicit ScriptLexer(QStringView source) : source_(source) {}
    [[nodiscard]] Token next();

private:
    [[nodiscard]] Token token(Token::Kind kind, qsizetype start, QString text = {}) const;
    [[nodiscard]] Token bad(qsizetype start, const QString& sentence);
    [[nodiscard]] Token endOfLine();
    [[nodiscard]] Token word();
    [[nodiscard]] Token number();
    [[nodiscard]] Token string();
    [[nodiscard]] bool hasMore() const { return position_ < source_.size(); }
    [[nodiscard]] char16_t peek() const { return source_[position_].unicode(); }

    QStringView source_;
    qsizetype position_ = 0;
};

} // namespace brivandel::script

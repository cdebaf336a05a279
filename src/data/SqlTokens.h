#pragma once

#include <QString>
#include <vector>

namespace vorta::data {

/// What a token of a statement is, as far as both engines agree on it.
enum class TokenKind {
    Word,       ///< keyword, name, `@@variable`
    Number,     ///< digits, with an optional point and exponent
    Literal,    ///< text between apostrophes, a doubled apostrophe inside it counted as content
    QuotedName, ///< name between double quotes or square brackets
    Comment,    ///< from `--` to the end of its line, or between `/*` and `*/`
    Symbol      ///< any other single character
};

/// One token: its kind and the stretch of the statement's text that it covers. Blanks belong to no token.
struct SqlToken {
    TokenKind kind = TokenKind::Symbol;
    qsizetype start = 0;
    qsizetype length = 0;
    bool closed = true; ///< false for a literal, quoted name or comment that the text ends before its end mark

    qsizetype end() const { return start + length; }
    QStringView in(QStringView text) const { return text.sliced(start, length); }
    /// True for that word (any case).
    bool isWord(QStringView text, QLatin1StringView word) const;
    /// True for that symbol.
    bool isSymbol(QStringView text, QChar symbol) const;
};

/// The tokens of a statement in their order, read in one pass. Never fails: what is no SQL comes out as symbols.
std::vector<SqlToken> SqlTokens(QStringView text);

} // namespace vorta::data

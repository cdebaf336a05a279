#include "data/Guard.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/SqlTokens.h"

#include <algorithm>

namespace vorta::data {

namespace {

[[noreturn]] void refuse(const Statement& statement, QStringView near) {
    constexpr int syntaxError = -104;
    throw RuntimeError(errorNumber::StatementRefused, u"Incorrect syntax near '%1'."_s.arg(near.left(60)), syntaxError,
                       u"42000"_s, statement.text());
}

/// An apostrophe typed alone ends a literal; two in a row stand for one inside it. A value whose apostrophes all come
/// in pairs leaves the literals of its statement where the program put them, whatever stands beside it.
bool apostrophesInPairs(QStringView value) {
    qsizetype run = 0;
    for (const QChar c : value) {
        if (c == u'\'') {
            ++run;
            continue;
        }
        if (run % 2 != 0)
            return false;
        run = 0;
    }
    return run % 2 == 0;
}

bool isSign(QChar c) {
    return c == u'-' || c == u'+';
}

/// "12", "-12", "+12", "12.5", "12." and ".5", with nothing beside them.
bool isPlainNumber(QStringView value) {
    if (!value.isEmpty() && isSign(value.front()))
        value = value.sliced(1);
    const auto digits = std::count_if(value.begin(), value.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return digits > 0 && digits + value.count(u'.') == value.size() && value.count(u'.') <= 1;
}

using Tokens = std::vector<SqlToken>;

/// The first token that ends behind `position`.
Tokens::const_iterator tokenAt(const Tokens& tokens, qsizetype position) {
    return std::upper_bound(tokens.begin(), tokens.end(), position,
                            [](qsizetype at, const SqlToken& token) { return at < token.end(); });
}

bool insideLiteral(const SqlToken& token, qsizetype start, qsizetype end) {
    return token.kind == TokenKind::Literal && token.closed && start > token.start && end < token.end();
}

/// A plain number must also be read as one where it stands: not glued to a name, not inside a comment or a quoted name.
bool readAsNumber(const Tokens& tokens, QStringView text, qsizetype start, qsizetype end) {
    if (!isPlainNumber(text.sliced(start, end - start)))
        return false;
    auto token = tokenAt(tokens, start);
    if (token != tokens.end() && token->start == start && token->kind == TokenKind::Symbol && isSign(text[start]))
        ++token;
    return token != tokens.end() && token->kind == TokenKind::Number && token->start <= start + 1 &&
           token->end() >= end;
}

bool allowed(const Tokens& tokens, QStringView text, const ValueSpan& span) {
    const QStringView value = text.sliced(span.start, span.length);
    // A driver may stop reading at a zero or at half of a surrogate pair.
    if (value.contains(QChar(u'\0')) || !value.isValidUtf16() || !apostrophesInPairs(value))
        return false;
    const auto token = tokenAt(tokens, span.start);
    if (token != tokens.end() && insideLiteral(*token, span.start, span.start + span.length))
        return true;
    const QStringView number = value.trimmed();
    if (number.isEmpty())
        return token == tokens.end() || token->start >= span.start + span.length;
    const qsizetype start = span.start + (number.data() - value.data());
    return readAsNumber(tokens, text, start, start + number.size());
}

} // namespace

void GuardStatement(const Statement& statement) {
    const QStringView text = statement.text();
    const Tokens tokens = SqlTokens(text);
    for (const ValueSpan& span : statement.values())
        if (span.length > 0 && !allowed(tokens, text, span))
            refuse(statement, text.sliced(span.start, span.length));
}

} // namespace vorta::data

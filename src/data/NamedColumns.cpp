#include "data/NamedColumns.h"

#include "base/Literals.h"
#include "data/SqlTokens.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace vorta::data {

namespace {

/// Words after which a select list is more than the columns of one table, or is counted by somebody else.
constexpr std::array othersColumns{
    QLatin1StringView("select"),    QLatin1StringView("group"), QLatin1StringView("having"), QLatin1StringView("union"),
    QLatin1StringView("intersect"), QLatin1StringView("into"),  QLatin1StringView("except"), QLatin1StringView("for")};

bool isOneOf(QStringView text, const SqlToken& token, std::span<const QLatin1StringView> words) {
    return std::any_of(words.begin(), words.end(), [&](auto word) { return token.isWord(text, word); });
}

/// `* from t`, and nothing behind it but a condition and an order by names.
bool readsOneTable(QStringView text, std::span<const SqlToken> behindSelect) {
    constexpr std::size_t table = 2;
    if (behindSelect.size() <= table || !behindSelect[0].isSymbol(text, u'*') ||
        !behindSelect[1].isWord(text, QLatin1StringView("from")) || behindSelect[table].kind != TokenKind::Word)
        return false;
    const auto rest = behindSelect.subspan(table + 1);
    constexpr std::array first{QLatin1StringView("where"), QLatin1StringView("order")};
    if (!rest.empty() && !isOneOf(text, rest.front(), first))
        return false;
    bool ordered = false;
    return std::none_of(rest.begin(), rest.end(), [&](const SqlToken& token) {
        ordered = ordered || token.isWord(text, QLatin1StringView("order"));
        const bool position = ordered && token.kind == TokenKind::Number; // of a column in the list
        return position || token.kind == TokenKind::Comment || isOneOf(text, token, othersColumns);
    });
}

} // namespace

std::optional<Statement> OnlyColumns(const Statement& statement, std::span<const Piece> columns) {
    if (columns.empty())
        return std::nullopt;
    const QStringView text = statement.text();
    const std::vector<SqlToken> tokens = SqlTokens(text);
    if (tokens.empty() || !tokens.front().isWord(text, QLatin1StringView("select")) ||
        !readsOneTable(text, std::span(tokens).subspan(1)))
        return std::nullopt;
    QStringList names;
    for (const Piece& column : columns)
        names += column.toString();
    const Edit list{tokens[1].start, tokens[1].length, names.join(u", "_s)};
    return statement.edited(std::span(&list, 1));
}

} // namespace vorta::data

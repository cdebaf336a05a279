#include "data/QualifiedColumns.h"

#include "data/SqlTokens.h"

#include <algorithm>
#include <array>

namespace vorta::data {

namespace {

constexpr std::array roleKeys{QLatin1StringView("idclie"), QLatin1StringView("idtrpt"), QLatin1StringView("idmoto"),
                              QLatin1StringView("idvend")};

/// Words that end the list of tables.
constexpr std::array tablesEnd{QLatin1StringView("where"), QLatin1StringView("group"), QLatin1StringView("order"),
                               QLatin1StringView("having"), QLatin1StringView("union")};

/// Words that follow a table without being its alias.
constexpr std::array notAlias{QLatin1StringView("where"),  QLatin1StringView("group"), QLatin1StringView("order"),
                              QLatin1StringView("having"), QLatin1StringView("union"), QLatin1StringView("on"),
                              QLatin1StringView("join"),   QLatin1StringView("inner"), QLatin1StringView("left"),
                              QLatin1StringView("right"),  QLatin1StringView("full"),  QLatin1StringView("cross")};

class Reader {
  public:
    explicit Reader(const Statement& statement) : text_(statement.text()), tokens_(SqlTokens(text_)) {}

    std::vector<Edit> edits() {
        std::vector<Edit> found;
        const std::size_t from = fromOfFirstSelect();
        if (from + 1 >= tokens_.size() || !amongTables(from))
            return found;
        const QString prefix = firstTable(from) + u'.';
        for (std::size_t i = 1; i < from; ++i)
            if (bareRoleKey(i))
                found.push_back({tokens_[i].start, 0, prefix});
        return found;
    }

  private:
    template <std::size_t Size>
    bool isOneOf(std::size_t i, const std::array<QLatin1StringView, Size>& words) const {
        return i < tokens_.size() &&
               std::any_of(words.begin(), words.end(), [&](auto word) { return tokens_[i].isWord(text_, word); });
    }
    bool isWord(std::size_t i, const char* word) const {
        return i < tokens_.size() && tokens_[i].isWord(text_, QLatin1StringView(word));
    }
    bool isSymbol(std::size_t i, QChar symbol) const {
        return i < tokens_.size() && tokens_[i].isSymbol(text_, symbol);
    }

    std::size_t fromOfFirstSelect() const {
        if (!isWord(0, "select"))
            return tokens_.size();
        int depth = 0;
        for (std::size_t i = 1; i < tokens_.size(); ++i) {
            if (isSymbol(i, u'('))
                ++depth;
            else if (isSymbol(i, u')'))
                --depth;
            else if (depth == 0 && isWord(i, "from"))
                return i;
        }
        return tokens_.size();
    }

    /// `pess` stands in FROM beside another table.
    bool amongTables(std::size_t from) const {
        bool person = false;
        bool several = false;
        for (std::size_t i = from + 1; i < tokens_.size() && !isOneOf(i, tablesEnd); ++i) {
            const bool follows = i == from + 1 || isSymbol(i - 1, u',') || isWord(i - 1, "join");
            person = person || (follows && isWord(i, "pess"));
            several = several || (follows && i > from + 1);
        }
        return person && several;
    }

    QString firstTable(std::size_t from) const {
        std::size_t name = from + 1;
        if (isWord(name + 1, "as"))
            name += 2;
        else if (name + 1 < tokens_.size() && tokens_[name + 1].kind == TokenKind::Word && !isOneOf(name + 1, notAlias))
            name += 1;
        return tokens_[name].in(text_).toString();
    }

    bool bareRoleKey(std::size_t i) const {
        return isOneOf(i, roleKeys) && !isSymbol(i - 1, u'.') && !isSymbol(i + 1, u'.') && !isWord(i - 1, "as");
    }

    QStringView text_;
    std::vector<SqlToken> tokens_;
};

} // namespace

Statement QualifyRoleKeys(const Statement& statement) {
    // Most statements read one table, and their tokens need not be read for that.
    if (!statement.text().contains(u',') && !statement.text().contains(u"join", Qt::CaseInsensitive))
        return statement;
    const std::vector<Edit> edits = Reader(statement).edits();
    return edits.empty() ? statement : statement.edited(edits);
}

} // namespace vorta::data

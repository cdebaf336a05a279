#include "firebird/Bridge.h"

#include "base/Literals.h"
#include "data/SqlTokens.h"

#include <QDate>
#include <algorithm>
#include <array>

namespace vorta::firebird {

namespace {

using data::Edit;
using data::SqlToken;
using data::Statement;
using data::TokenKind;

/// Words behind which a literal of a select list is an operand and no alias.
constexpr std::array operandFollows{
    QLatin1StringView("select"),   QLatin1StringView("distinct"),   QLatin1StringView("all"),
    QLatin1StringView("when"),     QLatin1StringView("then"),       QLatin1StringView("else"),
    QLatin1StringView("case"),     QLatin1StringView("and"),        QLatin1StringView("or"),
    QLatin1StringView("not"),      QLatin1StringView("like"),       QLatin1StringView("in"),
    QLatin1StringView("between"),  QLatin1StringView("containing"), QLatin1StringView("with"),
    QLatin1StringView("from"),     QLatin1StringView("date"),       QLatin1StringView("time"),
    QLatin1StringView("timestamp")};

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

class Tokens {
  public:
    explicit Tokens(const Statement& statement) : text_(statement.text()), tokens_(data::SqlTokens(text_)) {}

    std::size_t size() const { return tokens_.size(); }
    const SqlToken& operator[](std::size_t i) const { return tokens_[i]; }
    QStringView in(std::size_t i) const { return tokens_[i].in(text_); }
    bool is(std::size_t i, TokenKind kind) const { return i < size() && tokens_[i].kind == kind; }
    bool isWord(std::size_t i, const char* word) const {
        return i < size() && tokens_[i].isWord(text_, QLatin1StringView(word));
    }
    bool isSymbol(std::size_t i, QChar symbol) const { return i < size() && tokens_[i].isSymbol(text_, symbol); }
    /// Between the apostrophes.
    QStringView content(std::size_t i) const { return in(i).sliced(1, in(i).size() - 2); }
    /// The parenthesis that closes the one at `open`; the end when none does.
    std::size_t closing(std::size_t open) const {
        int depth = 0;
        for (std::size_t i = open; i < size(); ++i) {
            if (isSymbol(i, u'('))
                ++depth;
            else if (isSymbol(i, u')') && --depth == 0)
                return i;
        }
        return size();
    }

  private:
    QStringView text_;
    std::vector<SqlToken> tokens_;
};

bool isAlias(const Tokens& tokens, std::size_t i) {
    if (!tokens.is(i, TokenKind::Literal) || !tokens[i].closed)
        return false;
    if (i + 1 < tokens.size() && !tokens.isSymbol(i + 1, u',') && !tokens.isWord(i + 1, "from"))
        return false;
    if (tokens.isSymbol(i - 1, u')') || tokens.is(i - 1, TokenKind::QuotedName))
        return true;
    return tokens.is(i - 1, TokenKind::Word) &&
           std::none_of(operandFollows.begin(), operandFollows.end(),
                        [&](auto word) { return tokens.in(i - 1).compare(word, Qt::CaseInsensitive) == 0; });
}

/// The name that a literal's content spells; a quote inside it is doubled, so that it cannot end the name.
QString quotedName(QStringView content) {
    return u'"' + content.toString().replace(u"''"_s, u"'"_s).replace(u"\""_s, u"\"\""_s) + u'"';
}

/// Both forms of the date at a literal: none unless it is eight digits that are a date of the calendar.
QString dashedDate(QStringView content) {
    if (content.size() != 8 || !std::ranges::all_of(content, isDigit))
        return {};
    const QDate date = QDate::fromString(content.toString(), u"yyyyMMdd"_s);
    return date.isValid() ? date.toString(u"yyyy-MM-dd"_s) : QString();
}

std::vector<bool> describeEach(const Statement& statement, const std::vector<Edit>& questions,
                               const DescribeDates& describe) {
    if (const auto together = describe(statement.edited(questions).text());
        together && together->size() == questions.size())
        return *together;
    // One of them stands where no parameter can: each is then asked for by itself.
    std::vector<bool> dates;
    for (const Edit& question : questions) {
        const auto alone = describe(statement.edited(std::span(&question, 1)).text());
        dates.push_back(alone && alone->size() == 1 && alone->front());
    }
    return dates;
}

/// True when the select list ends in front of the first apostrophe, seen without reading the tokens.
bool listHasNoLiteral(QStringView text) {
    const QStringView head = text.first(std::max(text.indexOf(u'\''), qsizetype{0}));
    const bool plain = !head.contains(u'(') && !head.contains(u'"') && !head.contains(u'[') && !head.contains(u"--") &&
                       !head.contains(u"/*");
    return plain && head.contains(u" from ", Qt::CaseInsensitive);
}

/// True when some literal may be a date of eight digits, seen without reading the tokens.
bool mayHoldDate(QStringView text) {
    constexpr qsizetype digits = 8;
    for (qsizetype at = text.indexOf(u'\''); at >= 0; at = text.indexOf(u'\'', at + 1)) {
        const QStringView inside = text.sliced(at + 1).first(std::min(digits, text.size() - at - 1));
        if (at + digits + 1 < text.size() && text[at + digits + 1] == u'\'' && std::ranges::all_of(inside, isDigit))
            return true;
    }
    return false;
}

bool startsWithWord(QStringView text, QStringView word) {
    return text.trimmed().startsWith(word, Qt::CaseInsensitive);
}

/// True when some value may be an operand, seen without reading the tokens.
bool mayHoldOperand(const Statement& statement) {
    const QStringView text = statement.text();
    const bool isQuery = startsWithWord(text, u"select");
    return std::ranges::any_of(statement.values(), [text, isQuery](const data::ValueSpan& span) {
        if (span.start == 0)
            return false;
        if (text[span.start - 1] == u'\'')
            return isQuery && text.first(span.start - 1).trimmed().endsWith(u'=');
        return span.length > 0 && isDigit(text[span.start]);
    });
}

/// The whole number that a value is by itself.
std::optional<Operand> wholeNumber(const Tokens& tokens, std::size_t i, const data::ValueSpan& span) {
    if (!tokens.is(i, TokenKind::Number) || tokens[i].start != span.start || tokens[i].length != span.length)
        return std::nullopt;
    bool whole = false;
    const qint64 integer = tokens.in(i).toLongLong(&whole);
    return whole ? std::optional<Operand>(integer) : std::nullopt;
}

/// The text of a literal that a value is all of, that is the whole of what follows an `=` (no `<=`, `>=` or `!=`).
std::optional<Operand> equalledText(const Tokens& tokens, std::size_t i, const data::ValueSpan& span) {
    if (i < 2 || !tokens.is(i, TokenKind::Literal) || !tokens[i].closed || tokens[i].start + 1 != span.start ||
        tokens[i].length != span.length + 2)
        return std::nullopt;
    if (!tokens.isSymbol(i - 1, u'=') ||
        std::ranges::any_of(std::array{u'<', u'>', u'!', u'^', u'~'},
                            [&](char16_t part) { return tokens.isSymbol(i - 2, part); }))
        return std::nullopt;
    if (tokens.is(i + 1, TokenKind::Symbol) && !tokens.isSymbol(i + 1, u')') && !tokens.isSymbol(i + 1, u';'))
        return std::nullopt;
    return tokens.content(i).toString().replace(u"''"_s, u"'"_s);
}

/// `SELECT TOP`, seen without reading the tokens of the rest.
bool startsWithTop(QStringView text) {
    constexpr qsizetype select = 6;
    return text.trimmed().mid(select).trimmed().startsWith(u"top", Qt::CaseInsensitive);
}

/// Where the values of `INSERT INTO table (...) VALUES (...)` begin: their parenthesis.
std::optional<std::size_t> insertedValues(const Tokens& tokens) {
    if (!tokens.isWord(0, "insert") || !tokens.isWord(1, "into") || !tokens.is(2, TokenKind::Word))
        return std::nullopt;
    std::size_t next = 3;
    if (tokens.isSymbol(next, u'('))
        next = tokens.closing(next) + 1;
    if (!tokens.isWord(next, "values") || !tokens.isSymbol(next + 1, u'('))
        return std::nullopt;
    return next + 1;
}

} // namespace

Statement BridgeSyntax(const Statement& statement) {
    const bool plain = !statement.text().contains(u'\'') || listHasNoLiteral(statement.text());
    if (plain && !startsWithTop(statement.text()))
        return statement;
    const Tokens tokens(statement);
    if (!tokens.isWord(0, "select"))
        return statement;
    std::vector<Edit> edits;
    if (tokens.isWord(1, "top") && tokens.is(2, TokenKind::Number))
        edits.push_back({tokens[1].start, tokens[1].length, u"FIRST"_s});
    int depth = 0;
    for (std::size_t i = 1; i < tokens.size() && !(depth == 0 && tokens.isWord(i, "from")); ++i) {
        if (tokens.isSymbol(i, u'('))
            ++depth;
        else if (tokens.isSymbol(i, u')'))
            --depth;
        else if (depth == 0 && isAlias(tokens, i))
            edits.push_back({tokens[i].start, tokens[i].length, quotedName(tokens.content(i))});
    }
    return edits.empty() ? statement : statement.edited(edits);
}

std::optional<QString> IdentityColumn(const Statement& statement) {
    // Looked at for every query, so the plain character is looked for first.
    if (!statement.text().contains(u'@') || !statement.text().contains(u"@@identity", Qt::CaseInsensitive))
        return std::nullopt;
    const Tokens tokens(statement);
    if (!tokens.isWord(0, "select") || !tokens.isWord(1, "@@identity"))
        return std::nullopt;
    if (tokens.size() == 2)
        return QString();
    const std::size_t alias = tokens.isWord(2, "as") ? 3 : 2;
    if (tokens.size() != alias + 1)
        return std::nullopt;
    return tokens.is(alias, TokenKind::Word) ? tokens.in(alias).toString() : tokens.content(alias).toString();
}

std::optional<QString> InsertedTable(const Statement& statement) {
    if (!startsWithWord(statement.text(), u"insert"))
        return std::nullopt;
    const Tokens tokens(statement);
    const std::optional<std::size_t> values = insertedValues(tokens);
    // Whatever follows the one row of values (a clause of its own) leaves the insert as it is.
    if (!values || tokens.closing(*values) + 1 != tokens.size())
        return std::nullopt;
    return tokens.in(2).toString();
}

Statement ReturningKey(const Statement& statement, const QString& table) {
    const Edit clause{statement.text().size(), 0, u" RETURNING id"_s + table};
    return statement.edited(std::span(&clause, 1));
}

Statement BridgeDates(const Statement& statement, const DescribeDates& describe) {
    if (!mayHoldDate(statement.text()))
        return statement;
    const Tokens tokens(statement);
    std::vector<Edit> questions;
    std::vector<Edit> dates;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens.is(i, TokenKind::Literal) || !tokens[i].closed)
            continue;
        const QString date = dashedDate(tokens.content(i));
        if (date.isEmpty())
            continue;
        questions.push_back({tokens[i].start, tokens[i].length, u"?"_s});
        dates.push_back({tokens[i].start, tokens[i].length, u'\'' + date + u'\''});
    }
    if (dates.empty())
        return statement;
    const std::vector<bool> isDate = describeEach(statement, questions, describe);
    std::vector<Edit> edits;
    for (std::size_t i = 0; i < dates.size(); ++i)
        if (isDate[i])
            edits.push_back(dates[i]);
    return edits.empty() ? statement : statement.edited(edits);
}

QString Shape(const QString& text) {
    QString shape;
    qsizetype copied = 0;
    for (const SqlToken& token : data::SqlTokens(text)) {
        if (token.kind != TokenKind::Literal || !token.closed)
            continue;
        shape += QStringView(text).sliced(copied, token.start + 1 - copied);
        copied = token.end() - 1;
    }
    return shape += QStringView(text).sliced(copied);
}

Parameterised TakeOperands(const Statement& statement) {
    if (!mayHoldOperand(statement))
        return {};
    const Tokens tokens(statement);
    const bool isQuery = tokens.isWord(0, "select");
    std::vector<Edit> edits;
    Parameterised taken;
    std::size_t i = 0;
    for (const data::ValueSpan& span : statement.values()) {
        while (i < tokens.size() && tokens[i].end() <= span.start)
            ++i;
        std::optional<Operand> operand = wholeNumber(tokens, i, span);
        if (!operand && isQuery)
            operand = equalledText(tokens, i, span);
        if (!operand)
            continue;
        edits.push_back({tokens[i].start, tokens[i].length, u"?"_s});
        taken.operands.push_back(*std::move(operand));
    }
    if (!edits.empty())
        taken.text = statement.edited(edits).text();
    return taken;
}

std::optional<InsertedValues> TakeInsertedValues(const Statement& statement) {
    const Tokens tokens(statement);
    const std::optional<std::size_t> values = insertedValues(tokens);
    if (!values)
        return std::nullopt;
    std::vector<Edit> edits;
    InsertedValues taken;
    const std::size_t end = tokens.closing(*values);
    for (std::size_t i = *values + 1; i < end; i += 2) {
        if (i + 1 != end && !tokens.isSymbol(i + 1, u','))
            return std::nullopt; // more than a value
        if (tokens.isWord(i, "null"))
            continue;
        if (tokens.is(i, TokenKind::Literal) && tokens[i].closed)
            taken.texts.push_back(tokens.content(i).toString().replace(u"''"_s, u"'"_s));
        else if (tokens.is(i, TokenKind::Number) && std::ranges::all_of(tokens.in(i), isDigit))
            taken.texts.push_back(tokens.in(i).toString());
        else
            return std::nullopt;
        edits.push_back({tokens[i].start, tokens[i].length, u"?"_s});
    }
    if (edits.empty())
        return std::nullopt;
    taken.statement = statement.edited(edits).text();
    return taken;
}

} // namespace vorta::firebird

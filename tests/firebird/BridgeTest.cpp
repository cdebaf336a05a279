#include "firebird/Bridge.h"
#include "base/Literals.h"

#include <gtest/gtest.h>

namespace vorta::firebird {

namespace {

using data::Piece;
using data::Statement;

std::string syntax(Piece text) {
    return BridgeSyntax(Statement(text)).text().toStdString();
}

/// Says that the chosen parameters, counted from the left, are dates.
DescribeDates datesAt(std::vector<bool> dates) {
    return [dates](const QString&) { return std::optional(dates); };
}

} // namespace

TEST(Bridge, TopBecomesFirst) {
    EXPECT_EQ(syntax("SELECT TOP 10 NOME FROM PESS"), "SELECT FIRST 10 NOME FROM PESS");
    EXPECT_EQ(syntax("select top 5 * from pess"), "select FIRST 5 * from pess");
    EXPECT_EQ(syntax("SELECT TOP FROM PESS"), "SELECT TOP FROM PESS");
    EXPECT_EQ(syntax("SELECT NOME FROM PESS WHERE X = 'SELECT TOP 5'"),
              "SELECT NOME FROM PESS WHERE X = 'SELECT TOP 5'");
}

TEST(Bridge, AliasInApostrophesBecomesAName) {
    EXPECT_EQ(syntax("select count(*) 'qt' from pess"), "select count(*) \"qt\" from pess");
    EXPECT_EQ(syntax("SELECT NOME 'N', CEP AS 'C' FROM PESS"), "SELECT NOME \"N\", CEP AS \"C\" FROM PESS");
    EXPECT_EQ(syntax("SELECT max(x) 'a b' FROM t"), "SELECT max(x) \"a b\" FROM t");
}

TEST(Bridge, QuotesInAnAliasAreDoubled) {
    EXPECT_EQ(syntax("select count(*) 'a\"b' from pess"), "select count(*) \"a\"\"b\" from pess");
    EXPECT_EQ(syntax("select count(*) 'x\" from usen -- ' from pess"),
              "select count(*) \"x\"\" from usen -- \" from pess");
    EXPECT_EQ(syntax("select count(*) 'd''agua' from pess"), "select count(*) \"d'agua\" from pess");
}

TEST(Bridge, LiteralsThatAreNoAliasStay) {
    for (const Statement& statement :
         {Statement("SELECT 'X' FROM T"), Statement("SELECT DISTINCT 'X', 'Y' FROM T"),
          Statement("SELECT NOME || 'X' FROM T"), Statement("SELECT CASE WHEN A = 'X' THEN 'Y' ELSE 'Z' END FROM T"),
          Statement("SELECT NOME FROM T WHERE NOME LIKE 'X'"), Statement("SELECT COALESCE(NOME, 'X') FROM T"),
          Statement("INSERT INTO T VALUES ('X')")})
        EXPECT_EQ(BridgeSyntax(statement), statement) << statement.text();
}

TEST(Bridge, IdentityColumn) {
    EXPECT_EQ(IdentityColumn(Statement("SELECT @@IDENTITY AS 'MAXROWID'")), u"MAXROWID"_s);
    EXPECT_EQ(IdentityColumn(Statement("select @@identity as id")), u"id"_s);
    EXPECT_EQ(IdentityColumn(Statement("select @@identity")), QString());
    EXPECT_FALSE(IdentityColumn(Statement("select x from t where y = '@@identity'")));
    EXPECT_FALSE(IdentityColumn(Statement("select @@identity + 1 as 'x'")));
}

TEST(Bridge, InsertedTable) {
    EXPECT_EQ(InsertedTable(Statement(" insert into arqt (nome) values ('a')")), u"arqt"_s);
    EXPECT_EQ(InsertedTable(Statement("INSERT INTO T VALUES (GEN_ID(G, 1), ')')")), u"T"_s);
    EXPECT_FALSE(InsertedTable(Statement("insert into t (a) select b from u")));
    EXPECT_FALSE(InsertedTable(Statement("insert into t (a) values (1) returning a")));
    EXPECT_FALSE(InsertedTable(Statement("insert into t (a) values (1")));
    EXPECT_FALSE(InsertedTable(Statement("update t set a = 1")));
    EXPECT_EQ(ReturningKey(Statement("insert into arqt (nome) values ('a')"), u"ARQT"_s).text(),
              u"insert into arqt (nome) values ('a') RETURNING idARQT");
}

TEST(Bridge, DatesOnlyWhereTheEngineTakesOne) {
    const Statement statement("update t set cep = '20260101', dia = '20260102' where fone = '20260103'");
    EXPECT_EQ(BridgeDates(statement, datesAt({false, true, false})).text(),
              u"update t set cep = '20260101', dia = '2026-01-02' where fone = '20260103'");
}

TEST(Bridge, NoDateNoQuestion) {
    const auto never = [](const QString& text) -> std::optional<std::vector<bool>> {
        ADD_FAILURE() << text;
        return std::nullopt;
    };
    for (const Statement& statement : {Statement("update t set a = '2026010', b = '202601011', c = '20261301'"),
                                       Statement("update t set a = 20260101, b = '2026/01/01', c = ''")})
        EXPECT_EQ(BridgeDates(statement, never), statement);
}

TEST(Bridge, UndescribedTextIsAskedPieceByPiece) {
    const Statement statement("select '20260101' from t where dia = '20260102'");
    const auto describe = [](const QString& text) -> std::optional<std::vector<bool>> {
        if (text.startsWith(u"select ?"))
            return std::nullopt;
        return std::vector{true};
    };
    EXPECT_EQ(BridgeDates(statement, describe).text(), u"select '20260101' from t where dia = '2026-01-02'");
}

TEST(Bridge, OperandsStandAside) {
    Statement statement;
    statement << "select * from t where a = " << 15 << " and b = '" << u"16"_s << "' and c = 17 and d = " << u"-18"_s
              << " and e = " << u"1.5"_s;
    const Parameterised taken = TakeOperands(statement);
    EXPECT_EQ(taken.text, u"select * from t where a = ? and b = ? and c = 17 and d = -18 and e = 1.5");
    EXPECT_EQ(taken.operands, (std::vector<Operand>{15, u"16"_s}));
    EXPECT_TRUE(TakeOperands(Statement("select 1 from t")).operands.empty());
}

TEST(Bridge, OnlyWholeLiteralsBehindAnEqualSignStandAside) {
    const auto taken = [](Piece head, const char* value, Piece tail) {
        const Parameterised aside = TakeOperands(Statement(head) << QString::fromUtf8(value) << tail);
        return aside.operands.empty() ? QString() : aside.text;
    };
    EXPECT_EQ(taken("select * from t where a ='", "x", "' order by b"), u"select * from t where a =? order by b");
    EXPECT_EQ(taken("select * from t where a = '", "", "'"), u"select * from t where a = ?");
    EXPECT_EQ(taken("select * from t where a = '", "o''neil", "'"), u"select * from t where a = ?");
    for (const Piece head : {Piece("select * from t where a like '"), Piece("select * from t where a >= '"),
                             Piece("select * from t where a <> '"), Piece("select * from t where a = '%"),
                             Piece("update t set b = 1 where a = '"), Piece("select '")})
        EXPECT_EQ(taken(head, "x", "'"), QString()) << head.utf8();
    EXPECT_EQ(taken("select * from t where a = '", "x", "%'"), QString());
    EXPECT_EQ(taken("select * from t where a = '", "x", ""), QString());
    EXPECT_EQ(taken("select * from t where a = 'b' || '", "x", "'"), QString());
    EXPECT_EQ(taken("select * from t where a = '", "x", "' || b"), QString());
}

TEST(Bridge, ShapeIsTheTextWithoutTheContentOfItsLiterals) {
    EXPECT_EQ(Shape(u"insert into t (a, b) values ('O''NEIL', ?) returning id"_s),
              u"insert into t (a, b) values ('', ?) returning id");
    EXPECT_EQ(Shape(u"select 'a', 'b' from t where c = ''"_s), u"select '', '' from t where c = ''");
    EXPECT_EQ(Shape(u"select 1 from t -- 'x'"_s), u"select 1 from t -- 'x'");
}

TEST(Bridge, ValuesOfAnInsertStandAside) {
    const auto taken = [](const char* text) {
        return TakeInsertedValues(data::Statement() += QString::fromUtf8(text));
    };
    const auto insert = taken("insert into t (a, b, c, d) values ('O''NEIL', 12,NULL, '') returning idt");
    ASSERT_TRUE(insert);
    EXPECT_EQ(insert->statement, u"insert into t (a, b, c, d) values (?, ?,NULL, ?) returning idt");
    EXPECT_EQ(insert->texts, (std::vector{u"O'NEIL"_s, u"12"_s, QString()}));
    EXPECT_TRUE(taken("insert into t values ('a')"));
    for (const char* other :
         {"insert into t (a) values (null)", "insert into t (a) values ('a' || 'b')", "insert into t (a) values (-1)",
          "insert into t (a) values (1.5)", "insert into t (a) values (gen_id(g, 1), 'a')",
          "insert into t (a) values ()", "insert into t (a) values (date '2026-01-01')",
          "insert into t (a) select 'a' from u", "update t set a = 'a'", "insert into t (a) values ('a"})
        EXPECT_FALSE(taken(other)) << other;
}

} // namespace vorta::firebird

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/Recordset.h"
#include "data/conformance/Contexts.h"

namespace vorta::test {

namespace {

using data::Recordset;
using data::Statement;

Statement person(int id, const QString& name) {
    Statement statement;
    statement << "insert into pess (idpess, nome) values (" << id << ", '" << name << "')";
    return statement;
}

} // namespace

TEST_P(ConformanceTest, UnusableConnectionStringsFailAsConnections) {
    for (const QString& text : GetParam().unusable()) {
        data::Connection other([this](data::Engine) { return GetParam().adapter(); });
        other.ConnectionTimeout = 2;
        EXPECT_EQ(ErrorOf([&] { other.Open(GetParam().engine, text); }), errorNumber::ConnectionFailed)
            << text.toStdString();
        EXPECT_FALSE(other.IsOpen());
    }
}

TEST_P(ConformanceTest, EveryKindOfColumn) {
    write(Statement("insert into pess (idpess, nome, sigla, data_incl, valor, peso, obse) "
                    "values (7, 'JOÃO', 'SP', '20260307', -12.50, 0.25, 'LINHA 1')"));
    Recordset rows;
    rows.Open(Statement("select * from pess"), *connection);
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.Fields("IdPess"), data::Value(qint64{7}));
    EXPECT_EQ(rows.Fields("nome").text(), u"JOÃO");
    EXPECT_EQ(rows.Fields("sigla").text(), u"SP "); // a fixed-length text is as long as its column
    EXPECT_EQ(rows.Fields("data_incl").date().date(), QDate(2026, 3, 7));
    EXPECT_EQ(rows.Fields("data_incl").text(), u"07/03/2026");
    EXPECT_EQ(rows.Fields("valor"), data::Value(data::Decimal{-1250, 2}));
    EXPECT_EQ(rows.Fields("peso").number(), 0.25);
    EXPECT_EQ(rows.Fields("obse").text(), u"LINHA 1");
    EXPECT_TRUE(rows.Fields("cep").isNull());
    EXPECT_TRUE(rows.Fields("momento").isNull());
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("idforn"); }), errorNumber::NoSuchColumn);
}

TEST_P(ConformanceTest, EmptyTextIsNoNull) {
    write(Statement("insert into pess (idpess, nome, obse) values (1, '', '')"));
    EXPECT_EQ(one(Statement("select nome from pess")), u"");
    EXPECT_EQ(one(Statement("select obse from pess")), u"");
}

TEST_P(ConformanceTest, RepertoireComesBackAsItWent) {
    QString repertoire = u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ"_s;
    for (char16_t c = 0xa1; c <= 0xff; ++c)
        repertoire += QChar(c);
    for (int start = 0; start < repertoire.size(); start += 50)
        write(person(start + 1, repertoire.mid(start, 50)));
    Recordset rows;
    rows.Open(Statement("select nome from pess order by idpess"), *connection);
    QString back;
    for (; !rows.Eof(); rows.MoveNext())
        back += rows.Fields(0).text();
    EXPECT_EQ(back, repertoire);
}

TEST_P(ConformanceTest, LongTextComesBackWhole) {
    const QString text = u"AÇÃO "_s.repeated(3000);
    Statement statement;
    statement << "insert into pess (idpess, obse) values (1, '" << text << "')";
    write(statement);
    EXPECT_EQ(one(Statement("select obse from pess")), text);
}

TEST_P(ConformanceTest, OldAndLateDates) {
    write(Statement("insert into pess (idpess, data_incl) values (1, '17530101')"));
    write(Statement("insert into pess (idpess, data_incl) values (2, '99991231')"));
    write(Statement("insert into pess (idpess, momento) values (3, '2026-11-20 14:30:05')"));
    EXPECT_EQ(one(Statement("select data_incl from pess where idpess = 1")), u"01/01/1753");
    EXPECT_EQ(one(Statement("select data_incl from pess where idpess = 2")), u"31/12/9999");
    Recordset rows;
    rows.Open(Statement("select momento from pess where idpess = 3"), *connection);
    EXPECT_EQ(rows.Fields(0).date().date(), QDate(2026, 11, 20));
    EXPECT_EQ(rows.Fields(0).date().time(), QTime(14, 30, 5));
}

TEST_P(ConformanceTest, AggregatesKeepTheirKind) {
    write(Statement("insert into pess (idpess, valor) values (1, 10.10)"));
    write(Statement("insert into pess (idpess, valor) values (2, 0.15)"));
    EXPECT_EQ(one(Statement("select sum(valor) from pess")), u"10,25");
    EXPECT_EQ(one(Statement("select count(*) from pess")), u"2");
    EXPECT_EQ(one(Statement("select max(valor) from pess where idpess > 5")), u"(null)");
}

TEST_P(ConformanceTest, ManyRowsInOrder) {
    connection->BeginTrans();
    for (int i = 1; i <= 3000; ++i)
        write(person(i, u"PESSOA %1"_s.arg(i)));
    connection->CommitTrans();
    Recordset rows;
    rows.Open(Statement("select idpess, nome from pess order by idpess"), *connection);
    ASSERT_EQ(rows.RecordCount(), 3000);
    for (int i = 1; i <= 3000; ++i, rows.MoveNext())
        ASSERT_EQ(rows.Fields("nome").text(), u"PESSOA %1"_s.arg(i));
}

TEST_P(ConformanceTest, DateLiteralsByTheColumnNotByTheLook) {
    write(Statement("insert into pess (idpess, nome, cep, data_incl) values (1, '20260101', '20260102', '20260103')"));
    write(Statement("insert into pess (idpess, nome, cep, data_incl) values (2, 'X', '01310100', '2026/01/04')"));
    EXPECT_EQ(one(Statement("select nome from pess where idpess = 1")), u"20260101");
    EXPECT_EQ(one(Statement("select cep from pess where idpess = 1")), u"20260102");
    EXPECT_EQ(one(Statement("select data_incl from pess where idpess = 1")), u"03/01/2026");
    EXPECT_EQ(one(Statement("select data_incl from pess where idpess = 2")), u"04/01/2026");
    write(Statement("update pess set cep = '20270101', data_incl = '20270102' where data_incl = '20260103'"));
    EXPECT_EQ(one(Statement("select cep from pess where data_incl >= '20270101' and cep = '20270101'")), u"20270101");
    EXPECT_EQ(one(Statement("select count(*) from pess where data_incl between '20260104' and '20270102'")), u"2");
    EXPECT_EQ(one(Statement("select '20260101' from pess where data_incl = '20270102'")), u"20260101");
}

TEST_P(ConformanceTest, ImpossibleDateIsRefused) {
    EXPECT_EQ(ErrorOf([&] { write(Statement("insert into pess (idpess, data_incl) values (1, '20261331')")); }),
              errorNumber::StatementRefused);
}

TEST_P(ConformanceTest, TopLimitsTheRows) {
    for (int i = 1; i <= 5; ++i)
        write(person(i, u"P"_s));
    Statement statement;
    statement << "SELECT TOP " << u"2"_s << " IDPESS FROM PESS ORDER BY IDPESS DESC";
    Recordset rows;
    rows.Open(statement, *connection);
    ASSERT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(rows.Fields(0).toInt32(), 5);
    Statement typed;
    typed << "SELECT TOP " << u"dois"_s << " IDPESS FROM PESS";
    EXPECT_EQ(ErrorOf([&] { rows.Open(typed, *connection); }), errorNumber::StatementRefused);
}

TEST_P(ConformanceTest, AliasInApostrophesNamesTheColumn) {
    write(person(1, u"A"_s));
    Recordset rows;
    rows.Open(Statement("select count(*) 'qt' from pess where data_incl is null"), *connection);
    EXPECT_EQ(rows.Fields("QT").toInt32(), 1);
}

TEST_P(ConformanceTest, RoleKeyBesideThePersonIsNotAmbiguous) {
    write(person(1, u"CLIENTE"_s));
    write(Statement("insert into clie (idclie, idpess) values (9, 1)"));
    Recordset rows;
    rows.Open(Statement("SELECT IDCLIE, NOME FROM CLIE, PESS WHERE CLIE.IDPESS = PESS.IDPESS"), *connection);
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.Fields("idclie").toInt32(), 9);
}

/// The databases have the collations that the kit's definitions ask for.
TEST_P(ConformanceTest, SearchFindsAccentsByTheCollation) {
    write(person(1, u"JOÃO DA CONCEIÇÃO"_s));
    EXPECT_EQ(one(Statement("SELECT COUNT(*) FROM PESS WHERE NOME LIKE '%CONCEICAO%'")), u"1");
    EXPECT_EQ(one(Statement("SELECT COUNT(*) FROM PESS WHERE NOME LIKE '%JOÃO%'")), u"1");
}

/// The same comparison with every kind of number, over and over: a statement kept prepared must answer as its text
/// does.
TEST_P(ConformanceTest, PlainNumbersAnswerAsTheirText) {
    write(Statement("insert into pess (idpess, nome, cep, valor) values (1, '5', '12', 2.50)"));
    write(Statement("insert into pess (idpess, nome, cep, valor) values (2, '05', '13', 3)"));
    const auto count = [&](data::Piece condition, auto value) {
        Statement statement;
        statement << "select count(*) from pess where " << condition << value;
        return one(statement).toInt();
    };
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(count("idpess = ", 1), 1);
        EXPECT_EQ(count("idpess = ", 2), 1);
        EXPECT_EQ(count("idpess = ", 3), 0);
        EXPECT_EQ(count("idpess = ", u"2"_s), 1);
        EXPECT_EQ(count("idpess > ", u"-1"_s), 2);
        EXPECT_EQ(count("idpess < ", u"9999999999"_s), 2);
        EXPECT_EQ(count("valor = ", 3), 1);
        EXPECT_EQ(count("valor > ", 2), 2);
        EXPECT_EQ(count("valor = ", u"2.50"_s), 1);
        EXPECT_EQ(count("idpess + 1 = ", 3), 1);
        EXPECT_EQ(count("valor * 2 = ", 5), 1);
    }
}

/// The same for texts, which are kept prepared too where one is compared for equality.
TEST_P(ConformanceTest, ComparedTextsAnswerAsTheirLiterals) {
    write(Statement("insert into pess (idpess, nome, cep, valor) values (1, 'ALFA', '12', 2.50)"));
    const auto count = [&](data::Piece condition, const QString& value) {
        Statement statement;
        statement << "select count(*) from pess where " << condition << value << "'";
        return one(statement).toInt();
    };
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(count("nome = '", u"ALFA"_s), 1);
        EXPECT_EQ(count("nome = '", u"BETA"_s), 0);
        EXPECT_EQ(count("nome = '", {}), 0);
        EXPECT_EQ(count("nome = '", QString(100, u'A')), 0) << "longer than the column";
        EXPECT_EQ(count("nome = '", QString(1000, u'A')), 0);
        EXPECT_EQ(count("cep = '", u"12"_s), 1);
        EXPECT_EQ(count("cep = '", QString(100, u'1')), 0);
        EXPECT_EQ(count("idpess = '", u"1"_s), 1);
        EXPECT_EQ(count("nome <> '", u"BETA"_s), 1);
        EXPECT_EQ(count("nome >= '", u"ALFA"_s), 1);
    }
}

TEST_P(ConformanceTest, OnlyTheNamedColumnsOfAWideTableCome) {
    write(Statement("insert into pess (idpess, nome, cep, valor) values (2, 'BETA', '12', 2.50)"));
    write(Statement("insert into pess (idpess, nome, data_incl) values (1, 'ALFA', '20260307')"));
    for (int round = 0; round < 3; ++round) { // the same text comes again
        Recordset rows;
        rows.Open(Statement("SELECT * FROM PESS WHERE IDPESS > 0 ORDER BY NOME"), *connection,
                  {.columns = {"idPess", "valor", "DATA_INCL"}});
        ASSERT_EQ(rows.RecordCount(), 2);
        EXPECT_EQ(rows.Fields("idpess").toInt32(), 1);
        EXPECT_EQ(rows.Fields("data_incl").text(), u"07/03/2026");
        EXPECT_TRUE(rows.Fields("valor").isNull());
        EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("nome"); }), errorNumber::NoSuchColumn);
        EXPECT_EQ(ErrorOf([&] { (void)rows.Fields(3); }), errorNumber::NoSuchColumn);
        rows.MoveNext();
        EXPECT_EQ(rows.Fields("valor").number(), 2.5);
    }
}

/// Nothing of what is named stands in another table's text, so a column that is not there is found where it is read.
TEST_P(ConformanceTest, ANamedColumnThatIsNotThereIsMissedWhereItIsRead) {
    write(person(1, u"ALFA"_s));
    Recordset rows;
    rows.Open(Statement("select * from pess"), *connection, {.columns = {"idpess", "nome", "fantasia"}});
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.Fields("nome").text(), u"ALFA");
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("fantasia"); }), errorNumber::NoSuchColumn);
}

/// What the engine refuses is refused in the words that the flow's own text gets.
TEST_P(ConformanceTest, NamedColumnsChangeNoError) {
    const auto failureOf = [&](const Statement& statement, std::vector<data::Piece> columns) {
        try {
            Recordset rows;
            rows.Open(statement, *connection, {.columns = std::move(columns)});
        } catch (const RuntimeError& failure) {
            return QStringList{QString::number(failure.number()), failure.description(), failure.sqlState(),
                               QString::number(failure.engineCode()), failure.statement()};
        }
        return QStringList();
    };
    for (const Statement& statement :
         {Statement("select * from pess where fantasia = 'x'"), Statement("select * from pess order by fantasia"),
          Statement("select * from pess where idpess = 'x'"), Statement("select * from pess where idpess ="),
          Statement("select * from nowhere")}) {
        const QStringList plain = failureOf(statement, {});
        EXPECT_FALSE(plain.isEmpty()) << statement.text().toStdString();
        EXPECT_EQ(failureOf(statement, {"idpess", "nome"}), plain);
    }
}

/// Joins are sent as they stand, whatever is named.
TEST_P(ConformanceTest, NamedColumnsOfSeveralTablesComeAsTheTextAsks) {
    write(person(1, u"ALFA"_s));
    write(Statement("insert into clie (idclie, idpess) values (7, 1)"));
    Recordset rows;
    rows.Open(Statement("select * from clie, pess where clie.idpess = pess.idpess"), *connection,
              {.columns = {"nome", "idpess"}});
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.Fields("nome").text(), u"ALFA");
    EXPECT_EQ(rows.Fields("idpess").toInt32(), 1);
    EXPECT_EQ(ErrorOf([&] { (void)rows.Fields("cep"); }), errorNumber::NoSuchColumn);
}

INSTANTIATE_TEST_SUITE_P(Engines, ConformanceTest, testing::ValuesIn(EngineContexts()), NameOf);

} // namespace vorta::test

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/Recordset.h"
#include "data/conformance/Contexts.h"

#include <QElapsedTimer>

namespace vorta::test {

namespace {

using data::Recordset;
using data::Statement;

const Statement identity("SELECT @@IDENTITY AS 'MAXROWID'");
const Statement countPersons("select count(*) from pess");

} // namespace

class ConformanceWrites : public ConformanceTest {};

TEST_P(ConformanceWrites, WriteOutsideATransactionIsThereForAll) {
    const auto other = connect();
    EXPECT_EQ(one(*other, countPersons), u"0");
    write(Statement("insert into pess (idpess) values (1)"));
    EXPECT_EQ(one(*other, countPersons), u"1");
}

TEST_P(ConformanceWrites, TransactionSeesItsOwnWritesAndCommitsThem) {
    connection->BeginTrans();
    write(Statement("insert into pess (idpess) values (1)"));
    write(Statement("insert into clie (idclie, idpess) values (1, 1)"));
    EXPECT_EQ(one(countPersons), u"1");
    connection->CommitTrans();
    EXPECT_EQ(one(*connect(), countPersons), u"1");
}

TEST_P(ConformanceWrites, TransactionDiesWithItsConnection) {
    {
        const auto other = connect();
        other->BeginTrans();
        other->Execute(Statement("insert into pess (idpess) values (1)"));
        other->Close();
    }
    {
        const auto other = connect();
        other->BeginTrans();
        other->Execute(Statement("insert into pess (idpess) values (2)"));
    }
    EXPECT_EQ(one(countPersons), u"0");
}

TEST_P(ConformanceWrites, RollbackUndoesItsTransactionAndLeavesTheConnectionUsable) {
    const auto adapter = bare();
    EXPECT_EQ(ErrorOf([&] { adapter->rollback(); }), errorNumber::StatementRefused);
    adapter->begin();
    adapter->execute(Statement("insert into pess (idpess) values (1)"));
    EXPECT_EQ(ErrorOf([&] { adapter->execute(Statement("insert into nowhere (a) values (1)")); }),
              errorNumber::StatementRefused);
    adapter->rollback();
    EXPECT_EQ(one(countPersons), u"0");
    adapter->begin();
    adapter->execute(Statement("insert into pess (idpess) values (2)"));
    adapter->commit();
    EXPECT_EQ(one(countPersons), u"1");
    EXPECT_EQ(ErrorOf([&] { adapter->rollback(); }), errorNumber::StatementRefused);
}

TEST_P(ConformanceWrites, OneTransactionAtATime) {
    EXPECT_NE(ErrorOf([&] { connection->CommitTrans(); }), 0);
    connection->BeginTrans();
    EXPECT_NE(ErrorOf([&] { connection->BeginTrans(); }), 0);
    write(Statement("insert into pess (idpess) values (1)"));
    connection->CommitTrans();
    EXPECT_EQ(one(countPersons), u"1");
}

TEST_P(ConformanceWrites, RefusedStatementTellsItselfAndLeavesTheConnectionUsable) {
    for (const Statement& statement : {Statement("insert into nowhere (a) values (1)"), Statement("update pess set"),
                                       Statement("insert into pess (idpess, nome) values (1, 'D'AVILA')")}) {
        try {
            write(statement);
            ADD_FAILURE() << statement.text().toStdString();
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.number(), errorNumber::StatementRefused);
            EXPECT_EQ(failure.statement(), statement.text());
            EXPECT_FALSE(failure.description().isEmpty());
            EXPECT_NE(failure.engineCode(), 0);
        }
    }
    Recordset rows;
    EXPECT_EQ(ErrorOf([&] { rows.Open(Statement("select nada from pess"), *connection); }),
              errorNumber::StatementRefused);
    EXPECT_EQ(one(countPersons), u"0");
}

TEST_P(ConformanceWrites, RefusedStatementInATransactionLeavesTheOthers) {
    connection->BeginTrans();
    write(Statement("insert into pess (idpess) values (1)"));
    EXPECT_EQ(ErrorOf([&] { write(Statement("insert into nowhere (a) values (1)")); }), errorNumber::StatementRefused);
    EXPECT_EQ(one(countPersons), u"1");
    connection->CommitTrans();
    EXPECT_EQ(one(countPersons), u"1");
}

TEST_P(ConformanceWrites, ConstraintsHaveTheirOwnNumber) {
    write(Statement("insert into pess (idpess) values (1)"));
    EXPECT_EQ(ErrorOf([&] { write(Statement("insert into pess (idpess) values (1)")); }),
              errorNumber::ConstraintViolated);
    EXPECT_EQ(ErrorOf([&] { write(Statement("insert into pess (nome) values ('SEM CHAVE')")); }),
              errorNumber::ConstraintViolated);
    EXPECT_EQ(one(countPersons), u"1");
}

TEST_P(ConformanceWrites, TextLongerThanItsColumnIsRefused) {
    Statement statement;
    statement << "insert into pess (idpess, nome) values (1, '" << QString(61, u'X') << "')";
    EXPECT_EQ(ErrorOf([&] { write(statement); }), errorNumber::StatementRefused);
}

TEST_P(ConformanceWrites, ValueCannotLeaveItsLiteral) {
    write(Statement("insert into pess (idpess, nome) values (1, 'FICA')"));
    Statement attack;
    attack << "update pess set nome='" << u"X' where 1=1; delete from pess; --"_s << "' where idpess=1";
    EXPECT_EQ(ErrorOf([&] { write(attack); }), errorNumber::StatementRefused);
    EXPECT_EQ(one(Statement("select nome from pess")), u"FICA");
}

TEST_P(ConformanceWrites, IdentityIsTheLastInsertOfThisConnection) {
    write(Statement("insert into arqt (nome) values ('A')"));
    const QString first = one(identity);
    EXPECT_EQ(first, one(Statement("select idarqt from arqt where nome = 'A'")));

    const auto other = connect();
    other->Execute(Statement("insert into arqt (nome) values ('B')"));
    EXPECT_EQ(one(identity), first);
    EXPECT_EQ(one(*other, identity), one(Statement("select idarqt from arqt where nome = 'B'")));

    connection->BeginTrans();
    write(Statement("insert into arqt (nome) values ('C')"));
    EXPECT_EQ(one(identity), one(Statement("select idarqt from arqt where nome = 'C'")));
    connection->CommitTrans();
}

TEST_P(ConformanceWrites, IdentityIsNullBeforeAndWithoutAKey) {
    EXPECT_EQ(one(*connect(), identity), u"(null)");
    write(Statement("insert into logr (nome, cep) values ('RUA A', '20260101')"));
    write(Statement("insert into logr (nome, cep) values ('RUA B', '20260102')"));
    EXPECT_EQ(one(Statement("select count(*) from logr")), u"2");
    EXPECT_EQ(one(identity), u"(null)");
}

TEST_P(ConformanceWrites, GivenKeyIsTakenWhereItMayBeGiven) {
    if (!GetParam().keyMayBeGiven) {
        EXPECT_NE(ErrorOf([&] { write(Statement("insert into arqt (idarqt, nome) values (700, 'A')")); }), 0);
        return;
    }
    write(Statement("insert into arqt (idarqt, nome) values (700, 'A')"));
    EXPECT_EQ(one(identity), u"700");
}

TEST_P(ConformanceWrites, RowsFromAQueryAreInserted) {
    write(Statement("insert into logr (nome, cep) values ('A', '1')"));
    write(Statement("insert into logr (nome, cep) values ('B', '2')"));
    write(Statement("insert into arqt (nome) select nome from logr"));
    EXPECT_EQ(one(Statement("select count(*) from arqt")), u"2");
}

/// What another program holds ends in an error after a few seconds; a reader is never held up for ever either.
TEST_P(ConformanceWrites, HeldRowEndsInAnError) {
    write(Statement("insert into pess (idpess, nome) values (1, 'ANTES')"));
    const auto other = connect();
    other->BeginTrans();
    other->Execute(Statement("update pess set nome = 'DELE' where idpess = 1"));

    QElapsedTimer waited;
    waited.start();
    EXPECT_EQ(ErrorOf([&] { write(Statement("update pess set nome = 'MEU' where idpess = 1")); }),
              errorNumber::StatementRefused);
    EXPECT_GT(waited.elapsed(), 1000);
    EXPECT_LT(waited.elapsed(), 15000);

    other->CommitTrans();
    EXPECT_EQ(one(Statement("select nome from pess")), u"DELE");
    write(Statement("update pess set nome = 'MEU' where idpess = 1"));
    EXPECT_EQ(one(Statement("select nome from pess")), u"MEU");
}

TEST_P(ConformanceWrites, ClosedConnectionOpensAgain) {
    connection->Close();
    EXPECT_FALSE(connection->IsOpen());
    EXPECT_EQ(ErrorOf([&] { one(countPersons); }), errorNumber::ObjectClosed);
    connection = connect();
    EXPECT_EQ(one(countPersons), u"0");
}

INSTANTIATE_TEST_SUITE_P(Engines, ConformanceWrites, testing::ValuesIn(EngineContexts()), NameOf);

} // namespace vorta::test

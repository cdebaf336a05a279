#include "data/QualifiedColumns.h"

#include <gtest/gtest.h>

namespace vorta::data {

namespace {

std::string qualified(Piece text) {
    return QualifyRoleKeys(Statement(text)).text().toStdString();
}

} // namespace

TEST(QualifiedColumns, RoleKeyTakesTheFirstTable) {
    EXPECT_EQ(qualified("SELECT IDCLIE, NOME_PESS FROM CLIE, PESS WHERE CLIE.IDPESS = PESS.IDPESS"),
              "SELECT CLIE.IDCLIE, NOME_PESS FROM CLIE, PESS WHERE CLIE.IDPESS = PESS.IDPESS");
    EXPECT_EQ(qualified("select nome, idtrpt from trpt, pess"), "select nome, trpt.idtrpt from trpt, pess");
    EXPECT_EQ(qualified("select idMoto from moto, pess"), "select moto.idMoto from moto, pess");
    EXPECT_EQ(qualified("select idvend from vend, pess"), "select vend.idvend from vend, pess");
}

TEST(QualifiedColumns, AliasOfTheTableIsTaken) {
    EXPECT_EQ(qualified("select idclie from clie c, pess p"), "select c.idclie from clie c, pess p");
    EXPECT_EQ(qualified("select idclie from clie as c, pess p"), "select c.idclie from clie as c, pess p");
}

TEST(QualifiedColumns, JoinedTablesToo) {
    EXPECT_EQ(qualified("select idclie from clie inner join pess on clie.idpess = pess.idpess"),
              "select clie.idclie from clie inner join pess on clie.idpess = pess.idpess");
}

TEST(QualifiedColumns, OthersStayAsTheyAre) {
    for (const Statement& statement :
         {Statement("select clie.idclie from clie, pess"), Statement("select idclie from clie"),
          Statement("select idforn from forn, pess"), Statement("select idclie from clie, pedi_veds"),
          Statement("update clie set idclie = 1"), Statement("select 'idclie' from clie, pess"),
          Statement("select idclie"), Statement("select clie.idpess as idclie from clie, pess"),
          Statement("select idclie from pess"),
          Statement("select idclie from pess where exists (select 1 from clie, pess)"), Statement("")})
        EXPECT_EQ(QualifyRoleKeys(statement), statement) << statement.text();
}

TEST(QualifiedColumns, OnlyTheSelectListIsTouched) {
    EXPECT_EQ(qualified("select idclie from clie, pess where idclie > 1 order by idclie"),
              "select clie.idclie from clie, pess where idclie > 1 order by idclie");
}

} // namespace vorta::data

#include "data/NamedColumns.h"

#include "base/Literals.h"

#include <array>
#include <gtest/gtest.h>

namespace vorta::data {

namespace {

constexpr std::array<Piece, 2> columns{"IDPESS", "nome"};

std::string narrowed(Piece text) {
    const std::optional<Statement> narrow = OnlyColumns(Statement(text), columns);
    return narrow ? narrow->text().toStdString() : "(as it is)";
}

} // namespace

TEST(NamedColumns, AllColumnsOfOneTableBecomeThese) {
    EXPECT_EQ(narrowed("select * from pess"), "select IDPESS, nome from pess");
    EXPECT_EQ(narrowed("SELECT * FROM PESS WHERE DATA_DESA IS NULL ORDER BY NOME_PESS"),
              "SELECT IDPESS, nome FROM PESS WHERE DATA_DESA IS NULL ORDER BY NOME_PESS");
    EXPECT_EQ(narrowed("SELECT * FROM PESS WHERE (NOT DATA_DESA IS NULL)  ORDER BY IDPESS"),
              "SELECT IDPESS, nome FROM PESS WHERE (NOT DATA_DESA IS NULL)  ORDER BY IDPESS");
    EXPECT_EQ(narrowed("select * from pess where nome like '%a union b%' order by nome"),
              "select IDPESS, nome from pess where nome like '%a union b%' order by nome");
    EXPECT_EQ(narrowed("select * from pess where 2 * idpess = 4"),
              "select IDPESS, nome from pess where 2 * idpess = 4");
}

TEST(NamedColumns, ValuesKeepTheirPlaces) {
    Statement statement("select * from pess where nome = '");
    statement << u"x"_s << "'";
    const std::optional<Statement> narrow = OnlyColumns(statement, columns);
    ASSERT_TRUE(narrow);
    ASSERT_EQ(narrow->values().size(), 1U);
    EXPECT_EQ(narrow->text().mid(narrow->values()[0].start, narrow->values()[0].length), "x");
}

TEST(NamedColumns, WhatIsNotCertainStaysAsItIs) {
    for (const Statement& statement : {Statement("select * from pess, clie where pess.idpess = clie.idpess"),
                                       Statement("select * from pess p"),
                                       Statement("select * from pess as p where p.idpess = 1"),
                                       Statement("select * from pess join clie on 1 = 1"),
                                       Statement("select * from (select idpess from pess)"),
                                       Statement("select * from \"PESS\""),
                                       Statement("select * from pess union select * from clie"),
                                       Statement("select * from pess where idpess in (select idpess from clie)"),
                                       Statement("select * from pess where idpess = 1 group by idpess"),
                                       Statement("select * from pess order by 2"),
                                       Statement("select * from pess order by nome, 1"),
                                       Statement("select * from pess where 1 = 1 for update"),
                                       Statement("select * from dbo.pess"),
                                       Statement("select * from pess /* all */"),
                                       Statement("select /* all */ * from pess"),
                                       Statement("select pess.* from pess"),
                                       Statement("select *, 1 from pess"),
                                       Statement("select count(*) from pess"),
                                       Statement("select idpess from pess"),
                                       Statement("delete * from pess"),
                                       Statement("select * from"),
                                       Statement("select *"),
                                       Statement("")})
        EXPECT_FALSE(OnlyColumns(statement, columns)) << statement.text().toStdString();
}

TEST(NamedColumns, NoneAskedForAreAll) {
    EXPECT_FALSE(OnlyColumns(Statement("select * from pess"), {}));
}

} // namespace vorta::data

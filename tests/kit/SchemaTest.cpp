#include "kit/Schema.h"
#include "base/Literals.h"
#include "kit/Ddl.h"

#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

using namespace vorta;
using kit::Base;
using kit::Kind;

TEST(Schema, AMainTableBeginsWithItsKeyAndHasOnlyOne) {
    for (const kit::Table& table : kit::Tables()) {
        qsizetype keys = 0;
        for (const kit::Column& column : table.columns)
            keys += column.kind == Kind::Key;
        EXPECT_EQ(keys, table.base == Base::Main ? 1 : 0) << table.name;
        EXPECT_EQ(table.hasKey(), table.base == Base::Main) << table.name;
        if (table.hasKey()) {
            EXPECT_EQ(table.columns.front().name.toLower(), u"id"_s + table.name.toLower());
        }
    }
}

TEST(Schema, NoNameAppearsTwiceAndEveryNameFitsTheEngine) {
    constexpr qsizetype longestName = 31;
    QSet<QString> tables;
    for (const kit::Table& table : kit::Tables()) {
        EXPECT_FALSE(tables.contains(table.name.toUpper())) << table.name;
        tables.insert(table.name.toUpper());
        QSet<QString> columns;
        for (const kit::Column& column : table.columns) {
            EXPECT_FALSE(columns.contains(column.name.toUpper())) << column.name;
            EXPECT_LE(column.name.size(), longestName);
            columns.insert(column.name.toUpper());
        }
    }
}

TEST(Schema, EveryIndexNamesColumnsThatAreThere) {
    for (const kit::Index& index : kit::Indexes()) {
        const kit::Table* table = kit::FindTable(index.table);
        ASSERT_NE(table, nullptr) << index.table;
        for (const QString& column : index.columns.split(u", "_s))
            EXPECT_NE(table->column(column), nullptr) << index.table << '.' << column;
    }
}

TEST(Schema, TheGeneratorsOfTheRegisterAreThere) {
    QStringList generators;
    for (const kit::Table& table : kit::Tables())
        if (!table.generator.isEmpty() && !table.filledByDatabase)
            generators << table.generator;
    generators.sort();
    EXPECT_EQ(generators.join(u' '),
              "GEN_CLIE GEN_CLIE_CONT GEN_FORN GEN_FORN_CONT GEN_MOTO GEN_PESS GEN_PESS_ATIV GEN_PESS_CONT GEN_TRPT "
              "GEN_TRPT_CONT GEN_VEND");
}

TEST(Schema, TextsHoldWhatTheScreensLetIn) {
    const struct {
        const char* table;
        const char* column;
        int least;
    } limits[] = {{"PESS", "pess_codi_exte", 20}, {"PESS", "CPF0_CNPJ", 18},       {"PESS", "NOME_PESS", 50},
                  {"PESS", "RG00_IE00", 15},      {"PESS", "ENDE_ENTG_PESS", 70},  {"PESS", "CMPL_COBR_PESS", 60},
                  {"PESS", "BAIR_COML_PESS", 30}, {"PESS", "OBSE_PESS_0003", 200}, {"PESS", "PRIN_FONE_CONT", 30}};
    for (const auto& limit : limits)
        EXPECT_GE(kit::FindTable(QString::fromLatin1(limit.table))->column(QString::fromLatin1(limit.column))->length,
                  limit.least)
            << limit.column;
    EXPECT_EQ(kit::FindTable(u"pess"_s)->column(u"DATA_ANIV"_s)->length, 5);
}

TEST(Ddl, ATableInTheWordsOfEachEngine) {
    const auto definition = [](data::Engine engine) {
        for (const QString& statement : kit::TableStatements(engine, Base::Main))
            if (statement.startsWith(u"CREATE TABLE PESS_ATIV "_s))
                return statement.toStdString();
        return std::string();
    };
    EXPECT_EQ(definition(data::Engine::Firebird),
              "CREATE TABLE PESS_ATIV (\n    idpess_ativ INTEGER NOT NULL,\n    idpess INTEGER,\n    idativ INTEGER,\n"
              "    data_incl DATE,\n    user_incl INTEGER\n)");
    EXPECT_EQ(definition(data::Engine::SqlServer),
              "CREATE TABLE PESS_ATIV (\n    idpess_ativ INTEGER IDENTITY(1,1) NOT NULL,\n    idpess INTEGER,\n"
              "    idativ INTEGER,\n    data_incl DATE,\n    user_incl INTEGER\n)");
}

TEST(Ddl, NothingIsQuotedAndOnlyTheKeysAreConstrained) {
    for (const data::Engine engine : {data::Engine::Firebird, data::Engine::SqlServer}) {
        const QString script = kit::Script(engine);
        EXPECT_FALSE(script.contains(u'"') || script.contains(u'['));
        EXPECT_FALSE(script.contains(QRegularExpression(u"PRIMARY|UNIQUE|CHECK|REFERENCES"_s)));
        qsizetype keys = 0;
        for (const kit::Table& table : kit::Tables())
            keys += table.hasKey();
        EXPECT_EQ(script.count(u"NOT NULL"_s), keys);
    }
}

TEST(Ddl, SqlServerNumbersItsRowsItself) {
    const QString script = kit::Script(data::Engine::SqlServer);
    EXPECT_FALSE(script.contains(u"SEQUENCE"_s) || script.contains(u"TRIGGER"_s));
    EXPECT_TRUE(script.contains(u"idArqt INTEGER IDENTITY(1,1) NOT NULL"_s));
}

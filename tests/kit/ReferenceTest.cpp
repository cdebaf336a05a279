#include "kit/Reference.h"
#include "base/Literals.h"
#include "base/Windows1252.h"

#include <QMap>
#include <QSet>
#include <gtest/gtest.h>

using namespace vorta;

namespace {

std::vector<QStringList> rowsOf(const char* table) {
    return kit::ReadReference(QString::fromLatin1(table)).rows;
}

/// The seventh digit of a municipality's code by the rule of the institute.
int ibgeCheckDigit(const QString& code) {
    int sum = 0;
    for (int i = 0; i < 6; ++i) {
        const int product = code[i].digitValue() * (i % 2 == 0 ? 1 : 2);
        sum += product / 10 + product % 10;
    }
    return (10 - sum % 10) % 10;
}

} // namespace

TEST(Reference, TheTablesHaveTheRowsThatTheCountryHas) {
    const QMap<QString, qsizetype> counts{
        {u"UF00"_s, 27}, {u"muni_ibge"_s, 5571}, {u"pais"_s, 249}, {u"Banc"_s, 463}, {u"tipo_clie"_s, 3}};
    for (auto count = counts.begin(); count != counts.end(); ++count)
        EXPECT_EQ(qsizetype(kit::ReadReference(count.key()).rows.size()), count.value()) << count.key();
}

TEST(Reference, MunicipalCodesFollowTheirCheckDigitButForTheNineKnownExceptions) {
    QSet<QString> codes;
    QStringList exceptions;
    for (const QStringList& row : rowsOf("muni_ibge")) {
        ASSERT_EQ(row[0].size(), 7);
        codes.insert(row[0]);
        if (ibgeCheckDigit(row[0]) != row[0][6].digitValue())
            exceptions << row[0];
    }
    EXPECT_EQ(codes.size(), 5571);
    EXPECT_EQ(exceptions.size(), 9) << exceptions.join(u' ');
}

TEST(Reference, EveryStateHasMunicipalitiesAndOnePrefix) {
    QMap<QString, QSet<QString>> prefixes;
    for (const QStringList& row : rowsOf("muni_ibge"))
        prefixes[row[2]].insert(row[0].first(2));
    EXPECT_EQ(prefixes.size(), 27);
    for (const QSet<QString>& prefix : std::as_const(prefixes))
        EXPECT_EQ(prefix.size(), 1);
}

TEST(Reference, AccentsAreKept) {
    const auto rows = rowsOf("muni_ibge");
    EXPECT_NE(std::find(rows.begin(), rows.end(), QStringList({u"3550308"_s, u"São Paulo"_s, u"SP"_s})), rows.end());
}

TEST(Reference, AnApostropheHasBecomeAnAcuteAccent) {
    const auto rows = rowsOf("muni_ibge");
    const auto town =
        std::find_if(rows.begin(), rows.end(), [](const QStringList& row) { return row[0] == "3545803"; });
    ASSERT_NE(town, rows.end());
    EXPECT_EQ((*town)[1], u"Santa Bárbara d´Oeste"_s);
    for (const char* name :
         {"UF00", "muni_ibge", "pais", "Banc", "carg", "ativ", "tipo_clie", "regi_espe_icms", "cart", "TIPO_PROD",
          "cole", "cidades", "bairros", "logradouros", "ruas", "nomes", "sobrenomes", "produtos", "ramos"})
        for (const QStringList& row : rowsOf(name))
            EXPECT_FALSE(row.join(u'|').contains(u'\'')) << row.join(u'|');
}

TEST(Reference, EveryTextFitsItsColumnAndTheRepertoireOfTheData) {
    for (const char* name : {"UF00", "muni_ibge", "pais", "Banc", "carg", "ativ", "tipo_clie", "regi_espe_icms", "cart",
                             "TIPO_PROD", "cole"}) {
        const kit::ReferenceTable data = kit::ReadReference(QString::fromLatin1(name));
        const kit::Table& table = *kit::FindTable(QString::fromLatin1(name));
        for (const QStringList& row : data.rows) {
            ASSERT_EQ(row.size(), data.columns.size()) << name << ": " << row.join(u'|');
            for (qsizetype i = 0; i < row.size(); ++i) {
                ASSERT_NE(table.column(data.columns[i]), nullptr) << name;
                EXPECT_LE(row[i].size(), table.column(data.columns[i])->length) << row[i];
                EXPECT_TRUE(InRepertoire(row[i])) << row[i];
                EXPECT_EQ(row[i], row[i].trimmed());
            }
        }
    }
}

TEST(Reference, WhatOtherTablesPointAtIsThere) {
    QSet<QString> towns, activities, types, collections;
    for (const QStringList& row : rowsOf("muni_ibge"))
        towns.insert(row[1] + u'/' + row[2]);
    for (const QStringList& row : rowsOf("ativ"))
        activities.insert(row[0]);
    for (const QStringList& row : rowsOf("TIPO_PROD"))
        types.insert(row[0]);
    for (const QStringList& row : rowsOf("cole"))
        collections.insert(row[0]);
    for (const QStringList& row : rowsOf("cidades"))
        EXPECT_TRUE(towns.contains(row[0] + u'/' + row[1])) << row[0];
    for (const QStringList& row : rowsOf("ruas"))
        EXPECT_TRUE(towns.contains(row[5] + u'/' + row[6])) << row[5];
    for (const QStringList& row : rowsOf("ramos"))
        EXPECT_TRUE(activities.contains(row[1])) << row[1];
    for (const QStringList& row : rowsOf("produtos")) {
        EXPECT_TRUE(types.contains(row[3])) << row[3];
        EXPECT_TRUE(row[4].isEmpty() || collections.contains(row[4])) << row[4];
    }
}

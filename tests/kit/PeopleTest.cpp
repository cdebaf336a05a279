#include "base/Literals.h"
#include "kit/Installed.h"
#include "kit/Loader.h"
#include "shared/ValidaDocumentos.h"
#include "shared/inscricao/ConsisteInscricaoEstadual.h"

#include <QCryptographicHash>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

kit::Contents people(qint64 count, quint64 seed) {
    kit::Contents contents;
    contents.people = count;
    contents.seed = seed;
    return contents;
}

/// All rows of all tables of a base, drawn together.
QByteArray digest(const Installed& installed) {
    kit::Loader loader(installed.production());
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const kit::Table& table : kit::Tables()) {
        if (table.base != kit::Base::Main)
            continue;
        const QString query = u"SELECT * FROM %1 ORDER BY %2"_s.arg(table.name, table.columns.front().name);
        for (const QStringList& row : loader.rows(query))
            hash.addData(row.join(u'|').toUtf8());
    }
    return hash.result().toHex();
}

} // namespace

TEST(People, TheSameSeedMakesTheSamePersonsAndAnotherOneOthers) {
    const Installed first(people(400, 9)), second(people(400, 9)), other(people(400, 10));
    EXPECT_EQ(digest(first), digest(second));
    EXPECT_NE(digest(first), digest(other));
}

TEST(People, TheyAreAsManyAsAskedWithDocumentsThatPassAndDiffer) {
    const Installed installed(people(1500, 3));
    kit::Loader loader(installed.production());
    const auto rows = loader.rows(u"SELECT PSFI_PSJU, CPF0_CNPJ, RG00_IE00, UF00_COML_PESS FROM PESS"_s);
    EXPECT_EQ(rows.size(), 1500u);
    for (const QStringList& row : rows) {
        QString document = row[1];
        EXPECT_TRUE(row[0] == u"J" ? ValidaCNPJ(document) : ValidaCPF(document)) << row[1];
        if (row[0] == u"J") {
            EXPECT_EQ(ConsisteInscricaoEstadual(row[2], row[3]), 0) << row[2] << ' ' << row[3];
        }
    }
    EXPECT_EQ(loader.number(u"SELECT COUNT(DISTINCT CPF0_CNPJ) FROM PESS"_s), 1500);
    EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM PESS P LEFT JOIN MUNI_IBGE M ON M.CODI_MUNI_IBGE = "
                            "P.CODI_MUNI_COML_PESS AND M.DESC_MUNI_IBGE = P.CIDA_COML_PESS WHERE "
                            "M.IDMUNI_IBGE IS NULL"_s),
              0);
    EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM PESS P JOIN CLIE C ON C.IDPESS = P.IDPESS WHERE P.IDCLIE "
                            "<> C.IDCLIE"_s),
              0);
    EXPECT_GT(loader.number(u"SELECT COUNT(*) FROM PEDI_VEDS"_s), 0);
}

TEST(People, TheyJoinTheDemonstrationWithoutMeetingIt) {
    kit::Contents contents = people(300, 2015);
    contents.demo = true;
    const Installed installed(contents);
    kit::Loader loader(installed.production());
    EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM PESS"_s), 560);
    EXPECT_EQ(loader.number(u"SELECT COUNT(DISTINCT CPF0_CNPJ) FROM PESS"_s), 560);
    EXPECT_EQ(loader.number(u"SELECT COUNT(DISTINCT IDPESS) FROM PESS"_s), 560);
}

#include "kit/Indexes.h"

#include "base/Literals.h"
#include "kit/Check.h"
#include "kit/Installed.h"

#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

class IndexesOfABase : public testing::Test {
  protected:
    void run(const QString& statement) const {
        kit::Loader loader(installed_.production());
        loader.run(statement);
        loader.commit();
    }
    QString one(const QString& query) const { return kit::Loader(installed_.production()).rows(query)[0][0]; }
    std::string faults() const {
        QStringList words;
        for (const kit::Finding& finding : kit::CheckInstallation(installed_.home()))
            if (!finding.right)
                words << QString(finding.words).replace(installed_.home(), u"~"_s);
        return words.join(u'\n').toStdString();
    }
    static std::string words(const kit::IndexDifference& difference) {
        QStringList words = difference.surplus;
        for (const kit::Index& index : difference.missing)
            words << kit::IndexWords(index) + (index.descending ? u" desc"_s : QString());
        return words.join(u"; "_s).toStdString();
    }
    kit::IndexDifference update() const { return kit::UpdateIndexes(installed_.home(), u"PRD"_s); }

    Installed installed_ = Installed::copyOf(Installed::plain());
};

} // namespace

/// The person's indexes as the versions up to 1.0 made them.
TEST_F(IndexesOfABase, OfAnOlderVersionAreToldAndBroughtUpToDate) {
    int number = 11;
    for (const QString& column : {u"NOME_PESS"_s, u"NOME_CONH"_s, u"PESS_CODI_EXTE"_s}) {
        run(u"DROP INDEX "_s +
            one(u"SELECT TRIM(RDB$INDEX_NAME) FROM RDB$INDEX_SEGMENTS WHERE RDB$FIELD_NAME = '%1'"_s.arg(column)));
        run(u"CREATE INDEX PESS_IX%1 ON PESS (%2)"_s.arg(number++).arg(column));
    }
    run(u"CREATE INDEX PESS_IX8 ON PESS (DATA_DESA)"_s);
    EXPECT_EQ(
        faults(),
        "ambiente PRD (linha 1 de ~/config/server.ini): os índices não são os desta versão (faltam PESS "
        "(NOME_PESS), PESS (NOME_CONH), PESS (PESS_CODI_EXTE); sobram PESS_IX11, PESS_IX12, PESS_IX13, PESS_IX8); "
        "use: pessoas-base indexes --home ~ --base PRD");
    EXPECT_EQ(words(update()),
              "PESS_IX11; PESS_IX12; PESS_IX13; PESS_IX8; PESS (NOME_PESS) desc; PESS (NOME_CONH) desc; PESS "
              "(PESS_CODI_EXTE) desc");
    EXPECT_EQ(faults(), "");
    EXPECT_EQ(words(update()), "");
    EXPECT_EQ(one(u"SELECT COUNT(*) FROM RDB$INDICES I JOIN RDB$INDEX_SEGMENTS S ON S.RDB$INDEX_NAME = "
                  "I.RDB$INDEX_NAME WHERE S.RDB$FIELD_NAME = 'NOME_PESS' AND I.RDB$INDEX_TYPE = 1"_s),
              u"1");
}

TEST_F(IndexesOfABase, OneThatIsGoneOrSwitchedOffIsMadeAnew) {
    const QString name = one(u"SELECT TRIM(RDB$INDEX_NAME) FROM RDB$INDEX_SEGMENTS WHERE RDB$FIELD_NAME = 'IDCLIE' "
                             "AND RDB$INDEX_NAME STARTING 'CLIE_IX'"_s);
    run(u"ALTER INDEX %1 INACTIVE"_s.arg(name));
    run(u"DROP INDEX "_s +
        one(u"SELECT TRIM(RDB$INDEX_NAME) FROM RDB$INDEX_SEGMENTS WHERE RDB$FIELD_NAME = 'CODI_PROD'"_s));
    EXPECT_EQ(words(update()), name.toStdString() + "; CLIE (IDCLIE); PROD (CODI_PROD)");
    EXPECT_EQ(faults(), "");
}

TEST_F(IndexesOfABase, ThoseOfOtherProgramsAreLeftAlone) {
    run(u"CREATE INDEX RELATORIO_CIDADE ON PESS (CIDA_COML_PESS)"_s);
    run(u"CREATE TABLE PEDIDOS_ANTIGOS (ID INTEGER)"_s);
    run(u"CREATE INDEX PEDIDOS_ANTIGOS_IX ON PEDIDOS_ANTIGOS (ID)"_s);
    EXPECT_EQ(faults(), "");
    EXPECT_EQ(words(update()), "");
    EXPECT_EQ(one(u"SELECT COUNT(*) FROM RDB$INDICES WHERE RDB$INDEX_NAME IN ('RELATORIO_CIDADE', "
                  "'PEDIDOS_ANTIGOS_IX')"_s),
              u"2");
}

/// A base that was empty when its indexes were made tells the engine nothing of the values in them.
TEST_F(IndexesOfABase, TheValuesAreCountedAnew) {
    run(u"EXECUTE BLOCK AS DECLARE I INTEGER = 0; BEGIN WHILE (I < 100) DO BEGIN INSERT INTO PESS (IDPESS, NOME_PESS) "
        "VALUES (:I, 'NOME ' || :I); I = I + 1; END END"_s);
    update();
    EXPECT_EQ(one(u"SELECT CAST(1 / I.RDB$STATISTICS AS INTEGER) FROM RDB$INDICES I JOIN RDB$INDEX_SEGMENTS S ON "
                  "S.RDB$INDEX_NAME = I.RDB$INDEX_NAME WHERE S.RDB$FIELD_NAME = 'NOME_PESS'"_s),
              u"100");
}

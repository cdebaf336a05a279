#include "audit/MunicipalCodes.h"
#include "audit/SampleRegister.h"
#include "base/RuntimeError.h"
#include "kit/Loader.h"

#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;

namespace {

const QString codes = u"SELECT IDPESS, CODI_MUNI_COML_PESS, CODI_MUNI_ENTG_PESS, CODI_MUNI_COBR_PESS FROM PESS "
                      "ORDER BY IDPESS"_s;

std::vector<SampleRows> towns() {
    return {{"PESS",
             "IDPESS, NOME_PESS, CIDA_COML_PESS, UF00_COML_PESS, CODI_MUNI_COML_PESS, CIDA_ENTG_PESS, UF00_ENTG_PESS, "
             "CODI_MUNI_ENTG_PESS, CIDA_COBR_PESS, UF00_COBR_PESS, PAIS_COBR_PESS",
             {
                 "1, 'TODAS', 'OSASCO', 'SP', NULL, 'SANTA BARBARA D''OESTE', 'SP', '', 'SAO PAULO', 'SP', 'BRASIL'",
                 "2, 'NULA', NULL, 'SP', NULL, 'OSASCO', NULL, NULL, NULL, NULL, NULL",
                 "3, 'JA TEM', 'OSASCO', 'SP', '999', 'osasco', 'sp', '  ', 'OSASCO', 'SP', 'PARAGUAI'",
                 "4, 'NADA', 'OSASCO', 'RJ', NULL, NULL, NULL, NULL, NULL, NULL, NULL",
             }}};
}

} // namespace

TEST(MunicipalCodes, ATrialTellsThemAndWritesNothing) {
    EmbeddedSample sample(towns());
    const QStringList before = sample.rows(codes);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"codigos.csv"_s);
    audit::Sheet sheet(path, audit::FilledCodesTitles());
    const audit::CodesFilled filled = audit::FillMunicipalCodes(sample.connection(), false, &sheet);
    sheet.commit();
    EXPECT_EQ(filled.filled, 4);
    EXPECT_EQ(filled.withoutTown, 5);
    EXPECT_EQ(filled.unknownTown, 1);
    EXPECT_EQ(sample.rows(codes), before);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.startsWith("\xEF\xBB\xBF")) << "spreadsheets know UTF-8 by its mark";
    EXPECT_EQ(QString::fromUtf8(content), u"Pessoa;Nome;Campo;Cidade;UF;Código\r\n"
                                          "1;TODAS;CODI_MUNI_COML_PESS;OSASCO;SP;3534401\r\n"
                                          "1;TODAS;CODI_MUNI_ENTG_PESS;SANTA BARBARA D'OESTE;SP;3545803\r\n"
                                          "1;TODAS;CODI_MUNI_COBR_PESS;SAO PAULO;SP;3550308\r\n"
                                          "3;JA TEM;CODI_MUNI_ENTG_PESS;osasco;SP;3534401\r\n"_s);
}

TEST(MunicipalCodes, AreFilledWhereTheyAreEmptyAndNowhereElse) {
    EmbeddedSample sample(towns());
    EXPECT_EQ(audit::FillMunicipalCodes(sample.connection(), true, nullptr).filled, 4);
    EXPECT_EQ(sample.rows(codes),
              (QStringList{u"1|3534401|3545803|3550308"_s, u"2|||"_s, u"3|999|3534401|"_s, u"4|||"_s}));
    EXPECT_EQ(audit::FillMunicipalCodes(sample.connection(), true, nullptr).filled, 0) << "once is enough";
}

TEST(MunicipalCodes, AreFilledOnSqlServer) {
    SqlServerSample sample(towns());
    EXPECT_EQ(audit::FillMunicipalCodes(sample.connection(), true, nullptr).filled, 4);
    EXPECT_EQ(audit::FillMunicipalCodes(sample.connection(), false, nullptr).filled, 0);
}

TEST(MunicipalCodes, APageThatFailsIsNotWrittenAtAllAndThoseBeforeStay) {
    std::vector<std::string> kept;
    constexpr int persons = 5010; // one page and some
    for (int id = 1; id <= persons; ++id)
        kept.push_back(std::to_string(id) + ", 'P', 'OSASCO', 'SP'");
    SampleRows rows{"PESS", "IDPESS, NOME_PESS, CIDA_COML_PESS, UF00_COML_PESS", {}};
    for (const std::string& each : kept)
        rows.values.push_back(each.c_str());
    EmbeddedSample sample({rows});
    {
        kit::Loader loader(sample.installed().production());
        loader.run(u"CREATE EXCEPTION RECUSA 'recusado'"_s);
        loader.commit();
        loader.run(u"CREATE TRIGGER RECUSA_5005 FOR PESS BEFORE UPDATE AS BEGIN IF (NEW.IDPESS = 5005) THEN EXCEPTION "
                   "RECUSA; END"_s);
        loader.commit();
    }
    const QTemporaryDir folder;
    audit::Sheet sheet(folder.filePath(u"codigos.csv"_s), audit::FilledCodesTitles());
    EXPECT_THROW(audit::FillMunicipalCodes(sample.connection(), true, &sheet), RuntimeError);
    sample.connection().Close();
    sheet.commit();
    EXPECT_EQ(sample.rows(u"SELECT COUNT(*), MAX(IDPESS) FROM PESS WHERE CODI_MUNI_COML_PESS = '3534401'"_s),
              QStringList(u"5000|5000"_s));
    QFile file(folder.filePath(u"codigos.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count('\n'), 5001) << "the report tells what has been written";
}

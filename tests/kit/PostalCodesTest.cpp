#include "kit/PostalCodes.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "kit/Installed.h"

#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

const QByteArray titles = "cep\ttipo\tabreviatura\tlogradouro\tbairro\tcidade\tuf\n";

class PostalCodes : public testing::Test {
  protected:
    qint64 load(const QByteArray& list) {
        installed_.write(u"lista.tsv"_s, list);
        mistakes_ = {};
        return kit::LoadPostalCodeFile(installed_.home(), installed_.home() + u"/lista.tsv"_s, mistakes_);
    }
    qint64 streets() { return kit::Loader(installed_.postalCodes()).number(u"SELECT COUNT(*) FROM LOGR"_s); }
    QString value(const char* query) {
        return kit::Loader(installed_.postalCodes()).rows(QString::fromUtf8(query)).at(0).at(0);
    }

    Installed installed_ = Installed::copyOf(Installed::plain());
    kit::ListMistakes mistakes_;
};

} // namespace

TEST_F(PostalCodes, AListTakesThePlaceOfWhatWasThere) {
    EXPECT_EQ(load(titles + "04000-000\tRua\tR\tAlegre\tCentro\tCampinas\tSP\r\n"
                            "04000001\tRua\tR\tTriste\tCentro\tCampinas\tsp\n\n"),
              2);
    EXPECT_EQ(mistakes_.all, 0);
    EXPECT_EQ(streets(), 2);
    EXPECT_EQ(value("SELECT CEP8_LOGR FROM LOGR WHERE NOME_LOGR = 'Alegre'"), u"04000000"_s);
    EXPECT_EQ(value("SELECT COUNT(*) FROM BAIR"), u"1"_s);
    EXPECT_EQ(value("SELECT COUNT(*) FROM TIPO"), u"1"_s);
}

TEST_F(PostalCodes, TownsOfOneNameInTwoStatesAreTwo) {
    load(titles + "59000000\tRua\tR\tUm\tCentro\tBom Jesus\tRN\n64900000\tRua\tR\tDois\tCentro\tBom Jesus\tPI\n");
    EXPECT_EQ(value("SELECT COUNT(*) FROM LOCA"), u"2"_s);
    EXPECT_EQ(value("SELECT COUNT(*) FROM BAIR"), u"2"_s);
}

TEST_F(PostalCodes, AnOlderFileInWindows1252IsReadToo) {
    load(titles + "01001000\tPra\xE7"
                  "a\tPC\tda S\xE9\tS\xE9\tS\xE3o Paulo\tSP\n");
    EXPECT_EQ(value("SELECT NOME_LOCA FROM LOCA"), u"São Paulo"_s);
}

TEST_F(PostalCodes, AnApostropheBecomesAnAcuteAccent) {
    load(titles + "13450000\tRua D'Água\tR D'\tSant'Ana\tPau d'Alho\tSanta Bárbara d'Oeste\tSP\n");
    EXPECT_EQ(value("SELECT NOME_TIPO || '|' || ABRV_TIPO FROM TIPO"), u"Rua D´Água|R D´"_s);
    EXPECT_EQ(value("SELECT NOME_LOGR FROM LOGR"), u"Sant´Ana"_s);
    EXPECT_EQ(value("SELECT NOME_BAIR || '|' || ABRV_BAIR FROM BAIR"), u"Pau d´Alho|Pau d´Alho"_s);
    EXPECT_EQ(value("SELECT NOME_LOCA FROM LOCA"), u"Santa Bárbara d´Oeste"_s);
}

TEST_F(PostalCodes, AByteThatStandsForNothingIsAMistake) {
    EXPECT_EQ(load(titles + "01001000\tRua\tR\tDo \x81 P\xE1tio\tCentro\tCampinas\tSP\n"), 0);
    EXPECT_EQ(mistakes_.all, 1);
}

TEST_F(PostalCodes, MistakesNameTheirLinesAndNothingIsLoaded) {
    const qint64 before = streets();
    EXPECT_EQ(load(titles + "0400000\tRua\tR\tAlegre\tCentro\tCampinas\tSP\n"
                            "04000001\tRua\tR\tTriste\tCentro\tCampinas\tSP\n"
                            "04000002\tRua\tR\tCentro\tCampinas\tSP\n"
                            "04000003\tRua\tR\t\tCentro\tCampinas\tSP\n"
                            "04000004\tRua\tR\tNova\tCentro\tCampinas\tXX\n"
                            "04000005\tRua\tR\tNova\tCentro\t\tSP\n"),
              0);
    EXPECT_EQ(mistakes_.all, 5);
    EXPECT_EQ(mistakes_.lines.join(u'\n'), "linha 2: o CEP [0400000] não tem oito dígitos\n"
                                           "linha 4: esperados 7 campos separados por tabulação, há 6\n"
                                           "linha 5: falta o logradouro\n"
                                           "linha 6: a UF [XX] não existe\n"
                                           "linha 7: falta a cidade");
    EXPECT_EQ(streets(), before);
}

TEST_F(PostalCodes, AListWithoutTitlesIsRefused) {
    load("04000000\tRua\tR\tAlegre\tCentro\tCampinas\tSP\n");
    EXPECT_EQ(mistakes_.all, 1);
    EXPECT_TRUE(mistakes_.lines.front().startsWith(u"linha 1: "_s));
}

TEST_F(PostalCodes, ManyMistakesAreCountedButNotAllTold) {
    QByteArray list = titles;
    for (int i = 0; i < 100; ++i)
        list += "x\n";
    load(list);
    EXPECT_EQ(mistakes_.all, 100);
    EXPECT_EQ(mistakes_.lines.size(), 20);
}

TEST_F(PostalCodes, ALoadThatBreaksOffKeepsTheOldStreets) {
    const qint64 before = streets();
    {
        kit::Loader loader(installed_.postalCodes());
        kit::LoadPostalCodes(loader, {{"04000000", "Rua", "R", "Alegre", "Centro", "Campinas", "SP"}});
    } // no commit: as when the program is ended here
    EXPECT_EQ(streets(), before);
}

TEST_F(PostalCodes, AMissingListIsToldByName) {
    try {
        kit::LoadPostalCodeFile(installed_.home(), u"/nenhum/lugar.tsv"_s, mistakes_);
        FAIL() << "it was loaded";
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.description().contains(u"/nenhum/lugar.tsv"_s));
    }
}

#include "kit/Check.h"
#include "base/Literals.h"
#include "kit/Copies.h"
#include "kit/Installed.h"
#include "kit/Loader.h"
#include "kit/Upgrade.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

/// What is not right, one line each, with the home cut out of the words.
std::string faults(const Installed& installed) {
    QStringList words;
    for (const kit::Finding& finding : kit::CheckInstallation(installed.home()))
        if (!finding.right)
            words << QString(finding.words).replace(installed.home(), u"~"_s);
    return words.join(u'\n').toStdString();
}

class Check : public testing::Test {
  protected:
    void run(const char* statement) {
        kit::Loader loader(installed_.production());
        loader.run(QString::fromUtf8(statement));
        loader.commit();
    }
    Installed installed_ = Installed::copyOf(Installed::plain());
};

} // namespace

TEST_F(Check, ANewInstallationIsRight) {
    EXPECT_EQ(faults(installed_), "");
    EXPECT_EQ(faults(Installed::demonstration()), "");
}

TEST_F(Check, AMissingFileEndsTheMatter) {
    QFile::remove(installed_.layout().config(u"server_aplic.ini"_s));
    EXPECT_EQ(faults(installed_),
              "o arquivo ~/config/server_aplic.ini não existe ou não pode ser lido; o programa não inicia sem ele");
}

TEST_F(Check, APasswordThatEverybodyCanRead) {
    QFile(installed_.layout().config(u"server.ini"_s))
        .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    EXPECT_EQ(faults(installed_),
              "~/config/server.ini pode ser lido por qualquer usuário e pode conter uma senha; use: chmod "
              "640 ~/config/server.ini");
}

TEST_F(Check, ABaseThatEverybodyCanRead) {
    QFile(installed_.production()).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    EXPECT_EQ(faults(installed_),
              "ambiente PRD (linha 1 de ~/config/server.ini): o arquivo ~/base/pessoas.fdb pode ser "
              "lido por qualquer usuário; use: chmod 660 ~/base/pessoas.fdb");
}

TEST_F(Check, TheAgeOfTheLastCopy) {
    const QDateTime now = QDateTime::currentDateTime();
    const QString day = now.toString(u"dd/MM/yyyy"_s);
    const auto fault = [&](int days) {
        for (const kit::Finding& finding : kit::CheckInstallation(installed_.home(), now.addDays(days)))
            if (!finding.right)
                return finding.words;
        return QString();
    };
    EXPECT_EQ(fault(7), QString());
    EXPECT_TRUE(fault(8).startsWith(u"a base PRD, criada em "_s)) << fault(8);
    kit::BackUpBase(installed_.home(), u"PRD"_s, installed_.home() + u"/copia.fbk"_s);
    EXPECT_EQ(fault(7), QString());
    EXPECT_TRUE(fault(9).startsWith(u"a última cópia de segurança da base PRD é de %1"_s.arg(day))) << fault(9);
    EXPECT_TRUE(fault(9).contains(u"há 9 dias"_s)) << fault(9);
}

TEST_F(Check, ABaseThatDoesNotOpen) {
    QFile::remove(installed_.production());
    const std::string begin = "ambiente PRD (linha 1 de ~/config/server.ini): a base não abre (";
    EXPECT_EQ(faults(installed_), begin + "um arquivo da base não existe ou não pode ser lido ou gravado)");
}

TEST_F(Check, ATableAndAColumnThatAreNotThere) {
    run("DROP TABLE COR_SIST");
    run("ALTER TABLE MOTO DROP REFE_MOTO");
    EXPECT_EQ(faults(installed_),
              "ambiente PRD (linha 1 de ~/config/server.ini): na tabela MOTO faltam as colunas refe_moto\n"
              "ambiente PRD (linha 1 de ~/config/server.ini): falta a tabela cor_sist");
}

TEST_F(Check, AGeneratorBehindItsTable) {
    run("INSERT INTO PESS (IDPESS) VALUES (70)");
    EXPECT_EQ(faults(installed_),
              "ambiente PRD (linha 1 de ~/config/server.ini): o gerador GEN_PESS está em 0, mas a tabela PESS "
              "já chega a 70; use: SET GENERATOR GEN_PESS TO 70");
}

TEST_F(Check, LinesThatTheRegisterWouldPassOverInSilence) {
    installed_.write(u"config/server.ini"_s, "a^b^c^d^FIREBIRD^x^^\n\nsrv^b^u^s^MS-SQL^^False^\n");
    EXPECT_EQ(faults(installed_),
              "ambiente PRD (linha 1 de ~/config/server.ini): o sétimo campo (preserva acentos) deve ser True ou "
              "False, e não []\n"
              "ambiente HIST (linha 2 de ~/config/server.ini): a linha está vazia");
}

TEST_F(Check, PicturesAndFolders) {
    QFile::remove(installed_.layout().images() + kit::LinkedPicture());
    installed_.write(u"imagens/semvinculo.bmp"_s, "texto");
    EXPECT_EQ(faults(installed_),
              "a imagem ~/imagens/comvinculo.bmp não existe ou não é um bitmap; as telas param sem ela\n"
              "a imagem ~/imagens/semvinculo.bmp não existe ou não é um bitmap; as telas param sem ela");
}

TEST_F(Check, NamesWithAnApostropheAreToldAndMended) {
    run("UPDATE muni_ibge SET desc_muni_ibge = 'Santa Bárbara d''Oeste' WHERE codi_muni_ibge = '3545803'");
    {
        kit::Loader loader(installed_.layout().base(kit::PostalCodeBase()));
        loader.run(u"UPDATE LOCA SET NOME_LOCA = 'Olhos-d''Água' WHERE CHAV_LOCA = '1'"_s);
        loader.commit();
    }
    const auto line = [](const char* what, const char* table) {
        return std::string(what) + ": 1 nome(s) com apóstrofo em " + table +
               ", e escolher um deles encerra o programa; use: pessoas-base upgrade --home ~";
    };
    EXPECT_EQ(faults(installed_), line("ambiente PRD (linha 1 de ~/config/server.ini)", "muni_ibge") + "\n" +
                                      line("base de CEPs (~/config/server_cep.ini)", "LOCA"));
    EXPECT_EQ(kit::UpgradeInstallation(installed_.home()), 2);
    EXPECT_EQ(faults(installed_), "");
    kit::Loader loader(installed_.production());
    EXPECT_EQ(loader.rows(u"SELECT desc_muni_ibge FROM muni_ibge WHERE codi_muni_ibge = '3545803'"_s)[0][0],
              u"Santa Bárbara d´Oeste");
    EXPECT_EQ(kit::UpgradeInstallation(installed_.home()), 0);
}

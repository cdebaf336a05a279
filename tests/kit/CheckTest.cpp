#include "kit/Check.h"
#include "base/Literals.h"
#include "firebird/BaseGuard.h"
#include "firebird/EngineFiles.h"
#include "kit/Copies.h"
#include "kit/Installed.h"
#include "kit/Loader.h"
#include "kit/Upgrade.h"

#include <QDir>
#include <QFile>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

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

TEST_F(Check, RightsThatShutAColleagueOutOrLetEverybodyIn) {
    const QString locks = installed_.home() + u"/firebird/lock"_s;
    installed_.write(u"firebird/lock/fb_init"_s, "");
    const auto permit = [&](const QString& path, const char* rights) {
        ASSERT_EQ(::chmod(path.toUtf8().constData(), static_cast<mode_t>(std::strtol(rights, nullptr, 8))), 0);
    };
    permit(installed_.production(), "0660");
    for (const char* base : {"historico", "desenvolvimento", "cep"})
        permit(installed_.home() + u"/base/%1.fdb"_s.arg(QLatin1StringView(base)), "0600");
    const QString guard = firebird::BaseGuard::fileOf(installed_.production());
    permit(guard, "0660");
    permit(locks + u"/fb_init"_s, "0660");
    EXPECT_EQ(faults(installed_), "");

    const std::string begin = "ambiente PRD (linha 1 de ~/config/server.ini): ";
    const std::string words = begin + "quem pode gravar a base ~/base/pessoas.fdb nem sempre pode usar ";
    permit(locks + u"/fb_init"_s, "0600");
    permit(guard, "0640");
    EXPECT_EQ(faults(installed_),
              words + "~/base/pessoas.fdb.guarda ~/firebird/lock/fb_init, e então o programa não a abre; use: chown "
                      "--reference=~/base/pessoas.fdb ~/base/pessoas.fdb.guarda ~/firebird/lock/fb_init && chmod "
                      "--reference=~/base/pessoas.fdb ~/base/pessoas.fdb.guarda ~/firebird/lock/fb_init");
    permit(locks + u"/fb_init"_s, "0660");
    permit(guard, "0660");
    permit(locks, "0755");
    EXPECT_EQ(faults(installed_), words + "~/firebird/lock, e então o programa não a abre; use: chown "
                                          "--reference=~/base/pessoas.fdb ~/firebird/lock && chmod 2775 "
                                          "~/firebird/lock");
    permit(locks, "02775");
    permit(installed_.home() + u"/firebird"_s, "0777");
    const QString everybody = QString::fromStdString(faults(installed_));
    EXPECT_EQ(everybody.count(u"a pasta ~/firebird pode ser gravada por qualquer usuário; use: chmod o-w ~/firebird"),
              4)
        << qPrintable(everybody);
}

TEST_F(Check, ASecondNameOfABase) {
    std::filesystem::create_hard_link(installed_.production().toStdString(),
                                      (installed_.home() + u"/outra.fdb"_s).toStdString());
    EXPECT_EQ(faults(installed_), "ambiente PRD (linha 1 de ~/config/server.ini): o arquivo ~/base/pessoas.fdb tem 2 "
                                  "nomes (hard links); aberta por outro deles, a base seria destruída; apague os "
                                  "demais");
}

TEST_F(Check, BasesWithLockPlacesOfTheirOwn) {
    const QString elsewhere = installed_.home() + u"/outra/antigas"_s;
    QDir().mkpath(elsewhere);
    ASSERT_TRUE(QFile::rename(installed_.home() + u"/base/historico.fdb"_s, elsewhere + u"/historico.fdb"_s));
    QString lines = kit::LinesOf(installed_.layout().config(u"server.ini"_s))->join(u'\n');
    installed_.write(u"config/server.ini"_s,
                     lines.replace(u"base/historico.fdb"_s, u"outra/antigas/historico.fdb"_s).toUtf8());
    const QString found = QString::fromStdString(faults(installed_));
    EXPECT_TRUE(found.contains(
        u"a base ~/outra/antigas/historico.fdb tem a sua própria pasta de travas (~/outra/antigas/travas), e "
        "não a das demais (~/firebird/lock)"))
        << qPrintable(found);
}

TEST_F(Check, AConfigurationOfTheEngineThatNobodyReadsAnyMore) {
    installed_.write(u"firebird/firebird.conf"_s, "ServerMode = Classic\nDefaultDbCachePages = 9999\n");
    const QString found = QString::fromStdString(faults(installed_));
    EXPECT_TRUE(found.contains(u"o arquivo ~/firebird/firebird.conf não é mais lido pelo programa"))
        << qPrintable(found);
}

TEST_F(Check, ABaseThatFellsTheEngine) {
    if (firebird::EngineInUse().number != 3)
        GTEST_SKIP() << "this version of the engine survives the rubbish";
    installed_.ruinProduction();
    // Who fell as the administrator leaves the engine's files in the engine's hands, which the lines behind tell.
    const QString found = QString::fromStdString(faults(installed_));
    EXPECT_EQ(
        found.section(u'\n', 0, 0),
        u"ambiente PRD (linha 1 de ~/config/server.ini): o motor falha ao ler a base ~/base/pessoas.fdb; ela está "
        "danificada; refaça-a da última cópia: pessoas-base restore --home ~ --base PRD --replace CÓPIA"_s);
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

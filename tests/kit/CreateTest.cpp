#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/ServerLine.h"
#include "kit/Installed.h"
#include "kit/Loader.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

qint64 count(kit::Loader& loader, const char* query) {
    return loader.number(QString::fromUtf8(query));
}

QStringList row(kit::Loader& loader, const char* query) {
    const auto rows = loader.rows(QString::fromUtf8(query));
    return rows.size() == 1 ? rows.front() : QStringList{u"%1 rows"_s.arg(rows.size())};
}

} // namespace

TEST(Create, TheConfigurationHasItsLinesAndItsRights) {
    const kit::Layout layout = Installed::plain().layout();
    const auto servers = kit::LinesOf(layout.config(u"server.ini"_s));
    ASSERT_TRUE(servers);
    for (int line = 0; line < 3; ++line) {
        const ServerLine server(servers->value(line));
        EXPECT_TRUE(server.complete);
        EXPECT_EQ(server.engine, u"FIREBIRD"_s);
        EXPECT_EQ(server.keepsAccents, u"False"_s);
        EXPECT_TRUE(QFile::exists(layout.base(kit::Environments()[line].base)));
    }
    constexpr QFile::Permissions others = QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    for (const char* secret : {"server.ini", "server_cep.ini"})
        EXPECT_FALSE(QFileInfo(layout.config(QString::fromLatin1(secret))).permissions() & others) << secret;
    EXPECT_FALSE(QFile::exists(layout.config(u"ORBALUX.txt"_s)));
    EXPECT_EQ(kit::LinesOf(layout.config(u"paths.ini"_s))->front().count(u'^'), 12);
}

TEST(Create, TheBasesAreAsTheRegisterWantsThem) {
    for (const QString& file : {Installed::plain().production(), Installed::plain().postalCodes()}) {
        kit::Loader loader(file);
        EXPECT_EQ(row(loader, "SELECT MON$PAGE_SIZE, MON$FORCED_WRITES FROM MON$DATABASE"),
                  QStringList({u"16384"_s, u"1"_s}));
        EXPECT_EQ(row(loader,
                      "SELECT TRIM(D.RDB$CHARACTER_SET_NAME), TRIM(C.RDB$DEFAULT_COLLATE_NAME) FROM RDB$DATABASE D "
                      "JOIN RDB$CHARACTER_SETS C ON C.RDB$CHARACTER_SET_NAME = D.RDB$CHARACTER_SET_NAME"),
                  QStringList({u"WIN1252"_s, u"WIN_PTBR"_s}));
    }
}

TEST(Create, OnlyKeysMustNotBeNull) {
    kit::Loader loader(Installed::plain().production());
    EXPECT_EQ(count(loader, "SELECT COUNT(*) FROM RDB$RELATION_CONSTRAINTS WHERE RDB$CONSTRAINT_TYPE <> 'NOT NULL' "
                            "AND RDB$RELATION_NAME NOT STARTING WITH 'RDB$'"),
              0);
    EXPECT_EQ(count(loader,
                    "SELECT COUNT(*) FROM RDB$RELATION_FIELDS F JOIN RDB$RELATIONS R ON R.RDB$RELATION_NAME = "
                    "F.RDB$RELATION_NAME WHERE R.RDB$SYSTEM_FLAG = 0 AND F.RDB$NULL_FLAG = 1 AND F.RDB$FIELD_POSITION "
                    "<> 0"),
              0);
}

TEST(Create, ReferenceDataCompanyAndUserAreThereAndBusinessTablesEmpty) {
    for (const kit::Environment& environment : kit::Environments()) {
        kit::Loader loader(Installed::plain().layout().base(environment.base));
        EXPECT_EQ(row(loader, "SELECT IDEMPR, CODI_EMPR, NOME_CONH_EMPR, UF00_COML_EMPR, STAT_CEP8 FROM EMPR"),
                  QStringList({u"1"_s, u"0001"_s, u"EMPRESA MODELO"_s, u"SP"_s, u"S"_s}));
        EXPECT_EQ(row(loader, "SELECT IDUSEN, USEN, NOME_USER FROM USEN"),
                  QStringList({u"1"_s, u"ADMIN"_s, u"ADMINISTRADOR"_s}));
        EXPECT_EQ(count(loader, "SELECT COUNT(*) FROM MUNI_IBGE"), 5571);
        EXPECT_EQ(count(loader, "SELECT COUNT(*) FROM PESS"), 0);
        EXPECT_EQ(count(loader, "SELECT COUNT(*) FROM EMPR_CNFG"), 0);
        EXPECT_EQ(count(loader, "SELECT COUNT(*) FROM VENDEDOR"), 0);
    }
}

TEST(Create, OnlyADemonstrationHasCompanySwitches) {
    kit::Loader loader(Installed::demonstration().production());
    EXPECT_EQ(row(loader, "SELECT NOME_PARA, VALO_PARA FROM EMPR_CNFG WHERE NOME_PARA = 'PESS_CNPJ_ALFANUMERICO'"),
              QStringList({u"PESS_CNPJ_ALFANUMERICO"_s, u"S"_s}));
    EXPECT_GT(count(loader, "SELECT COUNT(*) FROM PESS WHERE CPF0_CNPJ SIMILAR TO '%[A-Z]%'"), 0);
    EXPECT_EQ(count(loader, "SELECT COUNT(*) FROM PESS WHERE PSFI_PSJU = 'F' AND CPF0_CNPJ SIMILAR TO '%[A-Z]%'"), 0);
}

TEST(Create, GeneratorsStandAtZero) {
    kit::Loader loader(Installed::plain().production());
    for (const kit::Table& table : kit::Tables())
        if (!table.generator.isEmpty()) {
            EXPECT_EQ(loader.number(u"SELECT GEN_ID(%1, 0) FROM RDB$DATABASE"_s.arg(table.generator)), 0)
                << table.generator;
        }
}

TEST(Create, TheDatabaseFillsTheKeysThatNoStatementCarries) {
    kit::Loader loader(Installed::plain().production());
    loader.run(u"INSERT INTO ARQT (IDPESS) VALUES (7)"_s);
    loader.run(u"INSERT INTO DECO (IDDECO, IDPESS) VALUES (50, 7)"_s);
    loader.run(u"INSERT INTO ARQT_CONT (IDARQT) VALUES (1)"_s);
    loader.run(u"INSERT INTO DECO_CONT (IDDECO) VALUES (50)"_s);
    EXPECT_GT(count(loader, "SELECT IDARQT FROM ARQT"), 0);
    EXPECT_EQ(count(loader, "SELECT IDDECO FROM DECO"), 50);
    EXPECT_GT(count(loader, "SELECT IDARQT_CONT FROM ARQT_CONT"), 0);
    EXPECT_GT(count(loader, "SELECT IDDECO_CONT FROM DECO_CONT"), 0);
    EXPECT_THROW(loader.run(u"INSERT INTO CLIE (IDPESS) VALUES (7)"_s), RuntimeError);
} // nothing is committed

TEST(Create, ANameIsFoundWithoutAccentsAndCapitals) {
    kit::Loader loader(Installed::plain().production());
    EXPECT_EQ(row(loader,
                  "SELECT CODI_MUNI_IBGE FROM MUNI_IBGE WHERE DESC_MUNI_IBGE = 'SÃO PAULO' AND UF00_MUNI_IBGE = 'SP'"),
              QStringList(u"3550308"_s));
    EXPECT_EQ(row(loader, "SELECT DESC_MUNI_IBGE FROM MUNI_IBGE WHERE DESC_MUNI_IBGE LIKE '%florianopol%'"),
              QStringList(u"Florianópolis"_s));
}

TEST(Create, PostalCodesHaveAStreetWithAllItsParts) {
    kit::Loader loader(Installed::plain().postalCodes());
    EXPECT_EQ(row(loader, "SELECT T.ABRV_TIPO, L.NOME_LOGR, B.NOME_BAIR, C.NOME_LOCA, L.UF00_LOGR FROM LOGR L "
                          "JOIN TIPO T ON T.CHAV_TIPO = L.CHAV_TIPO JOIN LOCA C ON C.CHAV_LOCA = L.CHAV_LOCA "
                          "JOIN BAIR B ON B.CHAV_BAIR = L.CHAV_BAIR AND B.CHAV_LOCA = L.CHAV_LOCA "
                          "WHERE L.CEP8_LOGR = '01310100'"),
              QStringList({u"AV"_s, u"Paulista"_s, u"Bela Vista"_s, u"São Paulo"_s, u"SP"_s}));
}

TEST(Create, PicturesAreBitmaps) {
    for (const QString& name : {kit::LinkedPicture(), kit::UnlinkedPicture(), kit::NoPhotoPicture()}) {
        QFile picture(Installed::plain().layout().images() + name);
        ASSERT_TRUE(picture.open(QIODevice::ReadOnly)) << name;
        const QByteArray bytes = picture.readAll();
        EXPECT_TRUE(bytes.startsWith("BM"));
        quint32 size = 0;
        memcpy(&size, bytes.constData() + 2, sizeof size);
        EXPECT_EQ(size, quint32(bytes.size()));
    }
}

TEST(Create, AnInstallationThatIsThereStaysAsItIs) {
    const Installed& installed = Installed::plain();
    const QDateTime before = QFileInfo(installed.layout().config(u"paths.ini"_s)).lastModified();
    try {
        kit::CreateInstallation(installed.home(), {});
        FAIL() << "it was created over the other";
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.description().startsWith(u"Já existe uma instalação em "_s));
    }
    EXPECT_EQ(QFileInfo(installed.layout().config(u"paths.ini"_s)).lastModified(), before);
    EXPECT_TRUE(QFile::exists(installed.production()));
}

TEST(Create, ACreationThatFailsLeavesNothingBehind) {
    const QTemporaryDir folder;
    const QString home = folder.filePath(u"a;b"_s); // a connection string cannot hold this path
    EXPECT_THROW(kit::CreateInstallation(home, {}), RuntimeError);
    EXPECT_TRUE(QDir(home).isEmpty());
}

TEST(Demonstration, EveryTabOfTheRegisterHasSomethingToShow) {
    kit::Loader loader(Installed::demonstration().production());
    EXPECT_GE(count(loader, "SELECT COUNT(*) FROM PESS"), 200);
    for (const char* table :
         {"PESS_CONT", "PESS_ATIV",      "CLIE",    "FORN",         "TRPT",      "MOTO",          "VEND",
          "ARQT",      "DECO",           "PROD",    "PROD_EMPR",    "NFF",       "PEDI_VEDS",     "PEDI_VEDS_DETA",
          "ORCA_VEDS", "ORCA_VEDS_DETA", "OS_VEDS", "OS_VEDS_DETA", "PEDI_COMP", "PEDI_COMP_DETA"})
        EXPECT_GT(loader.number(u"SELECT COUNT(*) FROM %1"_s.arg(QLatin1StringView(table))), 2) << table;
    EXPECT_GT(count(loader, "SELECT COUNT(*) FROM PESS WHERE DATA_DESA IS NOT NULL"), 0);
    EXPECT_GT(count(loader, "SELECT COUNT(*) FROM PEDI_VEDS WHERE IDNFF0 IS NULL"), 0);
    EXPECT_GT(count(loader,
                    "SELECT COUNT(*) FROM (SELECT C.IDCLIE FROM CLIE C WHERE EXISTS (SELECT 1 FROM PEDI_VEDS P WHERE "
                    "P.IDCLIE = C.IDCLIE) AND EXISTS (SELECT 1 FROM ORCA_VEDS O WHERE O.IDCLIE = C.IDCLIE) AND EXISTS "
                    "(SELECT 1 FROM OS_VEDS S WHERE S.IDCLIE = C.IDCLIE))"),
              10);
    EXPECT_EQ(
        count(loader,
              "SELECT COUNT(*) FROM PEDI_COMP P LEFT JOIN USEN U ON U.IDUSEN = P.USER_INCL WHERE U.IDUSEN IS NULL"),
        0);
    EXPECT_EQ(
        count(loader,
              "SELECT COUNT(*) FROM PESS WHERE DATA_DESA IS NOT NULL AND IDCLIE IN (SELECT IDCLIE FROM CLIE WHERE "
              "DATA_DESA IS NULL)"),
        0);
    EXPECT_TRUE(QFile::exists(Installed::demonstration().layout().images() + u"CD001.bmp"_s));
}

TEST(Demonstration, TheRegisterGoesOnBehindItsKeys) {
    kit::Loader loader(Installed::demonstration().production());
    for (const kit::Table& table : kit::Tables())
        if (!table.generator.isEmpty()) {
            const QString key = table.columns.front().name;
            EXPECT_EQ(loader.number(u"SELECT GEN_ID(%1, 0) FROM RDB$DATABASE"_s.arg(table.generator)),
                      loader.number(u"SELECT MAX(%1) FROM %2"_s.arg(key, table.name)))
                << table.name;
        }
}

TEST(Demonstration, ItStaysOutOfHistoryAndDevelopment) {
    for (const kit::Environment& environment : kit::Environments().sliced(1)) {
        kit::Loader loader(Installed::demonstration().layout().base(environment.base));
        EXPECT_EQ(count(loader, "SELECT COUNT(*) FROM PESS"), 0) << environment.name;
    }
}

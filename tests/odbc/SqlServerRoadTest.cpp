#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "launch/AcessoDados.h"
#include "launch/ConectaServidor.h"
#include "odbc/OdbcAdapter.h"
#include "odbc/SampleServer.h"
#include "support/World.h"

#include <gtest/gtest.h>

/// The road of a statement from the launch to the wire: configuration line, connection, guard, adapter, driver, server.
namespace vorta::test {

namespace {

using data::Recordset;
using data::Statement;

class SqlServerRoad : public testing::Test, protected World {
  protected:
    SqlServerRoad() : SqlServerRoad(QStringList()) {}
    explicit SqlServerRoad(const QStringList& options)
        : World([](data::Engine) { return data::MakeOdbcAdapter(); }), server(options) {
        platform.files[config("server_aplic.ini")] = {u"^^"_s};
    }

    static QString config(const char* file) { return u"/vorta/config/"_s + QString::fromLatin1(file); }

    void configure(const char* tag) {
        const QString line =
            u"127.0.0.1,%1^VORTA^vorta^vorta^%2^^False^"_s.arg(server.port()).arg(QString::fromLatin1(tag));
        platform.files[config("server.ini")] = {line};
        platform.files[config("server_cep.ini")] = {line};
    }

    void connect(const char* tag = "MS-SQL") {
        configure(tag);
        ConectaServidor(contexto);
        ASSERT_TRUE(contexto.ConexaoPrincipal);
        ASSERT_TRUE(contexto.ConexaoPrincipal->IsOpen());
    }

    Recordset read(const Statement& statement) { return AbreLeitura(contexto, statement); }

    SampleServer server;
};

class LosingSqlServerRoad : public SqlServerRoad {
  protected:
    LosingSqlServerRoad() : SqlServerRoad({u"--drop-on"_s, u"FIM"_s}) {}
};

} // namespace

TEST_F(SqlServerRoad, EveryTagConnects) {
    for (const char* tag : {"", "MS-SQL", "MSSQL", "MS-SQL2005WEB", "MS-SQL2008WEB", "MS-SQL-REMOTO"}) {
        contexto.ConexaoPrincipal.reset();
        connect(tag);
        EXPECT_EQ(LeParametroEmpresa(contexto, u"PESS_TELA_CLIENTE"_s), u"N") << tag;
    }
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(SqlServerRoad, ThePostalCodeConnectionComesAndGoes) {
    connect();
    ConectaServidorCEP(contexto);
    ASSERT_TRUE(contexto.ConexaoCEP && contexto.ConexaoCEP->IsOpen());
    Recordset rows;
    rows.Open(Statement("SELECT COUNT(*) 'QT' FROM PESS"), contexto.cep());
    EXPECT_EQ(rows.Fields("qt").toInt32(), 3);
    FechaServidorCEP(contexto);
    EXPECT_FALSE(contexto.ConexaoCEP);
    EXPECT_EQ(read(Statement("select * from pess")).RecordCount(), 3);
}

TEST_F(SqlServerRoad, ARefusedLoginEndsTheProcessWithItsBox) {
    platform.files[config("server.ini")] = {u"127.0.0.1,%1^VORTA^vorta^errada^MS-SQL^^False^"_s.arg(server.port())};
    EXPECT_FALSE(program.dispatch([&] { ConectaServidor(contexto); }));
    ASSERT_EQ(platform.boxes.size(), 1);
    EXPECT_TRUE(platform.boxes[0].text.startsWith(u"O Servidor de dados não está respondendo."));
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Critical);
}

TEST_F(SqlServerRoad, ReadsWhatScreensShow) {
    connect();
    Recordset row = read(Statement("select * from pess where idpess = 1"));
    ASSERT_FALSE(row.Eof());
    EXPECT_EQ(row.Fields("NOME_PESS").text(), u"JOÃO DA SILVA");
    EXPECT_EQ(row.Fields("limi_cred").text(), u"1234,5");
    EXPECT_EQ(row.Fields("Data_Incl").text(), u"20/11/2026");
    EXPECT_EQ(row.Fields("nume_filh").toInt16(), 3);
    EXPECT_TRUE(row.Fields("data_desa").isNull());
    EXPECT_EQ(ErrorOf([&] { row.Fields("nada"); }), errorNumber::NoSuchColumn);
}

TEST_F(SqlServerRoad, TheKeyOfANewRow) {
    connect();
    EXPECT_EQ(UltimoIdentity(contexto), 0);
    Executa(contexto, Statement("insert into pess (nome_pess, data_incl) values ('ação', '20261121')"));
    EXPECT_EQ(UltimoIdentity(contexto), 4);
    EXPECT_EQ(read(Statement("select nome_pess from pess where idpess = 4")).Fields(0).text(), u"AÇÃO");
    EXPECT_TRUE(server.trace().contains(u"SELECT @@IDENTITY AS 'MAXROWID'"_s));
}

TEST_F(SqlServerRoad, AColumnOfTwoTablesIsTakenFromTheFirst) {
    connect();
    EXPECT_EQ(read(Statement("select idvend from vend, pess where pess.idpess = vend.idpess and pess.idpess=1"))
                  .Fields(0)
                  .toInt32(),
              1);
}

TEST_F(SqlServerRoad, AttacksInValuesNeverReachTheWire) {
    connect();
    const qsizetype before = server.trace().size();
    for (const char* attack : {"X' OR '1'='1", "X'; DROP TABLE PESS --", "X' UNION SELECT * FROM EMPR_CNFG --",
                               "D'AVILA", "'", "X' /*", "X''' OR 1=1 --", "X'; SHUTDOWN; --"}) {
        const QString value = QString::fromLatin1(attack);
        Statement text;
        text << "select * from pess where nome_pess='" << value << "'";
        EXPECT_EQ(ErrorOf([&] { read(text); }), errorNumber::StatementRefused) << attack;
        Statement write;
        write << "update pess set nome_conh='" << value << "' where idpess=1";
        EXPECT_EQ(ErrorOf([&] { Executa(contexto, write); }), errorNumber::StatementRefused) << attack;
    }
    for (const char* attack : {"1 OR 1=1", "1; DELETE FROM PESS", "1 --", "(SELECT 1)", "idPESS", "1 UNION SELECT 1"}) {
        Statement number;
        number << "delete from pess where idpess=" << QString::fromLatin1(attack);
        EXPECT_EQ(ErrorOf([&] { Executa(contexto, number); }), errorNumber::StatementRefused) << attack;
    }
    EXPECT_EQ(server.trace().size(), before);
    EXPECT_EQ(read(Statement("select * from pess")).RecordCount(), 3);
}

TEST_F(SqlServerRoad, ASaveIsOneTransaction) {
    connect();
    contexto.principal().BeginTrans();
    Executa(contexto, Statement("update pess set nome_conh = 'um' where idpess = 3"));
    EXPECT_EQ(ErrorOf([&] { Executa(contexto, Statement("update pess set limi_cred = '1,5' where idpess = 3")); }),
              errorNumber::StatementRefused);
    contexto.ConexaoPrincipal.reset();
    connect();
    EXPECT_TRUE(read(Statement("select nome_conh from pess where idpess = 3")).Fields(0).isNull());
    contexto.principal().BeginTrans();
    Executa(contexto, Statement("update pess set nome_conh = 'um' where idpess = 3"));
    contexto.principal().CommitTrans();
    contexto.ConexaoPrincipal.reset();
    connect();
    EXPECT_EQ(read(Statement("select nome_conh from pess where idpess = 3")).Fields(0).text(), u"UM");
}

TEST_F(LosingSqlServerRoad, AConnectionLostDuringASaveLeavesNothing) {
    connect();
    contexto.principal().BeginTrans();
    Executa(contexto, Statement("update pess set nome_conh = 'um' where idpess = 3"));
    EXPECT_EQ(ErrorOf([&] { Executa(contexto, Statement("update pess set nome_conh = 'fim' where idpess = 3")); }),
              errorNumber::ConnectionFailed);
    EXPECT_EQ(ErrorOf([&] { read(Statement("select * from pess")); }), errorNumber::ConnectionFailed)
        << "there is no reconnection";
    contexto.ConexaoPrincipal.reset();
    connect();
    EXPECT_TRUE(read(Statement("select nome_conh from pess where idpess = 3")).Fields(0).isNull());
}

} // namespace vorta::test

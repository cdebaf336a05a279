#include "base/Literals.h"
#include "roles/PapelTest.h"

/// The statements of an inclusion, role by role, on both engines.
namespace vorta::test {

namespace {

class RoleInclusion : public PapelTest {
  protected:
    /// Includes a role row and gives the statements of its transaction.
    QStringList include(const char* tela, const std::function<void()>& preenche) {
        identity(31);
        open(tela, [&] {
            click("cmdINCLUIR");
            EXPECT_EQ(contexto.ModoTela, u"I");
            preenche();
            click("cmdSALVAR");
            EXPECT_EQ(contexto.ModoTela, u" ");
        });
        EXPECT_TRUE(committed());
        EXPECT_EQ(platform.boxes.news(), QStringList(saved));
        return transaction();
    }

    void fillCustomer() {
        type("cboRevenda", "Sim");
        type("txtLimiCred", "1500,5");
        type("cboTipoCli", "OURO");
        type("cboTransportadora", "RAPIDO");
        type("cboVendedor", "ANA");
        type("txtLimeMaxiConh", " 12 ");
        type("cboRegimeEspecialICMS", "REGIME A");
        addContact("COMPRADOR", "João", "11 5555", "joao@x.com.br", "25/12");
    }
    void customerKeys() {
        database.answer(u"FROM TIPO_CLIE WHERE DESC"_s, {{u"idtipo_clie"_s}, {{test::number(3)}}});
        database.answer(u"FROM TRPT, PESS"_s, {{u"idtrpt"_s}, {{test::number(8)}}});
        database.answer(u"FROM VEND, PESS"_s, {{u"idvend"_s}, {{test::number(9)}}});
        database.answer(u"FROM REGI_ESPE_ICMS"_s, {{u"idregi_espe_icms"_s}, {{test::number(2)}}});
    }
    const QStringList buscasCliente{
        u"SELECT IDTIPO_CLIE FROM TIPO_CLIE WHERE DESC_TIPO_CLIE='OURO'"_s,
        u"SELECT TRPT.IDTRPT FROM TRPT, PESS WHERE PESS.IDPESS = TRPT.IDPESS AND PESS.NOME_CONH='RAPIDO'"_s,
        u"SELECT VEND.IDVEND FROM VEND, PESS WHERE PESS.IDPESS = VEND.IDPESS AND PESS.NOME_CONH='ANA'"_s,
        u"SELECT IDREGI_ESPE_ICMS FROM REGI_ESPE_ICMS WHERE DESC_REGI_ESPE_ICMS = 'REGIME A'"_s};

    void fillCommissioned(const char* registroProfissional) {
        database.answer(u"SELECT IDBANC FROM BANC"_s, {{u"idbanc"_s}, {{test::number(4)}}});
        type("mskDtAdmissao", "01/02/2026");
        type("txtSalFixo", "1000");
        type("txtPercPool", "2,5");
        type("txtPercIndi", "");
        type(registroProfissional, " A-77 ");
        type("cboBancoCartao", "ITAU");
        type("txtBancAgen", "0123");
        type("txtBancCont", "45-6");
        addContact("GERENTE", "Rui");
    }
};

TEST_F(RoleInclusion, CustomerOnFirebird) {
    customerKeys();
    generator("GEN_CLIE", 31);
    generator("GEN_CLIE_CONT", 41);
    EXPECT_EQ(
        include("frmCliente", [&] { fillCustomer(); }),
        (QStringList{GeneratorRead("GEN_CLIE")} + buscasCliente +
         QStringList{"INSERT INTO CLIE (IDCLIE, IDPESS, REVE, LIMI_CRED, IDTIPO_CLIE, IDTRPT, DATA_CRED, IDVEND, "
                     "LIME_MAXI_CONH, IDREGI_ESPE_ICMS, DATA_INCL, USER_INCL) VALUES ('31', '5', 'S', '1500.50', '3', "
                     "'8', '20261120', '9', '12', '2', '20261120', '7')",
                     GeneratorRead("GEN_CLIE_CONT"),
                     "INSERT INTO CLIE_CONT (IDCLIE_CONT, IDCLIE, CARG_CLIE_CONT, NOME_CLIE_CONT, TELE_CLIE_CONT, "
                     "EMAI_CLIE_CONT, DATA_NASC, DATA_INCL, USER_INCL) VALUES ('41', '31', 'COMPRADOR', 'JOAO', '11 "
                     "5555', 'JOAO@X.COM.BR', '25/12', '20261120', '7')"}));
}

TEST_F(RoleInclusion, CustomerOnSqlServer) {
    connect(u"MSSQL"_s);
    customerKeys();
    EXPECT_EQ(
        include("frmCliente", [&] { fillCustomer(); }),
        (buscasCliente +
         QStringList{"INSERT INTO CLIE (IDPESS, REVE, LIMI_CRED, IDTIPO_CLIE, IDTRPT, DATA_CRED, IDVEND, "
                     "LIME_MAXI_CONH, IDREGI_ESPE_ICMS, DATA_INCL, USER_INCL) VALUES ('5', 'S', '1500.50', '3', '8', "
                     "'20261120', '9', '12', '2', '20261120', '7')",
                     identityRead,
                     "INSERT INTO CLIE_CONT (IDCLIE, CARG_CLIE_CONT, NOME_CLIE_CONT, TELE_CLIE_CONT, EMAI_CLIE_CONT, "
                     "DATA_NASC, DATA_INCL, USER_INCL) VALUES ('31', 'COMPRADOR', 'JOAO', '11 5555', 'JOAO@X.COM.BR', "
                     "'25/12', '20261120', '7')"}));
}

TEST_F(RoleInclusion, CustomerWithTheLimitOnly) {
    connect(u"MSSQL"_s);
    EXPECT_EQ(include("frmCliente",
                      [&] {
                          type("mskDtCredencial", "");
                          type("txtLimiCred", "0");
                      }),
              (QStringList{"INSERT INTO CLIE (IDPESS, REVE, LIMI_CRED, IDTIPO_CLIE, LIME_MAXI_CONH, DATA_INCL, "
                           "USER_INCL) VALUES ('5', 'N', '0.00', '0', '0', '20261120', '7')",
                           identityRead}));
}

TEST_F(RoleInclusion, CustomerWithAnUnknownRegimeCarriesEmptyText) {
    connect(u"MSSQL"_s);
    const QStringList comandos = include("frmCliente", [&] {
        type("txtLimiCred", "0");
        type("cboRegimeEspecialICMS", "NENHUM");
        type("cboVendedor", "NINGUEM");
    });
    EXPECT_TRUE(comandos.filter("INSERT INTO CLIE (")
                    .value(0)
                    .contains("IDVEND, LIME_MAXI_CONH, IDREGI_ESPE_ICMS, DATA_INCL, USER_INCL) VALUES ('5', 'N', "
                              "'0.00', '0', '20261120', "
                              "'0', '0', '', '20261120', '7')"))
        << comandos.join('\n');
}

TEST_F(RoleInclusion, SupplierOnFirebird) {
    generator("GEN_FORN", 31);
    generator("GEN_FORN_CONT", 41);
    EXPECT_EQ(include("frmFornecedor",
                      [&] {
                          EXPECT_EQ(textOf("mskDtCredencial"), u"20/11/2026");
                          EXPECT_EQ(textOf("txtLimiCred"), u"0");
                          type("mskDtCredencial", "31/12/2025");
                          type("txtLimiCred", "1.5");
                          type("txtDescontoFornecedor", "2,5");
                          addContact("COMPRADOR", "José");
                          addContact("GERENTE", "Ana", "", "ana@b.com", "28/02");
                      }),
              (QStringList{GeneratorRead("GEN_FORN"),
                           "INSERT INTO FORN (IDFORN, IDPESS, DATA_CRED, LIMI_COPR, DESCONTO_FORN, DATA_INCL, "
                           "USER_INCL) VALUES ('31', '5', '20251231', '1.50', '2.5', '20261120', '7')",
                           GeneratorRead("GEN_FORN_CONT"),
                           "INSERT INTO FORN_CONT (IDFORN_CONT, IDFORN, CARG_FORN_CONT, NOME_FORN_CONT, DATA_NASC, "
                           "DATA_INCL, USER_INCL) VALUES ('41', '31', 'COMPRADOR', 'JOSE', '', '20261120', '7')",
                           GeneratorRead("GEN_FORN_CONT"),
                           "INSERT INTO FORN_CONT (IDFORN_CONT, IDFORN, CARG_FORN_CONT, NOME_FORN_CONT, "
                           "EMAI_FORN_CONT, DATA_NASC, DATA_INCL, USER_INCL) VALUES ('41', '31', 'GERENTE', 'ANA', "
                           "'ANA@B.COM', '28/02', '20261120', '7')"}));
}

TEST_F(RoleInclusion, SupplierOnSqlServerWithoutDateAndAmounts) {
    connect(u"MS-SQL"_s);
    EXPECT_EQ(include("frmFornecedor",
                      [&] {
                          type("mskDtCredencial", "");
                          type("txtLimiCred", "");
                          type("txtDescontoFornecedor", "");
                      }),
              (QStringList{"INSERT INTO FORN (IDPESS, LIMI_COPR, DESCONTO_FORN, DATA_INCL, USER_INCL) VALUES ('5', "
                           "'', '0.00', '20261120', '7')",
                           identityRead}));
    EXPECT_EQ(textOf("txtDescontoFornecedor"), u"0.00");
}

TEST_F(RoleInclusion, CarrierOnBothEngines) {
    generator("GEN_TRPT", 31);
    generator("GEN_TRPT_CONT", 41);
    EXPECT_EQ(include("frmTransportadora", [&] { addContact("GERENTE", "Rui"); }),
              (QStringList{GeneratorRead("GEN_TRPT"),
                           "INSERT INTO TRPT (IDTRPT, IDPESS, DATA_CRED, DATA_INCL, USER_INCL) VALUES ('31', '5', "
                           "'20261120', '20261120', '7')",
                           GeneratorRead("GEN_TRPT_CONT"),
                           "INSERT INTO TRPT_CONT (IDTRPT_CONT, IDTRPT, CARG_TRPT_CONT, NOME_TRPT_CONT, DATA_NASC, "
                           "DATA_INCL, USER_INCL) VALUES ('41', '31', 'GERENTE', 'RUI', '', '20261120', '7')"}));
    connect(u"MSSQL"_s);
    EXPECT_EQ(include("frmTransportadora", [&] { addContact("GERENTE", "Rui"); }),
              (QStringList{"INSERT INTO TRPT (IDPESS, DATA_CRED, DATA_INCL, USER_INCL) VALUES ('5', '20261120', "
                           "'20261120', '7')",
                           identityRead,
                           "INSERT INTO TRPT_CONT (IDTRPT, CARG_TRPT_CONT, NOME_TRPT_CONT, DATA_NASC, DATA_INCL, "
                           "USER_INCL) VALUES ('31', 'GERENTE', 'RUI', '', '20261120', '7')"}));
}

TEST_F(RoleInclusion, DriverAsksForTheKeyOnBothEngines) {
    generator("GEN_MOTO", 77);
    const auto preenche = [&] {
        type("mskDtAdmissao", "01/02/2026");
        type("txtCNH", "123");
        type("txtProntuario", "456");
        type("cboUF_Emitente", "SP");
        type("txtPai0Moto", "João");
        type("txtMae0Moto", "Inês");
        type("txtRefeMoto", "boa");
    };
    EXPECT_EQ(include("frmMotorista", preenche),
              (QStringList{GeneratorRead("GEN_MOTO"),
                           "INSERT INTO MOTO (IDMOTO, IDPESS, DATA_ADMS, CNH0_MOTO, PRON_MOTO, UF00_PRON_MOTO, "
                           "PAI0_MOTO, MAE0_MOTO, REFE_MOTO, DATA_INCL, USER_INCL) VALUES ('77', '5', '20260201', "
                           "'123', '456', 'SP', 'JOAO', 'INES', 'BOA', '20261120', '7')",
                           identityRead, "UPDATE PESS SET IDMOTO = 31 WHERE IDPESS = 5"}));
    connect(u"MSSQL"_s);
    EXPECT_EQ(include("frmMotorista", [&] { type("mskDtAdmissao", "01/02/2026"); }),
              (QStringList{"INSERT INTO MOTO (IDPESS, DATA_ADMS, DATA_INCL, USER_INCL) VALUES ('5', '20260201', "
                           "'20261120', '7')",
                           identityRead, "UPDATE PESS SET IDMOTO = 31 WHERE IDPESS = 5"}));
}

TEST_F(RoleInclusion, DriverWritesToThePersonOfThePersonScreen) {
    pessoas().txtRowID.setText(u"6"_s);
    EXPECT_EQ(include("frmMotorista", [] {}).last(), u"UPDATE PESS SET IDMOTO = 31 WHERE IDPESS = 6");
}

TEST_F(RoleInclusion, SalespersonNeedsNoKey) {
    generator("GEN_VEND", 77);
    EXPECT_EQ(include("frmVendedor",
                      [&] {
                          type("txtSalFixo", "");
                          type("txtPercPool", "");
                          type("txtPercIndi", "");
                      }),
              (QStringList{GeneratorRead("GEN_VEND"),
                           "INSERT INTO VEND (IDVEND, IDPESS, VALO_SALA, PERC_POOL, PERC_COMS, DATA_INCL, USER_INCL) "
                           "VALUES ('77', '5', '0.00', '0.00', '0.00', '20261120', '7')"}));
    connect(u"MSSQL"_s);
    EXPECT_EQ(include("frmVendedor",
                      [&] {
                          type("mskDtAdmissao", "15/03/2026");
                          type("txtSalFixo", "1234,5");
                          type("txtPercPool", "2,25");
                          type("txtPercIndi", "3");
                      }),
              (QStringList{"INSERT INTO VEND (IDPESS, DATA_ADMS, VALO_SALA, PERC_POOL, PERC_COMS, DATA_INCL, "
                           "USER_INCL) VALUES ('5', '20260315', '1234.50', '2.25', '3.00', '20261120', '7')"}));
}

TEST_F(RoleInclusion, ArchitectHasNoGeneratorAndSlashesInDates) {
    for (const char* motor : {"FIREBIRD", "MSSQL"}) {
        connect(QString::fromLatin1(motor));
        EXPECT_EQ(
            include("frmArquiteto", [&] { fillCommissioned("txtCREA"); }),
            (QStringList{"SELECT IDBANC FROM BANC WHERE NOME_BANC='ITAU'",
                         "INSERT INTO ARQT (IDPESS, DATA_CRED, VALO_SALA, PERC_POOL, PERC_COMS, ARQT_CREA, IDBANC, "
                         "BANC_AGEN, BANC_CONT, DATA_INCL, USER_INCL) VALUES ('5', '2026/02/01', '1000.00', '2.50', "
                         "'0.00', 'A-77', '4', '0123', '45-6', '2026/11/20', '7')",
                         identityRead, "UPDATE PESS SET IDARQT = 31 WHERE IDPESS = 5",
                         "INSERT INTO ARQT_CONT (IDARQT, CARG_ARQT_CONT, NOME_ARQT_CONT, DATA_NASC, DATA_INCL, "
                         "USER_INCL) VALUES ('31', 'GERENTE', 'RUI', '', '2026/11/20', '7')"}));
    }
}

TEST_F(RoleInclusion, DecoratorHasItsOwnRegistration) {
    EXPECT_EQ(include("frmDecorador", [&] { fillCommissioned("txtADD"); }),
              (QStringList{"SELECT IDBANC FROM BANC WHERE NOME_BANC='ITAU'",
                           "INSERT INTO DECO (IDPESS, DATA_CRED, VALO_SALA, PERC_POOL, PERC_COMS, DECO_ADD0, IDBANC, "
                           "BANC_AGEN, BANC_CONT, DATA_INCL, USER_INCL) VALUES ('5', '2026/02/01', '1000.00', '2.50', "
                           "'0.00', 'A-77', '4', '0123', '45-6', '2026/11/20', '7')",
                           identityRead, "UPDATE PESS SET IDDECO = 31 WHERE IDPESS = 5",
                           "INSERT INTO DECO_CONT (IDDECO, CARG_DECO_CONT, NOME_DECO_CONT, DATA_NASC, DATA_INCL, "
                           "USER_INCL) VALUES ('31', 'GERENTE', 'RUI', '', '2026/11/20', '7')"}));
}

TEST_F(RoleInclusion, ArchitectWithoutABankAsksForTheEmptyName) {
    EXPECT_EQ(include("frmArquiteto", [] {}),
              (QStringList{"SELECT IDBANC FROM BANC WHERE NOME_BANC=''",
                           "INSERT INTO ARQT (IDPESS, VALO_SALA, PERC_POOL, PERC_COMS, ARQT_CREA, IDBANC, BANC_AGEN, "
                           "BANC_CONT, DATA_INCL, USER_INCL) VALUES ('5', '0', '0', '0', '', '0', '', '', "
                           "'2026/11/20', '7')",
                           identityRead, "UPDATE PESS SET IDARQT = 31 WHERE IDPESS = 5"}));
}

} // namespace

} // namespace vorta::test

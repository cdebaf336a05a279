#include "base/Literals.h"
#include "roles/PapelTest.h"

/// The statements of an inclusion, role by role, on both engines.
namespace vorta::test {

namespace {

class RoleInclusion : public PapelTest {
  protected:
    /// Includes a role row and gives the statements of its transaction.
    QStringList inclui(const char* tela, const std::function<void()>& preenche) {
        identidade(31);
        abre(tela, [&] {
            clica("cmdINCLUIR");
            EXPECT_EQ(contexto.ModoTela, u"I");
            preenche();
            clica("cmdSALVAR");
            EXPECT_EQ(contexto.ModoTela, u" ");
        });
        EXPECT_TRUE(confirmada());
        EXPECT_EQ(plataforma.boxes.back().text, u"Registro Gravado com sucesso!");
        return transacao();
    }

    void preencheCliente() {
        digita("cboRevenda", "Sim");
        digita("txtLimiCred", "1500,5");
        digita("cboTipoCli", "OURO");
        digita("cboTransportadora", "RAPIDO");
        digita("cboVendedor", "ANA");
        digita("txtLimeMaxiConh", " 12 ");
        digita("cboRegimeEspecialICMS", "REGIME A");
        incluiContato("COMPRADOR", "João", "11 5555", "joao@x.com.br", "25/12");
    }
    void chavesCliente() {
        base.answer(u"FROM TIPO_CLIE WHERE DESC"_s, {{u"idtipo_clie"_s}, {{test::number(3)}}});
        base.answer(u"FROM TRPT, PESS"_s, {{u"idtrpt"_s}, {{test::number(8)}}});
        base.answer(u"FROM VEND, PESS"_s, {{u"idvend"_s}, {{test::number(9)}}});
        base.answer(u"FROM REGI_ESPE_ICMS"_s, {{u"idregi_espe_icms"_s}, {{test::number(2)}}});
    }
    const QStringList buscasCliente{
        u"SELECT IDTIPO_CLIE FROM TIPO_CLIE WHERE DESC_TIPO_CLIE='OURO'"_s,
        u"SELECT TRPT.IDTRPT FROM TRPT, PESS WHERE PESS.IDPESS = TRPT.IDPESS AND PESS.NOME_CONH='RAPIDO'"_s,
        u"SELECT VEND.IDVEND FROM VEND, PESS WHERE PESS.IDPESS = VEND.IDPESS AND PESS.NOME_CONH='ANA'"_s,
        u"SELECT IDREGI_ESPE_ICMS FROM REGI_ESPE_ICMS WHERE DESC_REGI_ESPE_ICMS = 'REGIME A'"_s};

    void preencheComissionado(const char* registroProfissional) {
        base.answer(u"SELECT IDBANC FROM BANC"_s, {{u"idbanc"_s}, {{test::number(4)}}});
        digita("mskDtAdmissao", "01/02/2026");
        digita("txtSalFixo", "1000");
        digita("txtPercPool", "2,5");
        digita("txtPercIndi", "");
        digita(registroProfissional, " A-77 ");
        digita("cboBancoCartao", "ITAU");
        digita("txtBancAgen", "0123");
        digita("txtBancCont", "45-6");
        incluiContato("GERENTE", "Rui");
    }
};

TEST_F(RoleInclusion, CustomerOnFirebird) {
    chavesCliente();
    gerador("GEN_CLIE", 31);
    gerador("GEN_CLIE_CONT", 41);
    EXPECT_EQ(
        inclui("frmCliente", [&] { preencheCliente(); }),
        (QStringList{LeituraGerador("GEN_CLIE")} + buscasCliente +
         QStringList{"INSERT INTO CLIE (IDCLIE, IDPESS, REVE, LIMI_CRED, IDTIPO_CLIE, IDTRPT, DATA_CRED, IDVEND, "
                     "LIME_MAXI_CONH, IDREGI_ESPE_ICMS, DATA_INCL, USER_INCL) VALUES ('31', '5', 'S', '1500.50', '3', "
                     "'8', '20261120', '9', '12', '2', '20261120', '7')",
                     LeituraGerador("GEN_CLIE_CONT"),
                     "INSERT INTO CLIE_CONT (IDCLIE_CONT, IDCLIE, CARG_CLIE_CONT, NOME_CLIE_CONT, TELE_CLIE_CONT, "
                     "EMAI_CLIE_CONT, DATA_NASC, DATA_INCL, USER_INCL) VALUES ('41', '31', 'COMPRADOR', 'JOAO', '11 "
                     "5555', 'JOAO@X.COM.BR', '25/12', '20261120', '7')"}));
}

TEST_F(RoleInclusion, CustomerOnSqlServer) {
    conecta("MSSQL");
    chavesCliente();
    EXPECT_EQ(
        inclui("frmCliente", [&] { preencheCliente(); }),
        (buscasCliente +
         QStringList{"INSERT INTO CLIE (IDPESS, REVE, LIMI_CRED, IDTIPO_CLIE, IDTRPT, DATA_CRED, IDVEND, "
                     "LIME_MAXI_CONH, IDREGI_ESPE_ICMS, DATA_INCL, USER_INCL) VALUES ('5', 'S', '1500.50', '3', '8', "
                     "'20261120', '9', '12', '2', '20261120', '7')",
                     identidadeLida,
                     "INSERT INTO CLIE_CONT (IDCLIE, CARG_CLIE_CONT, NOME_CLIE_CONT, TELE_CLIE_CONT, EMAI_CLIE_CONT, "
                     "DATA_NASC, DATA_INCL, USER_INCL) VALUES ('31', 'COMPRADOR', 'JOAO', '11 5555', 'JOAO@X.COM.BR', "
                     "'25/12', '20261120', '7')"}));
}

TEST_F(RoleInclusion, CustomerWithTheLimitOnly) {
    conecta("MSSQL");
    EXPECT_EQ(inclui("frmCliente",
                     [&] {
                         digita("mskDtCredencial", "");
                         digita("txtLimiCred", "0");
                     }),
              (QStringList{"INSERT INTO CLIE (IDPESS, REVE, LIMI_CRED, IDTIPO_CLIE, LIME_MAXI_CONH, DATA_INCL, "
                           "USER_INCL) VALUES ('5', 'N', '0.00', '0', '0', '20261120', '7')",
                           identidadeLida}));
}

TEST_F(RoleInclusion, CustomerWithAnUnknownRegimeCarriesEmptyText) {
    conecta("MSSQL");
    const QStringList comandos = inclui("frmCliente", [&] {
        digita("txtLimiCred", "0");
        digita("cboRegimeEspecialICMS", "NENHUM");
        digita("cboVendedor", "NINGUEM");
    });
    EXPECT_TRUE(comandos.filter("INSERT INTO CLIE (")
                    .value(0)
                    .contains("IDVEND, LIME_MAXI_CONH, IDREGI_ESPE_ICMS, DATA_INCL, USER_INCL) VALUES ('5', 'N', "
                              "'0.00', '0', '20261120', "
                              "'0', '0', '', '20261120', '7')"))
        << comandos.join('\n');
}

TEST_F(RoleInclusion, SupplierOnFirebird) {
    gerador("GEN_FORN", 31);
    gerador("GEN_FORN_CONT", 41);
    EXPECT_EQ(inclui("frmFornecedor",
                     [&] {
                         EXPECT_EQ(texto("mskDtCredencial"), u"20/11/2026");
                         EXPECT_EQ(texto("txtLimiCred"), u"0");
                         digita("mskDtCredencial", "31/12/2025");
                         digita("txtLimiCred", "1.5");
                         digita("txtDescontoFornecedor", "2,5");
                         incluiContato("COMPRADOR", "José");
                         incluiContato("GERENTE", "Ana", "", "ana@b.com", "28/02");
                     }),
              (QStringList{LeituraGerador("GEN_FORN"),
                           "INSERT INTO FORN (IDFORN, IDPESS, DATA_CRED, LIMI_COPR, DESCONTO_FORN, DATA_INCL, "
                           "USER_INCL) VALUES ('31', '5', '20251231', '1.50', '2.5', '20261120', '7')",
                           LeituraGerador("GEN_FORN_CONT"),
                           "INSERT INTO FORN_CONT (IDFORN_CONT, IDFORN, CARG_FORN_CONT, NOME_FORN_CONT, DATA_NASC, "
                           "DATA_INCL, USER_INCL) VALUES ('41', '31', 'COMPRADOR', 'JOSE', '', '20261120', '7')",
                           LeituraGerador("GEN_FORN_CONT"),
                           "INSERT INTO FORN_CONT (IDFORN_CONT, IDFORN, CARG_FORN_CONT, NOME_FORN_CONT, "
                           "EMAI_FORN_CONT, DATA_NASC, DATA_INCL, USER_INCL) VALUES ('41', '31', 'GERENTE', 'ANA', "
                           "'ANA@B.COM', '28/02', '20261120', '7')"}));
}

TEST_F(RoleInclusion, SupplierOnSqlServerWithoutDateAndAmounts) {
    conecta("MS-SQL");
    EXPECT_EQ(inclui("frmFornecedor",
                     [&] {
                         digita("mskDtCredencial", "");
                         digita("txtLimiCred", "");
                         digita("txtDescontoFornecedor", "");
                     }),
              (QStringList{"INSERT INTO FORN (IDPESS, LIMI_COPR, DESCONTO_FORN, DATA_INCL, USER_INCL) VALUES ('5', "
                           "'', '0.00', '20261120', '7')",
                           identidadeLida}));
    EXPECT_EQ(texto("txtDescontoFornecedor"), u"0.00");
}

TEST_F(RoleInclusion, CarrierOnBothEngines) {
    gerador("GEN_TRPT", 31);
    gerador("GEN_TRPT_CONT", 41);
    EXPECT_EQ(inclui("frmTransportadora", [&] { incluiContato("GERENTE", "Rui"); }),
              (QStringList{LeituraGerador("GEN_TRPT"),
                           "INSERT INTO TRPT (IDTRPT, IDPESS, DATA_CRED, DATA_INCL, USER_INCL) VALUES ('31', '5', "
                           "'20261120', '20261120', '7')",
                           LeituraGerador("GEN_TRPT_CONT"),
                           "INSERT INTO TRPT_CONT (IDTRPT_CONT, IDTRPT, CARG_TRPT_CONT, NOME_TRPT_CONT, DATA_NASC, "
                           "DATA_INCL, USER_INCL) VALUES ('41', '31', 'GERENTE', 'RUI', '', '20261120', '7')"}));
    conecta("MSSQL");
    EXPECT_EQ(inclui("frmTransportadora", [&] { incluiContato("GERENTE", "Rui"); }),
              (QStringList{"INSERT INTO TRPT (IDPESS, DATA_CRED, DATA_INCL, USER_INCL) VALUES ('5', '20261120', "
                           "'20261120', '7')",
                           identidadeLida,
                           "INSERT INTO TRPT_CONT (IDTRPT, CARG_TRPT_CONT, NOME_TRPT_CONT, DATA_NASC, DATA_INCL, "
                           "USER_INCL) VALUES ('31', 'GERENTE', 'RUI', '', '20261120', '7')"}));
}

TEST_F(RoleInclusion, DriverAsksForTheKeyOnBothEngines) {
    gerador("GEN_MOTO", 77);
    const auto preenche = [&] {
        digita("mskDtAdmissao", "01/02/2026");
        digita("txtCNH", "123");
        digita("txtProntuario", "456");
        digita("cboUF_Emitente", "SP");
        digita("txtPai0Moto", "João");
        digita("txtMae0Moto", "Inês");
        digita("txtRefeMoto", "boa");
    };
    EXPECT_EQ(inclui("frmMotorista", preenche),
              (QStringList{LeituraGerador("GEN_MOTO"),
                           "INSERT INTO MOTO (IDMOTO, IDPESS, DATA_ADMS, CNH0_MOTO, PRON_MOTO, UF00_PRON_MOTO, "
                           "PAI0_MOTO, MAE0_MOTO, REFE_MOTO, DATA_INCL, USER_INCL) VALUES ('77', '5', '20260201', "
                           "'123', '456', 'SP', 'JOAO', 'INES', 'BOA', '20261120', '7')",
                           identidadeLida, "UPDATE PESS SET IDMOTO = 31 WHERE IDPESS = 5"}));
    conecta("MSSQL");
    EXPECT_EQ(inclui("frmMotorista", [&] { digita("mskDtAdmissao", "01/02/2026"); }),
              (QStringList{"INSERT INTO MOTO (IDPESS, DATA_ADMS, DATA_INCL, USER_INCL) VALUES ('5', '20260201', "
                           "'20261120', '7')",
                           identidadeLida, "UPDATE PESS SET IDMOTO = 31 WHERE IDPESS = 5"}));
}

TEST_F(RoleInclusion, DriverWritesToThePersonOfThePersonScreen) {
    pessoas().txtRowID.setText(u"6"_s);
    EXPECT_EQ(inclui("frmMotorista", [] {}).last(), u"UPDATE PESS SET IDMOTO = 31 WHERE IDPESS = 6");
}

TEST_F(RoleInclusion, SalespersonNeedsNoKey) {
    gerador("GEN_VEND", 77);
    EXPECT_EQ(inclui("frmVendedor",
                     [&] {
                         digita("txtSalFixo", "");
                         digita("txtPercPool", "");
                         digita("txtPercIndi", "");
                     }),
              (QStringList{LeituraGerador("GEN_VEND"),
                           "INSERT INTO VEND (IDVEND, IDPESS, VALO_SALA, PERC_POOL, PERC_COMS, DATA_INCL, USER_INCL) "
                           "VALUES ('77', '5', '0.00', '0.00', '0.00', '20261120', '7')"}));
    conecta("MSSQL");
    EXPECT_EQ(inclui("frmVendedor",
                     [&] {
                         digita("mskDtAdmissao", "15/03/2026");
                         digita("txtSalFixo", "1234,5");
                         digita("txtPercPool", "2,25");
                         digita("txtPercIndi", "3");
                     }),
              (QStringList{"INSERT INTO VEND (IDPESS, DATA_ADMS, VALO_SALA, PERC_POOL, PERC_COMS, DATA_INCL, "
                           "USER_INCL) VALUES ('5', '20260315', '1234.50', '2.25', '3.00', '20261120', '7')"}));
}

TEST_F(RoleInclusion, ArchitectHasNoGeneratorAndSlashesInDates) {
    for (const char* motor : {"FIREBIRD", "MSSQL"}) {
        conecta(motor);
        EXPECT_EQ(
            inclui("frmArquiteto", [&] { preencheComissionado("txtCREA"); }),
            (QStringList{"SELECT IDBANC FROM BANC WHERE NOME_BANC='ITAU'",
                         "INSERT INTO ARQT (IDPESS, DATA_CRED, VALO_SALA, PERC_POOL, PERC_COMS, ARQT_CREA, IDBANC, "
                         "BANC_AGEN, BANC_CONT, DATA_INCL, USER_INCL) VALUES ('5', '2026/02/01', '1000.00', '2.50', "
                         "'0.00', 'A-77', '4', '0123', '45-6', '2026/11/20', '7')",
                         identidadeLida, "UPDATE PESS SET IDARQT = 31 WHERE IDPESS = 5",
                         "INSERT INTO ARQT_CONT (IDARQT, CARG_ARQT_CONT, NOME_ARQT_CONT, DATA_NASC, DATA_INCL, "
                         "USER_INCL) VALUES ('31', 'GERENTE', 'RUI', '', '2026/11/20', '7')"}));
    }
}

TEST_F(RoleInclusion, DecoratorHasItsOwnRegistration) {
    EXPECT_EQ(inclui("frmDecorador", [&] { preencheComissionado("txtADD"); }),
              (QStringList{"SELECT IDBANC FROM BANC WHERE NOME_BANC='ITAU'",
                           "INSERT INTO DECO (IDPESS, DATA_CRED, VALO_SALA, PERC_POOL, PERC_COMS, DECO_ADD0, IDBANC, "
                           "BANC_AGEN, BANC_CONT, DATA_INCL, USER_INCL) VALUES ('5', '2026/02/01', '1000.00', '2.50', "
                           "'0.00', 'A-77', '4', '0123', '45-6', '2026/11/20', '7')",
                           identidadeLida, "UPDATE PESS SET IDDECO = 31 WHERE IDPESS = 5",
                           "INSERT INTO DECO_CONT (IDDECO, CARG_DECO_CONT, NOME_DECO_CONT, DATA_NASC, DATA_INCL, "
                           "USER_INCL) VALUES ('31', 'GERENTE', 'RUI', '', '2026/11/20', '7')"}));
}

TEST_F(RoleInclusion, ArchitectWithoutABankAsksForTheEmptyName) {
    EXPECT_EQ(inclui("frmArquiteto", [] {}),
              (QStringList{"SELECT IDBANC FROM BANC WHERE NOME_BANC=''",
                           "INSERT INTO ARQT (IDPESS, VALO_SALA, PERC_POOL, PERC_COMS, ARQT_CREA, IDBANC, BANC_AGEN, "
                           "BANC_CONT, DATA_INCL, USER_INCL) VALUES ('5', '0', '0', '0', '', '0', '', '', "
                           "'2026/11/20', '7')",
                           identidadeLida, "UPDATE PESS SET IDARQT = 31 WHERE IDPESS = 5"}));
}

} // namespace

} // namespace vorta::test

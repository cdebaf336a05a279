#include "base/Literals.h"
#include "roles/PapelTest.h"

/// The statements of an alteration, role by role. They are the same on both engines but for the keys of the contacts.
namespace vorta::test {

namespace {

class RoleAlteration : public PapelTest {
  protected:
    QStringList alter(const char* tela, const std::function<void()>& preenche) {
        open(tela, [&] {
            click("cmdALTERAR");
            EXPECT_EQ(contexto.ModoTela, u"A");
            EXPECT_EQ(textOf("lblAviso"), u"O Modo <ALTERAÇÃO> está ATIVO");
            preenche();
            click("cmdSALVAR");
        });
        EXPECT_TRUE(committed());
        EXPECT_EQ(platform.boxes.news(), QStringList(saved));
        return transaction();
    }

    /// Stored contacts of the role row.
    void contactRows(const char* tabela, int quantos) {
        const QString nome = QString::fromLatin1(tabela);
        FakeRows linhas{{"carg_" + nome, "nome_" + nome, "tele_" + nome, "emai_" + nome, "data_nasc"}, {}};
        for (int linha = 1; linha <= quantos; ++linha)
            linhas.rows.append({test::text("GERENTE"), test::text(QByteArray("CONTATO " + QByteArray::number(linha))),
                                test::null(), test::text("X@Y.COM"), test::text("25/12")});
        database.answer(u"FROM %1 WHERE"_s.arg(nome), linhas);
    }

    void customerRow() {
        roleRow("CLIE", "IDCLIE",
                {"idtrpt", "data_cred", "reve", "idtipo_clie", "idvend", "idregi_espe_icms", "lime_maxi_conh",
                 "valo_troc", "limi_cred"},
                {test::number(8), test::date(2026, 1, 31), test::text("S"), test::number(3), test::number(9),
                 test::number(2), test::amount(1200), test::amount(98765), test::amount(500000)});
        database.answer(u"TRPT.IDTRPT ="_s, {{"NOME_CONH"}, {{test::text("RAPIDO")}}});
        database.answer(u"VEND.IDVEND ="_s, {{"NOME_CONH"}, {{test::text("ANA")}}});
        database.answer(u"WHERE IDTIPO_CLIE="_s, {{"desc_tipo_clie"}, {{test::text("OURO")}}});
        database.answer(u"WHERE IDREGI_ESPE_ICMS ="_s, {{"desc_regi_espe_icms"}, {{test::text("REGIME")}}});
        database.answer(u"DESC_TIPO_CLIE='OURO'"_s, {{"idtipo_clie"}, {{test::number(3)}}});
        database.answer(u"NOME_CONH='RAPIDO'"_s, {{"idtrpt"}, {{test::number(8)}}});
        database.answer(u"NOME_CONH='ANA'"_s, {{"idvend"}, {{test::number(9)}}});
        database.answer(u"DESC_REGI_ESPE_ICMS = 'REGIME'"_s, {{"idregi_espe_icms"}, {{test::number(2)}}});
    }
};

TEST_F(RoleAlteration, CustomerLoadsAndSaves) {
    customerRow();
    contactRows("CLIE_CONT", 1);
    generator("GEN_CLIE_CONT", 41);
    const QStringList comandos = alter("frmCliente", [&] {
        EXPECT_EQ(textOf("cboTransportadora"), u"RAPIDO");
        EXPECT_EQ(textOf("mskDtCredencial"), u"31/01/2026");
        EXPECT_EQ(textOf("cboRevenda"), u"Sim");
        EXPECT_EQ(textOf("cboTipoCli"), u"OURO");
        EXPECT_EQ(textOf("cboVendedor"), u"ANA");
        EXPECT_EQ(textOf("cboRegimeEspecialICMS"), u"REGIME");
        EXPECT_EQ(textOf("txtLimeMaxiConh"), u"12");
        EXPECT_EQ(textOf("lblValoTroc"), u"987,65");
        EXPECT_EQ(textOf("txtLimiCred"), u"5000,00") << "shown when the alteration begins";
        type("txtLimiCred", "2000");
    });
    EXPECT_EQ(
        comandos,
        (QStringList{"SELECT IDTIPO_CLIE FROM TIPO_CLIE WHERE DESC_TIPO_CLIE='OURO'",
                     "SELECT TRPT.IDTRPT FROM TRPT, PESS WHERE PESS.IDPESS = TRPT.IDPESS AND PESS.NOME_CONH='RAPIDO'",
                     "SELECT VEND.IDVEND FROM VEND, PESS WHERE PESS.IDPESS = VEND.IDPESS AND PESS.NOME_CONH='ANA'",
                     "SELECT IDREGI_ESPE_ICMS FROM REGI_ESPE_ICMS WHERE DESC_REGI_ESPE_ICMS = 'REGIME'",
                     "UPDATE CLIE SET REVE='S', IDTIPO_CLIE='3', IDTRPT='8', IDVEND='9', LIME_MAXI_CONH = '12', "
                     "IDREGI_ESPE_ICMS='2', DATA_CRED='20260131', LIMI_CRED='2000.00' WHERE (IDCLIE=31)",
                     "DELETE FROM CLIE_CONT WHERE (IDCLIE=31)", GeneratorRead("GEN_CLIE_CONT"),
                     "INSERT INTO CLIE_CONT (IDCLIE_CONT, IDCLIE, CARG_CLIE_CONT, NOME_CLIE_CONT, EMAI_CLIE_CONT, "
                     "DATA_NASC, DATA_INCL, USER_INCL) VALUES ('41', '31', 'GERENTE', 'CONTATO 1', 'X@Y.COM', '25/12', "
                     "'20261120', '7')"}));
    EXPECT_EQ(grid().Rows(), 2) << "a reload shows each contact once";
}

TEST_F(RoleAlteration, CustomerWithNothingUsesZeroAndNull) {
    roleRow("CLIE", "IDCLIE",
            {"idtrpt", "data_cred", "reve", "idtipo_clie", "idvend", "idregi_espe_icms", "lime_maxi_conh", "valo_troc",
             "limi_cred"},
            {test::null(), test::null(), test::null(), test::number(0), test::number(0), test::null(), test::null(),
             test::null(), test::null()});
    const QStringList comandos = alter("frmCliente", [&] {
        EXPECT_EQ(textOf("cboRevenda"), u"Não");
        EXPECT_EQ(textOf("txtLimeMaxiConh"), u"0");
        EXPECT_EQ(textOf("lblValoTroc"), u"0");
        EXPECT_EQ(textOf("mskDtCredencial"), u"__/__/____");
        type("txtLimeMaxiConh", "");
        type("txtLimiCred", "10");
    });
    EXPECT_EQ(comandos,
              (QStringList{"UPDATE CLIE SET REVE='N', IDTIPO_CLIE=0, IDTRPT=NULL, IDVEND=NULL, LIME_MAXI_CONH = '0', "
                           "IDREGI_ESPE_ICMS=NULL, DATA_CRED=NULL, LIMI_CRED='10.00' WHERE (IDCLIE=31)",
                           "DELETE FROM CLIE_CONT WHERE (IDCLIE=31)"}));
}

TEST_F(RoleAlteration, SupplierLoadsAndSaves) {
    roleRow("FORN", "IDFORN", {"data_cred", "limi_copr", "desconto_forn"},
            {test::date(2026, 1, 31), test::amount(150000), test::amount(250)});
    contactRows("FORN_CONT", 2);
    connect(u"MSSQL"_s);
    const QStringList comandos = alter("frmFornecedor", [&] {
        EXPECT_EQ(textOf("txtLimiCred"), u"1500,00");
        EXPECT_EQ(textOf("txtDescontoFornecedor"), u"2,50");
        EXPECT_EQ(grid().Rows(), 3);
        EXPECT_EQ(grid().cell(1, 5), u"25/12");
        user.clickCell(grid(), 1, 2);
        EXPECT_EQ(grid().Rows(), 2);
        EXPECT_EQ(textOf("txtNomeContato"), u"CONTATO 1");
    });
    EXPECT_EQ(comandos,
              (QStringList{"UPDATE FORN SET DATA_CRED='20260131',  LIMI_COPR='1500.00', DESCONTO_FORN='2.50' WHERE "
                           "(IDFORN=31)",
                           "DELETE FROM FORN_CONT WHERE (IDFORN=31)",
                           "INSERT INTO FORN_CONT (IDFORN, CARG_FORN_CONT, NOME_FORN_CONT, EMAI_FORN_CONT, DATA_NASC, "
                           "DATA_INCL, USER_INCL) VALUES ('31', 'GERENTE', 'CONTATO 2', 'X@Y.COM', '25/12', "
                           "'20261120', '7')"}))
        << "a contact left in the entry fields is dropped";
}

TEST_F(RoleAlteration, SupplierWithoutADate) {
    roleRow("FORN", "IDFORN", {"data_cred", "limi_copr", "desconto_forn"}, {test::null(), test::null(), test::null()});
    EXPECT_EQ(alter("frmFornecedor",
                    [&] {
                        EXPECT_EQ(textOf("txtLimiCred"), u"");
                        type("txtLimiCred", "5");
                    }),
              (QStringList{"UPDATE FORN SET DATA_CRED=NULL,  LIMI_COPR='5.00', DESCONTO_FORN='0.00' WHERE (IDFORN=31)",
                           "DELETE FROM FORN_CONT WHERE (IDFORN=31)"}));
}

TEST_F(RoleAlteration, CarrierWithAndWithoutADate) {
    roleRow("TRPT", "IDTRPT", {"data_cred"}, {test::date(2026, 1, 31)});
    EXPECT_EQ(alter("frmTransportadora", [] {}), (QStringList{"UPDATE TRPT SET DATA_CRED='20260131' WHERE (IDTRPT=31)",
                                                              "DELETE FROM TRPT_CONT WHERE (IDTRPT=31)"}));
    EXPECT_EQ(
        alter("frmTransportadora", [&] { type("mskDtCredencial", ""); }),
        (QStringList{"UPDATE TRPT SET DATA_CRED=NULL WHERE (IDTRPT=31)", "DELETE FROM TRPT_CONT WHERE (IDTRPT=31)"}));
}

TEST_F(RoleAlteration, Driver) {
    roleRow("MOTO", "IDMOTO",
            {"data_adms", "cnh0_moto", "pron_moto", "uf00_pron_moto", "pai0_moto", "mae0_moto", "refe_moto"},
            {test::date(2026, 1, 31), test::text("123"), test::null(), test::text("SP"), test::null(),
             test::text("INES"), test::null()});
    EXPECT_EQ(alter("frmMotorista",
                    [&] {
                        EXPECT_EQ(textOf("txtCNH"), u"123");
                        EXPECT_EQ(textOf("cboUF_Emitente"), u"SP");
                        EXPECT_EQ(textOf("txtProntuario"), u"");
                        type("txtRefeMoto", "Avó");
                    }),
              (QStringList{"UPDATE MOTO SET DATA_ADMS='20260131', CNH0_MOTO='123', PRON_MOTO=NULL, "
                           "UF00_PRON_MOTO='SP', PAI0_MOTO=NULL, MAE0_MOTO='INES', REFE_MOTO='AVO' WHERE "
                           "(IDMOTO=31)"}));
}

TEST_F(RoleAlteration, Salesperson) {
    roleRow("VEND", "IDVEND", {"data_adms", "valo_sala", "perc_pool", "perc_coms"},
            {test::null(), test::amount(123450), test::null(), test::amount(200)});
    EXPECT_EQ(alter("frmVendedor", [&] { EXPECT_EQ(textOf("txtPercPool"), u""); }),
              (QStringList{"UPDATE VEND SET DATA_ADMS=NULL, VALO_SALA='1234.50', PERC_POOL='0.00', PERC_COMS='2.00' "
                           "WHERE (IDVEND=31)"}));
}

TEST_F(RoleAlteration, ArchitectAndDecorator) {
    struct Caso {
        const char* tela;
        const char* tabela;
        const char* chave;
        const char* coluna;
    };
    database.answer(u"FROM BANC WHERE IDBANC=4"_s, {{"nome_banc"}, {{test::text("ITAU")}}});
    database.answer(u"NOME_BANC='ITAU'"_s, {{"idbanc"}, {{test::number(4)}}});
    for (const Caso& caso :
         {Caso{"frmArquiteto", "ARQT", "IDARQT", "ARQT_CREA"}, Caso{"frmDecorador", "DECO", "IDDECO", "DECO_ADD0"}}) {
        const QString tabela = QString::fromLatin1(caso.tabela);
        roleRow(caso.tabela, caso.chave,
                {"data_cred", "valo_sala", "perc_pool", "perc_coms", caso.coluna, "idbanc", "banc_agen", "banc_cont"},
                {test::date(2026, 2, 1), test::amount(100000), test::null(), test::amount(300), test::text("A-77"),
                 test::number(4), test::text("0123"), test::null()});
        EXPECT_EQ(alter(caso.tela,
                        [&] {
                            EXPECT_EQ(textOf("txtPercPool"), u"0");
                            EXPECT_EQ(textOf("cboBancoCartao"), u"ITAU");
                        }),
                  (QStringList{
                      "SELECT IDBANC FROM BANC WHERE NOME_BANC='ITAU'",
                      u"UPDATE %1 SET DATA_CRED='2026/02/01', VALO_SALA='1000.00', "
                      "PERC_POOL='0', %2='A-77', IDBANC='4', BANC_AGEN='0123', "
                      "BANC_CONT=NULL, PERC_COMS='3.00' WHERE (ID%1=31)"_s.arg(tabela, QLatin1StringView(caso.coluna)),
                      u"DELETE FROM %1_CONT WHERE (ID%1=31)"_s.arg(tabela)}));
    }
}

TEST_F(RoleAlteration, SupplierWithoutARowSendsAStatementThatFails) {
    database.fail(u"(IDFORN=)"_s, errorNumber::StatementRefused);
    open("frmFornecedor", [&] {
        click("cmdALTERAR");
        type("txtLimiCred", "1");
        click("cmdSALVAR");
    });
    EXPECT_EQ(transaction(), (QStringList{"UPDATE FORN SET DATA_CRED=NULL,  LIMI_COPR='1.00', DESCONTO_FORN='0' WHERE "
                                          "(IDFORN=0)",
                                          "DELETE FROM FORN_CONT WHERE (IDFORN=)"}));
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
    EXPECT_FALSE(committed());
}

TEST_F(RoleAlteration, AccentsStayWhereTheInstallationKeepsThem) {
    contexto.PreservaAcentos = true;
    roleRow("MOTO", "IDMOTO",
            {"data_adms", "cnh0_moto", "pron_moto", "uf00_pron_moto", "pai0_moto", "mae0_moto", "refe_moto"},
            {test::null(), test::null(), test::null(), test::null(), test::null(), test::null(), test::null()});
    EXPECT_TRUE(alter("frmMotorista", [&] { type("txtRefeMoto", "Avó"); }).first().contains(u"REFE_MOTO='AVÓ'"_s));
}

} // namespace

} // namespace vorta::test

#include "person/HistoricoPessoa.h"
#include "base/Literals.h"

#include "person/PessoasTest.h"

namespace vorta::test {

class HistoricoPessoa : public PessoasTest {
  protected:
    void SetUp() override {
        MontaGradesHistorico(tela);
        LimpaHistorico(tela);
        tela.txtRowID.setText(u"44"_s);
        database.answer(u"FROM CLIE WHERE IDPESS"_s, {{u"IDCLIE"_s}, {{number(5)}}});
        database.answer(u"FROM FORN WHERE IDPESS"_s, {{u"IDFORN"_s}, {{number(6)}}});
        forget();
    }
    void orderRows() {
        database.answer(u"FROM CLIE, PEDI_VEDS"_s, {{u"IDPEDI_VEDS"_s, u"NUME_PEDI"_s, u"DATA_PEDI"_s, u"IDNFF0"_s},
                                                    {{number(10), text("1010"), date(2020, 1, 5), number(77)},
                                                     {number(11), text("1011"), date(2021, 2, 6), null()}}});
        database.answer(u"pedi_veds_deta.idpedi_veds = 10"_s,
                        {{u"QTDE"_s, u"VALO_LIQU"_s}, {{amount(200), amount(1050)}, {number(1), amount(300)}}});
        database.answer(u"FROM PEDI_VEDS_DETA WHERE IDPEDI_VEDS = 10"_s,
                        {{u"IDPROD"_s, u"QTDE"_s}, {{number(1), amount(250)}, {number(2), null()}}});
        database.answer(u"WHERE IDNFF =77"_s, {{u"NUME_NFF"_s}, {{text("000123")}}});
    }
};

TEST_F(HistoricoPessoa, OrdersWithTheirTotalsAndNotes) {
    orderRows();
    CarregaHistoricoPorId(tela);
    ASSERT_EQ(tela.FlexHistClie.Rows(), 3);
    const char16_t* linha[] = {u"10", u"1010", u"05/01/2020", u"24,00", u"2,5", u"000123"};
    for (int coluna = 0; coluna < 6; ++coluna)
        EXPECT_EQ(tela.FlexHistClie.cell(1, coluna), QString::fromUtf16(linha[coluna])) << coluna;
    EXPECT_EQ(tela.FlexHistClie.cell(2, 3), u"0,00");
    EXPECT_EQ(tela.FlexHistClie.cell(2, 5), u"0");
    EXPECT_EQ(tela.lblPrimeiraCompra.text(), u"05/01/2020");
    EXPECT_EQ(tela.lblUltimaCompra.text(), u"06/02/2021");
    EXPECT_EQ(tela.lblQtdeCompras.text(), u"2");
    EXPECT_EQ(tela.lblTotalItensCompras.text(), u"2,5");
    EXPECT_EQ(tela.lblMontanteCompras.text(), u"24,00");
}

TEST_F(HistoricoPessoa, TheStatementsOfTheFiveGrids) {
    CarregaHistoricoPorId(tela);
    EXPECT_EQ(
        database.sent,
        (QStringList{
            "SELECT IDCLIE FROM CLIE WHERE IDPESS = 44 AND DATA_DESA IS NULL",
            "SELECT CLIE.IDCLIE, PEDI_VEDS.IDPEDI_VEDS, PEDI_VEDS.NUME_PEDI, PESS.NOME_CONH, PEDI_VEDS.DATA_PEDI, "
            "PEDI_VEDS.DATA_DESA, PEDI_VEDS.IDNFF0 FROM CLIE, PEDI_VEDS, PESS WHERE CLIE.IDCLIE = PEDI_VEDS.IDCLIE AND "
            "PESS.IDPESS = CLIE.IDPESS AND (PEDI_VEDS.DATA_DESA IS NULL) AND CLIE.IDCLIE = 5 ORDER BY "
            "PEDI_VEDS.DATA_PEDI",
            "SELECT IDCLIE FROM CLIE WHERE IDPESS = 44 AND DATA_DESA IS NULL",
            "SELECT CLIE.IDCLIE, ORCA_VEDS.IDORCA_VEDS, ORCA_VEDS.IDORCA_VEDS, PESS.NOME_CONH, "
            "ORCA_VEDS.DATA_ORCA_VEDS, "
            "ORCA_VEDS.DATA_DESA, ORCA_VEDS.IDCLIE FROM CLIE, ORCA_VEDS, PESS WHERE CLIE.IDCLIE = ORCA_VEDS.IDCLIE AND "
            "PESS.IDPESS = CLIE.IDPESS AND (ORCA_VEDS.DATA_DESA IS NULL) AND CLIE.IDCLIE = 5 ORDER BY "
            "ORCA_VEDS.DATA_ORCA_VEDS",
            "SELECT IDCLIE FROM CLIE WHERE IDPESS = 44 AND DATA_DESA IS NULL",
            "SELECT CLIE.IDCLIE, OS_VEDS.IDOS_VEDS, OS_VEDS.IDOS_VEDS, PESS.NOME_CONH, OS_VEDS.DATA_OS, "
            "OS_VEDS.DATA_DESA "
            "FROM CLIE, OS_VEDS, PESS WHERE CLIE.IDCLIE = OS_VEDS.IDCLIE AND PESS.IDPESS = CLIE.IDPESS AND "
            "(OS_VEDS.DATA_DESA IS NULL) AND CLIE.IDCLIE = 5 ORDER BY OS_VEDS.DATA_OS",
            "SELECT IDFORN FROM FORN WHERE IDPESS = 44 AND DATA_DESA IS NULL",
            "SELECT PEDI_COMP.IDPEDI_COMP, PEDI_COMP.DATA_PEDI_COMP, PEDI_COMP.DATA_PREV_ENTG, "
            "PEDI_COMP.DATA_REAL_ENTG, "
            "PEDI_COMP.OBSE_PEDI_COMP, USEN.NOME_USER, PESS.NOME_PESS, PEDI_COMP.DATA_DESA FROM FORN, PEDI_COMP, PESS, "
            "USEN WHERE FORN.IDFORN = PEDI_COMP.IDFORN AND PESS.IDPESS = FORN.IDPESS AND PEDI_COMP.USER_INCL = "
            "USEN.IDUSEN AND ((PEDI_COMP.DATA_DESA IS NULL)) AND FORN.IDFORN = 6 ORDER BY PEDI_COMP.DATA_PEDI_COMP",
            "SELECT IDFORN FROM FORN WHERE IDPESS = 44 AND DATA_DESA IS NULL",
            "SELECT PEDI_COMP.IDPEDI_COMP, PEDI_COMP.DATA_PEDI_COMP, PEDI_COMP.DATA_PREV_ENTG, "
            "PEDI_COMP.DATA_REAL_ENTG, "
            "PEDI_COMP.OBSE_PEDI_COMP, USEN.NOME_USER, PESS.NOME_PESS, PEDI_COMP.DATA_DESA, PEDI_COMP_DETA.QTDE, "
            "PEDI_COMP_DETA.VALO_UNIT, PEDI_COMP_DETA.VALO_DESC, PEDI_COMP_DETA.VALO_LIQU, "
            "PEDI_COMP_DETA.VALO_TOTA_LIQU, "
            "PEDI_COMP_DETA.DATA_CHEG, PEDI_COMP_DETA.QTDE_CHEG, PROD.CODI_PROD, PROD.DESC_PROD FROM FORN, PEDI_COMP, "
            "PESS, USEN, PEDI_COMP_DETA, PROD WHERE FORN.IDFORN = PEDI_COMP.IDFORN AND PESS.IDPESS = FORN.IDPESS AND "
            "PEDI_COMP.USER_INCL = USEN.IDUSEN AND PEDI_COMP.IDPEDI_COMP = PEDI_COMP_DETA.IDPEDI_COMP AND "
            "PEDI_COMP_DETA.IDPROD = PROD.IDPROD AND ((PEDI_COMP.DATA_DESA IS NULL)) AND FORN.IDFORN = 6 ORDER BY "
            "PEDI_COMP.DATA_PEDI_COMP"}));
    EXPECT_EQ(tela.lblQtdeCompras.text(), u"0");
    EXPECT_EQ(tela.lblMontanteComprasII.text(), u"0,00");
}

TEST_F(HistoricoPessoa, TopAndOrderOfTheOrders) {
    tela.txtVrTOP.setText(u" 10 "_s);
    user.click(tela.opTopDesce);
    forget();
    user.click(tela.cmdReprocessaHistClieI);
    EXPECT_TRUE(database.sent[1].startsWith(u"SELECT TOP 10 CLIE.IDCLIE, "));
    EXPECT_TRUE(database.sent[1].endsWith(u"ORDER BY PEDI_VEDS.DATA_PEDI DESC"));
    tela.txtVrTOP.setText(u"0"_s);
    forget();
    user.click(tela.cmdReprocessaHistClieI);
    EXPECT_TRUE(database.sent[1].startsWith(u"SELECT CLIE.IDCLIE, "));
}

TEST_F(HistoricoPessoa, ReprocessingKeepsTheDatesOfAnEmptySelection) {
    orderRows();
    user.click(tela.cmdReprocessaHistClieI);
    database.answer(u"FROM CLIE, PEDI_VEDS"_s, {});
    user.click(tela.cmdReprocessaHistClieI);
    EXPECT_EQ(tela.FlexHistClie.Rows(), 1);
    EXPECT_EQ(tela.lblQtdeCompras.text(), u"0");
    EXPECT_EQ(tela.lblUltimaCompra.text(), u"06/02/2021");
}

TEST_F(HistoricoPessoa, ATopThatIsNoNumberIsRefused) {
    tela.txtVrTOP.setText(u"dez"_s);
    user.click(tela.cmdReprocessaHistClieI);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
}

TEST_F(HistoricoPessoa, ANullAmountEndsTheProcess) {
    orderRows();
    database.answer(u"pedi_veds_deta.idpedi_veds = 10"_s, {{u"QTDE"_s, u"VALO_LIQU"_s}, {{number(1), null()}}});
    user.click(tela.cmdReprocessaHistClieI);
    EXPECT_EQ(failure(), errorNumber::InvalidNull);
}

TEST_F(HistoricoPessoa, ItemsOfPurchasesByProduct) {
    database.answer(u"PEDI_COMP_DETA, PROD"_s,
                    {{u"IDPEDI_COMP"_s, u"DATA_PEDI_COMP"_s, u"CODI_PROD"_s, u"DESC_PROD"_s, u"VALO_UNIT"_s,
                      u"VALO_DESC"_s, u"VALO_LIQU"_s, u"QTDE"_s, u"DATA_CHEG"_s, u"QTDE_CHEG"_s},
                     {{number(3), date(2020, 5, 1), text("P1"), text("PARAFUSO"), amount(1000), amount(100),
                       amount(900), number(4), null(), null()}}});
    tela.cboProduto.setText(u" P1 "_s);
    user.click(tela.cmdPesquisar_Produto);
    EXPECT_TRUE(database.sent[1].contains(u"AND FORN.IDFORN = 6 AND PROD.CODI_PROD = 'P1' ORDER BY"));
    ASSERT_EQ(tela.FlexHistFornDeta.Rows(), 2);
    const char16_t* linha[] = {u"3",    u"3",    u"01/05/2020", u"P1",    u"PARAFUSO", u"10,00",
                               u"1,00", u"9,00", u"4",          u"36,00", u"",         u""};
    for (int coluna = 0; coluna < 12; ++coluna)
        EXPECT_EQ(tela.FlexHistFornDeta.cell(1, coluna), QString::fromUtf16(linha[coluna])) << coluna;
    tela.txtRowID.setText({});
    forget();
    user.click(tela.cmdPesquisar_Produto);
    EXPECT_TRUE(database.sent.isEmpty());
}

TEST_F(HistoricoPessoa, TheProductListGivesTheCode) {
    database.answer(u"FROM PROD"_s,
                    {{u"DESC_PROD"_s, u"CODI_PROD"_s, u"IDPROD"_s}, {{text("PARAFUSO"), text("P1"), number(9)}}});
    user.dropDown(tela.cboProduto);
    EXPECT_EQ(tela.cboProduto.dropWidth(), 720);
    ASSERT_EQ(tela.cboProduto.items().size(), 1);
    user.pick(tela.cboProduto, 0);
    EXPECT_EQ(tela.cboProduto.text(), u"P1");
}

TEST_F(HistoricoPessoa, TheLabelsFollowTheOrderOfTheRows) {
    orderRows();
    database.answer(u"ORDER BY PEDI_VEDS.DATA_PEDI DESC"_s,
                    {{u"IDPEDI_VEDS"_s, u"NUME_PEDI"_s, u"DATA_PEDI"_s, u"IDNFF0"_s},
                     {{number(11), null(), date(2021, 2, 6), null()}, {number(12), text("1012"), null(), number(99)}}});
    user.click(tela.opTopDesce);
    user.click(tela.cmdReprocessaHistClieI);
    ASSERT_EQ(tela.FlexHistClie.Rows(), 3);
    EXPECT_EQ(tela.lblPrimeiraCompra.text(), u"06/02/2021");
    EXPECT_EQ(tela.lblUltimaCompra.text(), u"") << "an order without a date counts as the last one";
    EXPECT_EQ(tela.FlexHistClie.cell(1, 1), u"") << "an order without a number";
    EXPECT_EQ(tela.FlexHistClie.cell(2, 5), u"0") << "a note that is gone";
}

TEST_F(HistoricoPessoa, PurchasesWithTheirStatistics) {
    database.answer(
        u"FROM FORN, PEDI_COMP, PESS, USEN WHERE"_s,
        {{u"IDPEDI_COMP"_s, u"DATA_PEDI_COMP"_s}, {{number(3), date(2020, 5, 1)}, {number(4), date(2020, 6, 1)}}});
    database.answer(u"pedi_comp_deta.idpedi_comp = 4"_s, {{u"QTDE"_s, u"VALO_LIQU"_s}, {{number(3), amount(250)}}});
    database.answer(u"FROM PEDI_COMP_DETA WHERE IDPEDI_COMP = 4"_s,
                    {{u"IDPROD"_s, u"QTDE"_s}, {{number(1), number(3)}, {number(2), null()}}});
    CarregaHistoricoPorId(tela);
    ASSERT_EQ(tela.FlexHistForn.Rows(), 3);
    const char16_t* linha[] = {u"4", u"4", u"01/06/2020", u"7,50", u"3"};
    for (int coluna = 0; coluna < 5; ++coluna)
        EXPECT_EQ(tela.FlexHistForn.cell(2, coluna), QString::fromUtf16(linha[coluna])) << coluna;
    EXPECT_EQ(tela.lblPrimeiraCompraForn.text(), u"01/05/2020");
    EXPECT_EQ(tela.lblUltimaCompraForn.text(), u"01/06/2020");
    EXPECT_EQ(tela.lblQtdeComprasForn.text(), u"2");
    EXPECT_EQ(tela.lblTotalItensComprasForn.text(), u"3");
    EXPECT_EQ(tela.lblMontanteComprasForn.text(), u"7,50");
}

TEST_F(HistoricoPessoa, TheExternalCodeBringsOrdersAndPurchasesOnly) {
    CarregaHistoricoPorCodigoExterno(tela);
    ASSERT_EQ(database.sent.size(), 4) << "two role lookups, the orders, the purchases";
    EXPECT_TRUE(database.sent[1].contains(u"FROM CLIE, PEDI_VEDS, PESS"));
    EXPECT_TRUE(database.sent[3].contains(u"FROM FORN, PEDI_COMP, PESS, USEN WHERE"));
}

TEST_F(HistoricoPessoa, ClearingEmptiesTheStatistics) {
    for (const char* rotulo : {"lblPrimeiraCompra", "lblUltimaCompraForn", "lblQtdeCompras", "lblTotalItensComprasForn",
                               "lblMontanteCompras", "lblQtdeComprasOS", "lblMontanteComprasOS", "lblPrimeiraCompraII",
                               "lblMontanteComprasII"})
        tela.field(QString::fromLatin1(rotulo)).setText(u"x"_s);
    LimpaHistorico(tela);
    const std::pair<const char*, const char16_t*> rotulos[] = {
        {"lblPrimeiraCompra", u""},         {"lblUltimaCompraForn", u""},    {"lblQtdeCompras", u"0"},
        {"lblTotalItensComprasForn", u"0"}, {"lblMontanteCompras", u"0,00"}, {"lblQtdeComprasOS", u""},
        {"lblMontanteComprasOS", u""},      {"lblPrimeiraCompraII", u""},    {"lblMontanteComprasII", u""}};
    for (const auto& [rotulo, esperado] : rotulos)
        EXPECT_EQ(textOf(rotulo), QString::fromUtf16(esperado)) << rotulo;
}

} // namespace vorta::test

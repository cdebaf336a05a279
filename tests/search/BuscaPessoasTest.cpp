#include "search/BuscaTest.h"

#include "base/RuntimeError.h"

namespace vorta::test {

namespace {

using Tela = frmBROWSE_PESSOAS;

const QStringList colunas{u"IDPESS"_qs,    u"NOME_PESS"_qs,      u"NOME_CONH"_qs, u"CPF0_CNPJ"_qs, u"TELE_0001_PESS"_qs,
                          u"DATA_DESA"_qs, u"PESS_CODI_EXTE"_qs, u"IDCLIE"_qs,    u"IDFORN"_qs,    u"IDVEND"_qs,
                          u"IDDECO"_qs,    u"IDARQT"_qs,         u"IDMOTO"_qs,    u"IDTRPT"_qs};

QList<data::Value> pessoa(qint64 id, const char* nome, data::Value clie = {}) {
    return {number(id),      text(nome), text("CONHECIDO"), text("111.222.333-44"),
            text("11 3333"), null(),     text("EXT"),       clie,
            null(),          null(),     number(0),         null(),
            null(),          null()};
}

} // namespace

class BuscaPessoasTest : public BuscaTest {
  protected:
    void responde(const QList<QList<data::Value>>& linhas) {
        database.answer(u"FROM PESS WHERE"_qs, {colunas, linhas});
    }

    void abreBusca(const std::function<void(Tela&)>& faz) { abre<Tela>("frmBROWSE_PESSOAS", faz); }
};

TEST_F(BuscaPessoasTest, FirstOpeningShowsHeadersOnly) {
    abreBusca([&](Tela& tela) {
        EXPECT_EQ(database.sent, (QStringList{u"SELECT * FROM EMPR_CNFG WHERE NOME_PARA='COR_PADRAO'"_qs,
                                              u"SELECT * FROM COR_SIST WHERE DESC_COR_SIST = ''"_qs}));
        EXPECT_EQ(tela.caption(), u"ERP VORTA - Nexoria - Release 2015.07.24"_qs);
        EXPECT_EQ(tela.Label2.text(), u"Pesquisa de Pessoas"_qs);
        EXPECT_TRUE(tela.opNome.value() && tela.opTodos.value() && tela.opQualquerParte.value());
        EXPECT_EQ(tela.Flex.Rows(), 1);
        EXPECT_EQ(linhaDo(tela.Flex, 0),
                  (QStringList{u"IDPESSOA"_qs, u"CGC/CPF"_qs, u"Razão Social"_qs, u"Nome Fantasia"_qs, u"Fone"_qs,
                               u"DT Desativa"_qs, u"ID DO PAPEL"_qs, u"Cod. Externo"_qs, u"idClie"_qs, u"idForn"_qs}));
        EXPECT_EQ(tela.Flex.columns()[6].width, 0);
        EXPECT_EQ(tela.background(), screen::colour::ButtonFace);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(BuscaPessoasTest, PaintsItselfByTheSchemeOfTheCompany) {
    database.answer(u"'COR_PADRAO'"_qs, {{u"nome_para"_qs, u"valo_para"_qs}, {{text("COR_PADRAO"), text("AZUL")}}});
    database.answer(u"DESC_COR_SIST = 'AZUL'"_qs,
                    {{u"CODI_BACK_0001"_qs, u"CODI_FORE_0001"_qs, u"CODI_BACK_0002"_qs, u"CODI_FORE_0002"_qs},
                     {{text("16711680"), text("255"), text("1"), text("2")}}});
    abreBusca([&](Tela& tela) {
        EXPECT_EQ(tela.background(), 16711680);
        EXPECT_EQ(tela.Label2.foreground(), 255);
        EXPECT_EQ(tela.cmdPesquisa.background(), 16711680);
        EXPECT_EQ(tela.cmdPesquisa.foreground(), screen::colour::WindowText);
        EXPECT_EQ(tela.chkVisualiza.background(), 16711680);
        EXPECT_EQ(tela.opNome.background(), 16711680);
        EXPECT_EQ(tela.cboCod.background(), screen::colour::Free) << "a list field is left as it is";
    });
}

TEST_F(BuscaPessoasTest, NothingFoundTellsSoAndGoesBackToTheText) {
    abreBusca([&](Tela& tela) {
        user.type(tela.cboCod, u"ninguém"_qs);
        user.click(tela.cmdPesquisa);
        ASSERT_EQ(platform.boxes.size(), 1u);
        EXPECT_EQ(platform.boxes[0].text, u"Nenhum Registro Localizado com esses parâmetros..."_qs);
        EXPECT_EQ(platform.boxes[0].title, QString());
        EXPECT_EQ(platform.boxes[0].icon, screen::Icon::None);
        EXPECT_EQ(tela.focus(), &tela.cboCod);
        EXPECT_EQ(tela.Flex.Rows(), 1);
        EXPECT_EQ(tela.cboCod.text(), u"NINGUÉM"_qs);
        EXPECT_EQ(tela.pointer(), screen::Pointer::Default);
    });
}

TEST_F(BuscaPessoasTest, RowsAndNulls) {
    responde({{number(7), text("MARIA"), null(), null(), null(), date(2026, 2, 3), null(), null(), null(), null(),
               null(), null(), null(), null()}});
    abreBusca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(linhaDo(tela.Flex, 1),
                  (QStringList{u"7"_qs, {}, u"MARIA"_qs, {}, {}, u"03/02/2026"_qs, {}, {}, {}, {}}));
        EXPECT_EQ(tela.Flex.Row(), 1) << "a single result stays the current row";
        EXPECT_EQ(platform.progressed.back(), (std::pair<qint64, qint64>(0, 0)));
    });
}

TEST_F(BuscaPessoasTest, SeveralRowsLeaveNoRowCurrent) {
    responde({pessoa(1, "A"), pessoa(2, "B")});
    abreBusca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.Flex.Rows(), 3);
        EXPECT_EQ(tela.Flex.Row(), 0);
        EXPECT_EQ(
            linhaDo(tela.Flex, 2),
            (QStringList{
                u"2"_qs, u"111.222.333-44"_qs, u"B"_qs, u"CONHECIDO"_qs, u"11 3333"_qs, {}, {}, u"EXT"_qs, {}, {}}));
    });
}

struct CasoPapel {
    const char* opcao;
    const char* consulta; ///< the lookup for person 1
    const char* coluna;
    int vezes; ///< lookups for a row that passes
};

TEST_F(BuscaPessoasTest, RoleFilterRowByRow) {
    const CasoPapel casos[]{
        {"opCliente", "SELECT IDCLIE FROM CLIE WHERE IDPESS = 1", "idclie", 2},
        {"opFornecedor", "SELECT IDFORN FROM FORN WHERE IDPESS = 1", "idforn", 2},
        {"opTransportadora", "SELECT IDTRPT FROM TRPT WHERE IDPESS = 1", "idtrpt", 1},
        {"opVendedor", "SELECT IDVEND FROM VEND WHERE IDPESS = 1", "idvend", 1},
        {"opMotorista", "SELECT IDMOTO FROM MOTO WHERE IDPESS = 1", "idmoto", 1},
        {"opDecorador", "SELECT IDDECO FROM DECO WHERE IDPESS = 1", "iddeco", 1},
        {"opArquiteto", "SELECT IDARQT FROM ARQT WHERE IDPESS = 1", "idarqt", 1},
    };
    responde({pessoa(1, "COM"), pessoa(2, "SEM")});
    for (const CasoPapel& caso : casos)
        database.answer(QString::fromLatin1(caso.consulta), {{QString::fromLatin1(caso.coluna)}, {{number(91)}}});
    abreBusca([&](Tela& tela) {
        for (const CasoPapel& caso : casos) {
            SCOPED_TRACE(caso.opcao);
            static_cast<screen::Option&>(tela.field(QString::fromLatin1(caso.opcao))).setValue(true);
            esquece();
            user.click(tela.cmdPesquisa);
            ASSERT_EQ(tela.Flex.Rows(), 2);
            EXPECT_EQ(tela.Flex.cell(1, 0), u"1"_qs);
            EXPECT_EQ(tela.Flex.cell(1, 6), u"91"_qs);
            EXPECT_EQ(tela.Flex.cell(1, 8), caso.vezes == 2 ? u"91"_qs : QString());
            EXPECT_EQ(tela.Flex.cell(1, 9), QString());
            EXPECT_EQ(database.sent.count(QString::fromLatin1(caso.consulta) + u" AND DATA_DESA IS NULL"_qs),
                      caso.vezes);
            EXPECT_EQ(database.sent.size(), 1 + caso.vezes + 1) << "one lookup for the row that is skipped";
        }
        // Deactivated persons bring deactivated links along.
        tela.opVendedor.setValue(true);
        esquece();
        tela.chkVisualiza.setChecked(true);
        EXPECT_EQ(database.sent, (QStringList{u"SELECT * FROM PESS WHERE (NOT DATA_DESA IS NULL) ORDER BY NOME_PESS"_qs,
                                              u"SELECT IDVEND FROM VEND WHERE IDPESS = 1"_qs,
                                              u"SELECT IDVEND FROM VEND WHERE IDPESS = 2"_qs}));
    });
}

TEST_F(BuscaPessoasTest, ProspectHasNoLinkOfItsOwnRow) {
    responde({pessoa(1, "CLIENTE", number(5)), pessoa(2, "PROSPECT"), pessoa(3, "ZERO", number(0))});
    database.answer(u"FROM CLIE WHERE IDPESS = 2"_qs, {{u"idclie"_qs}, {{number(44)}}});
    abreBusca([&](Tela& tela) {
        tela.opProspect.setValue(true);
        esquece();
        user.click(tela.cmdPesquisa);
        ASSERT_EQ(tela.Flex.Rows(), 3);
        EXPECT_EQ(tela.Flex.cell(1, 0), u"2"_qs);
        EXPECT_EQ(tela.Flex.cell(1, 6), u"0"_qs);
        EXPECT_EQ(tela.Flex.cell(1, 8), u"44"_qs);
        EXPECT_EQ(tela.Flex.cell(2, 8), u"0"_qs);
        EXPECT_EQ(enviados("FROM CLIE").size(), 2);
    });
}

TEST_F(BuscaPessoasTest, AllRowsSkippedGivesAnEmptyGridWithoutAMessage) {
    responde({pessoa(1, "A")});
    abreBusca([&](Tela& tela) {
        tela.opMotorista.setValue(true);
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.Flex.Rows(), 1);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(BuscaPessoasTest, BranchSearchFailsAtItsFirstRow) {
    QStringList semExterno = colunas;
    semExterno.removeOne(u"PESS_CODI_EXTE"_qs);
    QList<data::Value> linha = pessoa(1, "A");
    linha.removeAt(6);
    database.answer(u"FROM ATIV, PESS, PESS_ATIV"_qs, {semExterno, {linha}});
    abreBusca([&](Tela& tela) {
        tela.opRamoAtividade.setValue(true);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(falha(), errorNumber::NoSuchColumn);
}

TEST_F(BuscaPessoasTest, BranchSearchWithoutAMatchTellsSo) {
    abreBusca([&](Tela& tela) {
        tela.opRamoAtividade.setValue(true);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(falha(), 0);
    ASSERT_EQ(platform.boxes.size(), 1u);
}

TEST_F(BuscaPessoasTest, OnlyTheBranchSearchFillsTheList) {
    database.answer(u"FROM ATIV WHERE"_qs, {{u"desc_ativ"_qs}, {{text("MOVEIS")}, {text("MODA")}}});
    abreBusca([&](Tela& tela) {
        esquece();
        user.dropDown(tela.cboCod);
        EXPECT_TRUE(database.sent.isEmpty());
        tela.opRamoAtividade.setValue(true);
        tela.cboCod.setText(u" mo "_qs);
        user.dropDown(tela.cboCod);
        EXPECT_EQ(database.sent,
                  QStringList{u"SELECT DESC_ATIV FROM ATIV WHERE DATA_DESA IS NULL AND DESC_ATIV LIKE 'MO%' "
                              "ORDER BY DESC_ATIV"_qs});
        EXPECT_EQ(tela.cboCod.items(), (QStringList{u"MOVEIS"_qs, u"MODA"_qs}));
    });
}

TEST_F(BuscaPessoasTest, EnterMovesOnAndLeavingTheTextPutsItInCapitals) {
    abreBusca([&](Tela& tela) {
        esquece();
        user.type(tela.cboCod, u"joão"_qs);
        user.key(tela.cboCod, screen::Key::Enter);
        EXPECT_EQ(tela.cboCod.text(), u"JOÃO"_qs);
        EXPECT_EQ(tela.focus(), &tela.cmdPesquisa);
        user.key(tela.cmdPesquisa, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.cmdLimpar);
        EXPECT_TRUE(database.sent.isEmpty()) << "Enter on the button moves on and does not search";
    });
}

TEST_F(BuscaPessoasTest, CheckBoxSearchesAtOnce) {
    abreBusca([&](Tela& tela) {
        esquece();
        user.click(tela.chkVisualiza);
        EXPECT_EQ(enviados("(NOT DATA_DESA IS NULL)").size(), 1);
        user.click(tela.chkVisualiza);
        EXPECT_EQ(enviados("WHERE DATA_DESA IS NULL").size(), 1);
    });
}

TEST_F(BuscaPessoasTest, ClearKeepsTheMatchOptionAndTheMemory) {
    responde({pessoa(1, "A")});
    contexto.UltimoPapelBusca = u"opVendedor"_qs;
    abreBusca([&](Tela& tela) {
        tela.opInicialCom.setValue(true);
        tela.opUF.setValue(true);
        tela.cboCod.setText(u"SP"_qs);
        user.click(tela.cmdPesquisa);
        user.click(tela.cmdLimpar);
        EXPECT_EQ(tela.Flex.Rows(), 1);
        EXPECT_TRUE(tela.opNome.value() && tela.opTodos.value() && tela.opInicialCom.value());
        EXPECT_EQ(tela.cboCod.text(), QString());
        EXPECT_EQ(tela.focus(), &tela.cboCod);
        EXPECT_EQ(contexto.UltimoPapelBusca, u"opVendedor"_qs);
    });
}

} // namespace vorta::test

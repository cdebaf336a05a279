#include "base/Literals.h"
#include "search/BuscaTest.h"

#include "base/RuntimeError.h"

namespace vorta::test {

namespace {

using Tela = frmBROWSE_PESSOAS;

const QStringList colunas{u"IDPESS"_s,    u"NOME_PESS"_s,      u"NOME_CONH"_s, u"CPF0_CNPJ"_s, u"TELE_0001_PESS"_s,
                          u"DATA_DESA"_s, u"PESS_CODI_EXTE"_s, u"IDCLIE"_s,    u"IDFORN"_s,    u"IDVEND"_s,
                          u"IDDECO"_s,    u"IDARQT"_s,         u"IDMOTO"_s,    u"IDTRPT"_s};

QList<data::Value> personRow(qint64 id, const char* nome, data::Value clie = {}) {
    return {number(id),      text(nome), text("CONHECIDO"), text("111.222.333-44"),
            text("11 3333"), null(),     text("EXT"),       clie,
            null(),          null(),     number(0),         null(),
            null(),          null()};
}

} // namespace

class BuscaPessoasTest : public BuscaTest {
  protected:
    void answer(const QList<QList<data::Value>>& linhas) { database.answer(u"FROM PESS WHERE"_s, {colunas, linhas}); }

    void openSearch(const std::function<void(Tela&)>& faz) { open<Tela>("frmBROWSE_PESSOAS", faz); }
};

TEST_F(BuscaPessoasTest, FirstOpeningShowsHeadersOnly) {
    openSearch([&](Tela& tela) {
        EXPECT_EQ(database.sent, (QStringList{u"SELECT * FROM EMPR_CNFG WHERE NOME_PARA='COR_PADRAO'"_s,
                                              u"SELECT * FROM COR_SIST WHERE DESC_COR_SIST = ''"_s}));
        EXPECT_EQ(tela.caption(), u"ERP VORTA - Nexoria - Release 2015.07.24"_s);
        EXPECT_EQ(tela.Label2.text(), u"Pesquisa de Pessoas"_s);
        EXPECT_TRUE(tela.opNome.value() && tela.opTodos.value() && tela.opQualquerParte.value());
        EXPECT_EQ(tela.Flex.Rows(), 1);
        EXPECT_EQ(rowOf(tela.Flex, 0),
                  (QStringList{u"IDPESSOA"_s, u"CGC/CPF"_s, u"Razão Social"_s, u"Nome Fantasia"_s, u"Fone"_s,
                               u"DT Desativa"_s, u"ID DO PAPEL"_s, u"Cod. Externo"_s, u"idClie"_s, u"idForn"_s}));
        EXPECT_EQ(tela.Flex.columns()[6].width, 0);
        EXPECT_EQ(tela.background(), screen::colour::ButtonFace);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(BuscaPessoasTest, PaintsItselfByTheSchemeOfTheCompany) {
    database.answer(u"'COR_PADRAO'"_s, {{u"nome_para"_s, u"valo_para"_s}, {{text("COR_PADRAO"), text("AZUL")}}});
    database.answer(u"DESC_COR_SIST = 'AZUL'"_s,
                    {{u"CODI_BACK_0001"_s, u"CODI_FORE_0001"_s, u"CODI_BACK_0002"_s, u"CODI_FORE_0002"_s},
                     {{text("16711680"), text("255"), text("1"), text("2")}}});
    openSearch([&](Tela& tela) {
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
    openSearch([&](Tela& tela) {
        user.type(tela.cboCod, u"ninguém"_s);
        user.click(tela.cmdPesquisa);
        ASSERT_EQ(platform.boxes.size(), 1u);
        EXPECT_EQ(platform.boxes[0].text, nothingFound);
        EXPECT_EQ(platform.boxes[0].title, QString());
        EXPECT_EQ(platform.boxes[0].icon, screen::Icon::None);
        EXPECT_EQ(tela.focus(), &tela.cboCod);
        EXPECT_EQ(tela.Flex.Rows(), 1);
        EXPECT_EQ(tela.cboCod.text(), u"NINGUÉM"_s);
        EXPECT_EQ(tela.pointer(), screen::Pointer::Default);
    });
}

TEST_F(BuscaPessoasTest, RowsAndNulls) {
    answer({{number(7), text("MARIA"), null(), null(), null(), date(2026, 2, 3), null(), null(), null(), null(), null(),
             null(), null(), null()}});
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(rowOf(tela.Flex, 1), (QStringList{u"7"_s, {}, u"MARIA"_s, {}, {}, u"03/02/2026"_s, {}, {}, {}, {}}));
        EXPECT_EQ(tela.Flex.Row(), 1) << "a single result stays the current row";
        EXPECT_EQ(platform.progressed, (std::vector<std::pair<qint64, qint64>>{{0, 1}, {0, 0}}));
    });
}

TEST_F(BuscaPessoasTest, TheBarMovesWhileTheEngineLooksForPersonsAndEndsWithoutOne) {
    openSearch([&](Tela& tela) {
        Thinking thinking(database);
        platform.whenProgressed = [&] { thinking.end(); };
        user.click(tela.cmdPesquisa);
        EXPECT_TRUE(thinking.wasEnded());
        ASSERT_FALSE(platform.heardOfReads.empty());
        EXPECT_EQ(platform.heardOfReads.front(), 0);
        EXPECT_EQ(platform.progressed, (std::vector<std::pair<qint64, qint64>>{{0, 0}}));
        EXPECT_EQ(platform.boxes.front().text, u"Nenhum Registro Localizado com esses parâmetros..."_s);
    });
}

TEST_F(BuscaPessoasTest, SeveralRowsLeaveNoRowCurrent) {
    answer({personRow(1, "A"), personRow(2, "B")});
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.Flex.Rows(), 3);
        EXPECT_EQ(tela.Flex.Row(), 0);
        EXPECT_EQ(
            rowOf(tela.Flex, 2),
            (QStringList{u"2"_s, u"111.222.333-44"_s, u"B"_s, u"CONHECIDO"_s, u"11 3333"_s, {}, {}, u"EXT"_s, {}, {}}));
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
    answer({personRow(1, "COM"), personRow(2, "SEM")});
    for (const CasoPapel& caso : casos)
        database.answer(QString::fromLatin1(caso.consulta), {{QString::fromLatin1(caso.coluna)}, {{number(91)}}});
    openSearch([&](Tela& tela) {
        for (const CasoPapel& caso : casos) {
            SCOPED_TRACE(caso.opcao);
            static_cast<screen::Option&>(tela.field(QString::fromLatin1(caso.opcao))).setValue(true);
            forget();
            user.click(tela.cmdPesquisa);
            ASSERT_EQ(tela.Flex.Rows(), 2);
            EXPECT_EQ(tela.Flex.cell(1, 0), u"1"_s);
            EXPECT_EQ(tela.Flex.cell(1, 6), u"91"_s);
            EXPECT_EQ(tela.Flex.cell(1, 8), caso.vezes == 2 ? u"91"_s : QString());
            EXPECT_EQ(tela.Flex.cell(1, 9), QString());
            EXPECT_EQ(database.sent.count(QString::fromLatin1(caso.consulta) + u" AND DATA_DESA IS NULL"_s),
                      caso.vezes);
            EXPECT_EQ(database.sent.size(), 1 + caso.vezes + 1) << "one lookup for the row that is skipped";
        }
        // Deactivated persons bring deactivated links along.
        tela.opVendedor.setValue(true);
        forget();
        tela.chkVisualiza.setChecked(true);
        EXPECT_EQ(database.sent, (QStringList{u"SELECT * FROM PESS WHERE (NOT DATA_DESA IS NULL) ORDER BY NOME_PESS"_s,
                                              u"SELECT IDVEND FROM VEND WHERE IDPESS = 1"_s,
                                              u"SELECT IDVEND FROM VEND WHERE IDPESS = 2"_s}));
    });
}

TEST_F(BuscaPessoasTest, ProspectHasNoLinkOfItsOwnRow) {
    answer({personRow(1, "CLIENTE", number(5)), personRow(2, "PROSPECT"), personRow(3, "ZERO", number(0))});
    database.answer(u"FROM CLIE WHERE IDPESS = 2"_s, {{u"idclie"_s}, {{number(44)}}});
    openSearch([&](Tela& tela) {
        tela.opProspect.setValue(true);
        forget();
        user.click(tela.cmdPesquisa);
        ASSERT_EQ(tela.Flex.Rows(), 3);
        EXPECT_EQ(tela.Flex.cell(1, 0), u"2"_s);
        EXPECT_EQ(tela.Flex.cell(1, 6), u"0"_s);
        EXPECT_EQ(tela.Flex.cell(1, 8), u"44"_s);
        EXPECT_EQ(tela.Flex.cell(2, 8), u"0"_s);
        EXPECT_EQ(sentWith("FROM CLIE").size(), 2);
    });
}

TEST_F(BuscaPessoasTest, AllRowsSkippedGivesAnEmptyGridWithoutAMessage) {
    answer({personRow(1, "A")});
    openSearch([&](Tela& tela) {
        tela.opMotorista.setValue(true);
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.Flex.Rows(), 1);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(BuscaPessoasTest, BranchSearchFailsAtItsFirstRow) {
    QStringList semExterno = colunas;
    semExterno.removeOne(u"PESS_CODI_EXTE"_s);
    QList<data::Value> linha = personRow(1, "A");
    linha.removeAt(6);
    database.answer(u"FROM ATIV, PESS, PESS_ATIV"_s, {semExterno, {linha}});
    openSearch([&](Tela& tela) {
        tela.opRamoAtividade.setValue(true);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(failure(), errorNumber::NoSuchColumn);
}

TEST_F(BuscaPessoasTest, BranchSearchWithoutAMatchTellsSo) {
    openSearch([&](Tela& tela) {
        tela.opRamoAtividade.setValue(true);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(failure(), 0);
    EXPECT_EQ(platform.boxes.news(), QStringList(nothingFound));
}

TEST_F(BuscaPessoasTest, OnlyTheBranchSearchFillsTheList) {
    database.answer(u"FROM ATIV WHERE"_s, {{u"desc_ativ"_s}, {{text("MOVEIS")}, {text("MODA")}}});
    openSearch([&](Tela& tela) {
        forget();
        user.dropDown(tela.cboCod);
        EXPECT_TRUE(database.sent.isEmpty());
        tela.opRamoAtividade.setValue(true);
        tela.cboCod.setText(u" mo "_s);
        user.dropDown(tela.cboCod);
        EXPECT_EQ(database.sent,
                  QStringList{u"SELECT DESC_ATIV FROM ATIV WHERE DATA_DESA IS NULL AND DESC_ATIV LIKE 'MO%' "
                              "ORDER BY DESC_ATIV"_s});
        EXPECT_EQ(tela.cboCod.items(), (QStringList{u"MOVEIS"_s, u"MODA"_s}));
    });
}

TEST_F(BuscaPessoasTest, EnterMovesOnAndLeavingTheTextPutsItInCapitals) {
    openSearch([&](Tela& tela) {
        forget();
        user.type(tela.cboCod, u"joão"_s);
        user.key(tela.cboCod, screen::Key::Enter);
        EXPECT_EQ(tela.cboCod.text(), u"JOÃO"_s);
        EXPECT_EQ(tela.focus(), &tela.cmdPesquisa);
        user.key(tela.cmdPesquisa, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.Flex);
        EXPECT_TRUE(database.sent.isEmpty()) << "Enter on the button moves on and does not search";
    });
}

TEST_F(BuscaPessoasTest, CheckBoxSearchesAtOnce) {
    openSearch([&](Tela& tela) {
        forget();
        user.click(tela.chkVisualiza);
        EXPECT_EQ(sentWith("(NOT DATA_DESA IS NULL)").size(), 1);
        user.click(tela.chkVisualiza);
        EXPECT_EQ(sentWith("WHERE DATA_DESA IS NULL").size(), 1);
    });
    EXPECT_EQ(platform.boxes.news(), (QStringList{nothingFound, nothingFound}));
}

TEST_F(BuscaPessoasTest, ClearKeepsTheMatchOptionAndTheMemory) {
    answer({personRow(1, "A")});
    contexto.UltimoPapelBusca = u"opVendedor"_s;
    openSearch([&](Tela& tela) {
        tela.opInicialCom.setValue(true);
        tela.opUF.setValue(true);
        tela.cboCod.setText(u"SP"_s);
        user.click(tela.cmdPesquisa);
        user.click(tela.cmdLimpar);
        EXPECT_EQ(tela.Flex.Rows(), 1);
        EXPECT_TRUE(tela.opNome.value() && tela.opTodos.value() && tela.opInicialCom.value());
        EXPECT_EQ(tela.cboCod.text(), QString());
        EXPECT_EQ(tela.focus(), &tela.cboCod);
        EXPECT_EQ(contexto.UltimoPapelBusca, u"opVendedor"_s);
    });
}

} // namespace vorta::test

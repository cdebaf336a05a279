#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "search/BuscaTest.h"
#include "search/frmBROWSE_PRODUTO.h"

namespace vorta::test {

namespace {

using Tela = frmBROWSE_PRODUTO;

/// Any screen of another program that opens the product search: all fields that the contract writes.
class TelaDeFora : public screen::Screen {
  public:
    TelaDeFora(ContextoExecucao& contexto, const QString& nome) : Screen(contexto.program(), nome) {}
    screen::TextField txtOutro{this, "txtOutro"};
    screen::ListField cboProduto{this, "cboProduto"};
    screen::TextField txtCodProduto{this, "txtCodProduto"};
    screen::TextField txtRowID{this, "txtRowID"};
    screen::TextField txtCodigo{this, "txtCodigo"};
    screen::TextField txtidProdProt{this, "txtidProdProt"};
    screen::Label lblDescricao{this, "lblDescricao"};
    screen::MaskedField mskDtmovto{this, "mskDtmovto", u"##/##/####"_s};
};

const QString cabeca =
    u"SELECT PROD.IDPROD, PROD.CODI_PROD, PROD.DESC_PROD, PROD.DATA_DESA, PROD.IDTIPO_PROD, PROD.CODI_REFE_PROD, "
    "PROD_EMPR.QTDE_DISP, PROD_EMPR.VALO_VEDS, PROD_EMPR.VALO_VEDS_B, PROD_EMPR.VALO_VEDS_C, "
    "PROD_EMPR.LOCA_FISI_ARMAZEM, PROD_EMPR.LOCA_FISI_PAVIMENTO, PROD_EMPR.LOCA_FISI_SETOR, "
    "PROD_EMPR.LOCA_FISI_CORREDOR, PROD_EMPR.LOCA_FISI_ESTANTE, PROD_EMPR.LOCA_FISI_PRATELEIRA, "
    "TIPO_PROD.DESC_TIPO_PROD FROM PROD, PROD_EMPR, TIPO_PROD "
    "WHERE PROD.IDPROD = PROD_EMPR.IDPROD AND PROD.IDTIPO_PROD = TIPO_PROD.IDTIPO_PROD "
    "AND PROD_EMPR.CODI_EMPR = '0001' "_s;
const QString ativos = u"AND PROD.DATA_DESA IS NULL "_s;

const QStringList colunas{
    u"IDPROD"_s,          u"CODI_PROD"_s,          u"DESC_PROD"_s,         u"DATA_DESA"_s,
    u"IDTIPO_PROD"_s,     u"CODI_REFE_PROD"_s,     u"QTDE_DISP"_s,         u"VALO_VEDS"_s,
    u"VALO_VEDS_B"_s,     u"VALO_VEDS_C"_s,        u"LOCA_FISI_ARMAZEM"_s, u"LOCA_FISI_PAVIMENTO"_s,
    u"LOCA_FISI_SETOR"_s, u"LOCA_FISI_CORREDOR"_s, u"LOCA_FISI_ESTANTE"_s, u"LOCA_FISI_PRATELEIRA"_s,
    u"DESC_TIPO_PROD"_s};

QList<data::Value> productRow(qint64 id, const char* codigo, const char* descricao) {
    return {number(id),   text(codigo),   text(descricao), date(2024, 6, 28), number(1),   text("REF"),
            amount(1250), amount(123450), amount(50),      amount(1000),      text("ARM"), text("PAV"),
            text("SET"),  text("COR"),    text("EST"),     text("PRA"),       text("TIPO")};
}

} // namespace

class BuscaProdutoTest : public BuscaTest {
  protected:
    BuscaProdutoTest() {
        contexto.TelaChamadora.clear();
        contexto.CaminhoImagens = u"/img/"_s;
        contexto.ExtensaoImagens = u".bmp"_s;
        contexto.CaminhoImagensDetalhe = u"/grande/"_s;
        contexto.ExtensaoImagensDetalhe = u".jpg"_s;
        contexto.ImagemSemFoto = u"/img/semfoto.bmp"_s;
        contexto.CaminhoPaginas = u"/paginas/"_s;
        fileExists("/img/semfoto.bmp");
    }

    void fileExists(const char* arquivo) { platform.files[QString::fromLatin1(arquivo)] = {}; }
    void answer(const QList<QList<data::Value>>& linhas) {
        database.answer(u"FROM PROD, PROD_EMPR"_s, {colunas, linhas});
    }
    /// The search as a caller opens it: the company is set once the screen stands.
    void openSearch(const std::function<void(Tela&)>& faz) {
        open<Tela>("frmBROWSE_PRODUTO", [&](Tela& tela) {
            tela.lblCodiEmpresa.setText(u"0001"_s);
            faz(tela);
        });
    }
    screen::Option& option(Tela& tela, const char* nome) {
        return static_cast<screen::Option&>(tela.field(QString::fromLatin1(nome)));
    }
};

TEST_F(BuscaProdutoTest, TheOpeningSearchesNothing) {
    database.answer(u"FROM TIPO_PROD WHERE"_s, {{u"DESC_TIPO_PROD"_s}, {{text("B")}, {text("A")}}});
    openSearch([&](Tela& tela) {
        EXPECT_EQ(database.sent, QStringList(u"SELECT DESC_TIPO_PROD FROM TIPO_PROD WHERE DATA_DESA IS NULL"_s));
        EXPECT_EQ(tela.caption(), ContextoExecucao::Titulo());
        EXPECT_TRUE(tela.Option3.value() && tela.opQQPosicao.value());
        EXPECT_FALSE(tela.Option1.value() || tela.Option2.value() || tela.Option4.value());
        EXPECT_EQ(tela.txtMaxReg.text(), u"100"_s);
        EXPECT_EQ(tela.cboTipoProd.items(), (QStringList{u"B"_s, u"A"_s}));
        EXPECT_EQ(rowOf(tela.Flex, 0),
                  (QStringList{u"ID"_s, u"Código"_s, u"Descrição"_s, u"Est.Fis."_s, u"Est.Disp."_s, u"Est.Ped."_s,
                               u"Vr.Prod.A"_s, u"Vr.Prod.B"_s, u"Vr.Prod.C"_s, u"Armazém"_s, u"Pavimento"_s, u"Setor"_s,
                               u"Corredor"_s, u"Estante"_s, u"Prateleira"_s, u"Tipo Produto"_s, u"Referência"_s,
                               u"DT Desativa"_s}));
        EXPECT_EQ(tela.Flex.columns()[0].width, 0);
        EXPECT_EQ(tela.Flex.Rows(), 1);
    });
}

TEST_F(BuscaProdutoTest, TheStatementOfEveryOption) {
    struct Forma {
        const char* opcao;
        const char16_t* filtro; ///< null: the text counts for nothing
        const char16_t* ordem;
    };
    const Forma formas[]{{"Option1", nullptr, u"ORDER BY PROD.IDPROD"},
                         {"Option2", u" AND PROD.CODI_PROD ", u" ORDER BY PROD.CODI_PROD"},
                         {"Option3", u" AND PROD.DESC_PROD ", u" ORDER BY PROD.DESC_PROD"},
                         {"Option4", u" AND PROD.CODI_REFE_PROD ", u" ORDER BY PROD.CODI_REFE_PROD"}};
    const std::pair<const char*, const char16_t*> comparacoes[]{
        {"opQQPosicao", u"LIKE '% ABC %' "}, {"opExata", u"= ' ABC ' "}, {"opInicialCom", u"LIKE ' ABC %' "}};
    openSearch([&](Tela& tela) {
        for (const Forma& forma : formas)
            for (const auto& [nome, comparacao] : comparacoes) {
                SCOPED_TRACE(std::string(forma.opcao) + " " + nome);
                const QString ordem = QString::fromUtf16(forma.ordem);
                option(tela, forma.opcao).setValue(true);
                option(tela, nome).setValue(true);
                tela.txtCOD.setText(u" abc "_s);
                forget();
                user.click(tela.cmdPesquisa);
                const QString filtro =
                    forma.filtro ? QString::fromUtf16(forma.filtro) + QString::fromUtf16(comparacao) : QString();
                EXPECT_EQ(database.sent, QStringList(cabeca + ativos + filtro + ordem));
                tela.txtCOD.setText(u"   "_s);
                forget();
                user.click(tela.cmdPesquisa);
                EXPECT_EQ(database.sent, QStringList(cabeca + ativos + ordem)) << "blanks are no filter";
                EXPECT_EQ(platform.boxes.news(), (QStringList{nothingFound, nothingFound}));
            }
    });
}

TEST_F(BuscaProdutoTest, TypeCollectionAndDeactivated) {
    database.answer(u"SELECT IDTIPO_PROD"_s, {{u"idtipo_prod"_s}, {{number(4)}}});
    database.answer(u"SELECT IDCOLE"_s, {{u"idcole"_s}, {{number(9)}}});
    openSearch([&](Tela& tela) {
        tela.Option1.setValue(true);
        tela.cboTipoProd.setText(u" serviço "_s);
        tela.cboCole.setText(u"verão"_s);
        forget();
        user.click(tela.chkVisualiza);
        EXPECT_EQ(database.sent,
                  (QStringList{u"SELECT IDTIPO_PROD FROM TIPO_PROD WHERE DESC_TIPO_PROD='SERVIÇO'"_s,
                               u"SELECT IDCOLE FROM COLE WHERE DESC_COLE='VERÃO'"_s,
                               cabeca + u"AND (NOT PROD.DATA_DESA IS NULL) AND PROD.IDTIPO_PROD = 4 AND PROD.IDCOLE = "
                                        "9 ORDER BY PROD.IDPROD"_s}));
        tela.cboTipoProd.setText({});
        tela.cboCole.setText({});
        forget();
        user.click(tela.chkVisualiza);
        EXPECT_EQ(database.sent, QStringList(cabeca + ativos + u"ORDER BY PROD.IDPROD"_s));
    });
    EXPECT_EQ(platform.boxes.news(), (QStringList{nothingFound, nothingFound}));
}

TEST_F(BuscaProdutoTest, NothingFoundTellsSo) {
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.pointer(), screen::Pointer::Default);
    });
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, nothingFound);
    EXPECT_EQ(platform.boxes[0].title, QString());
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::None);
}

TEST_F(BuscaProdutoTest, ARowWithItsStockAndARowOfNulls) {
    QList<data::Value> nulo(colunas.size(), null());
    nulo[0] = number(8);
    answer({productRow(7, "P-7", "MESA"), nulo});
    database.answer(
        u"FROM PROD_EMPR WHERE IDPROD = 7 AND CODI_EMPR='0001'"_s,
        {{u"qtde_disp"_s, u"qtde_disp_0002"_s, u"QTDE_ESTO_COPR"_s, u"QTDE_ESTO_EMB1"_s, u"QTDE_ESTO_EMB2"_s,
          u"QTDE_ESTO_EMB3"_s, u"QTDE_PEDI_ABER"_s, u"qtde_esto_consig"_s, u"qtde_esto_demonstr"_s},
         {{number(1), null(), null(), null(), null(), null(), amount(250), null(), number(1)}}});
    openSearch([&](Tela& tela) {
        forget();
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(rowOf(tela.Flex, 1),
                  (QStringList{u"7"_s, u"P-7"_s, u"MESA"_s, u"12,5"_s, u"-2,5"_s, u"2,5"_s, u"1234,50"_s, u"0,50"_s,
                               u"10,00"_s, u"ARM"_s, u"PAV"_s, u"SET"_s, u"COR"_s, u"EST"_s, u"PRA"_s, u"TIPO"_s,
                               u"REF"_s, u"28/06/2024"_s}));
        EXPECT_EQ(rowOf(tela.Flex, 2),
                  (QStringList{u"8"_s, {}, {}, {}, u"0"_s, u"0"_s, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}}));
        EXPECT_EQ(tela.Flex.Row(), 0) << "two rows or more leave none current";
        EXPECT_EQ(database.sent.size(), 1 + 2 * 2);
        EXPECT_EQ(platform.progressed.back(), (std::pair<qint64, qint64>(0, 0)));
    });
}

TEST_F(BuscaProdutoTest, ASingleRowIsCurrent) {
    answer({productRow(7, "P-7", "MESA")});
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.Flex.Row(), 1);
    });
}

TEST_F(BuscaProdutoTest, TheRowCounterIsSixteenBitsWide) {
    QList<QList<data::Value>> linhas(32766, productRow(7, "P", "MESA"));
    answer(linhas);
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.Flex.Rows(), 32767);
    });
    EXPECT_EQ(failure(), 0);
    linhas.append(productRow(8, "Q", "MESA"));
    answer(linhas);
    openSearch([&](Tela& tela) { user.click(tela.cmdPesquisa); });
    EXPECT_EQ(failure(), errorNumber::Overflow);
}

TEST_F(BuscaProdutoTest, TheCallerChoosesTheTypeAtTheOpening) {
    const std::pair<const char*, const char16_t*> chamadoras[]{{"frmOrdemServico", u"SERVIÇO-VENDA"},
                                                               {"frmPedido", u""},
                                                               {"frmProduto", u""},
                                                               {"frmPrototipo", u""},
                                                               {"frmMateriaPrima", u""},
                                                               {"frmOrcaVeds", u""},
                                                               {"frmCompras", u""},
                                                               {"frmCaixa", u""}};
    for (const auto& [nome, tipo] : chamadoras) {
        SCOPED_TRACE(nome);
        contexto.TelaChamadora = QString::fromLatin1(nome);
        forget();
        openSearch([&](Tela& tela) {
            EXPECT_EQ(tela.cboTipoProd.text(), QString::fromUtf16(tipo));
            EXPECT_TRUE(tela.cboTipoProd.enabled());
            EXPECT_EQ(sentWith("'ORCA_MATE_PRIM'").size(), contexto.TelaChamadora == u"frmOrcaVeds" ? 1 : 0);
        });
    }
}

TEST_F(BuscaProdutoTest, AClickOnARowRemembersTheSearch) {
    answer({productRow(7, "P-7", "MESA"), productRow(8, "P-8", "BANCO")});
    const std::pair<const char*, const char*> formas[]{
        {"Option1", "Option1"}, {"Option2", "Option2"}, {"Option3", "Option3"}, {"Option4", ""}};
    for (const auto& [escolhida, lembrada] : formas) {
        SCOPED_TRACE(escolhida);
        openSearch([&](Tela& tela) {
            option(tela, escolhida).setValue(true);
            tela.txtCOD.setText(u" p"_s);
            tela.cboCole.setText(u"COLE"_s);
            user.click(tela.cmdPesquisa);
            contexto.UltimaFormaProduto = u"antes"_s;
            user.clickCell(tela.Flex, 0, 1);
            EXPECT_EQ(contexto.UltimaFormaProduto, u"antes"_s) << "the header remembers nothing";
            user.clickCell(tela.Flex, 2, 3);
            EXPECT_EQ(contexto.UltimaFormaProduto, QString::fromLatin1(lembrada));
            EXPECT_EQ(contexto.UltimoTextoProduto, u" P"_s);
            EXPECT_EQ(contexto.UltimoVisualizaProduto, u"Não"_s);
            EXPECT_EQ(contexto.UltimaColecaoProduto, u"COLE"_s);
        });
        openSearch([&](Tela& tela) {
            EXPECT_TRUE(option(tela, *lembrada ? lembrada : "Option3").value());
            EXPECT_EQ(tela.txtCOD.text(), u" P"_s);
            EXPECT_EQ(tela.cboCole.text(), u"COLE"_s);
            EXPECT_FALSE(tela.chkVisualiza.checked());
        });
    }
}

TEST_F(BuscaProdutoTest, RememberedDeactivatedProductsAreSearchedAtOnce) {
    contexto.UltimaFormaProduto = u"Option2"_s;
    contexto.UltimoTextoProduto = u"X"_s;
    contexto.UltimoVisualizaProduto = u"Sim"_s;
    contexto.UltimaColecaoProduto = u"COLE"_s;
    openSearch([&](Tela& tela) {
        const QStringList buscas = sentWith("FROM PROD, PROD_EMPR");
        ASSERT_EQ(buscas.size(), 1);
        EXPECT_TRUE(buscas[0].endsWith(u"PROD_EMPR.CODI_EMPR = '' AND (NOT PROD.DATA_DESA IS NULL)  AND PROD.CODI_PROD "
                                       "LIKE '%X%'  ORDER BY PROD.CODI_PROD"_s))
            << "neither the company nor the collection stand yet";
        EXPECT_EQ(tela.cboCole.text(), u"COLE"_s);
    });
    EXPECT_EQ(platform.boxes.news(), QStringList(nothingFound));
}

TEST_F(BuscaProdutoTest, ThePictureOfARow) {
    answer({productRow(7, " P-7 ", "MESA"), productRow(8, "P-8", "BANCO"), productRow(9, "P-9", "SOFA")});
    database.answer(u"FROM PROD WHERE IDPROD=8"_s, {{u"CAMINHO_ARQ_LOCAL_THUMB"_s, u"CAMINHO_ARQ_LOCAL_NATURAL"_s},
                                                    {{text("/fora/p8.bmp"), text("/fora/p8_grande.bmp")}}});
    fileExists("/img/P-7.bmp");
    fileExists("/fora/p8.bmp");
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        forget();
        user.clickCell(tela.Flex, 1, 4);
        EXPECT_EQ(tela.Image1.picture(), u"/img/P-7.bmp"_s);
        EXPECT_EQ(contexto.ImagemProduto, u"/img/P-7.bmp"_s);
        EXPECT_EQ(contexto.ImagemProdutoDetalhe, u"/grande/P-7.jpg"_s);
        EXPECT_TRUE(database.sent.isEmpty()) << "the file of the code needs no reading";
        user.clickCell(tela.Flex, 2, 4);
        EXPECT_EQ(tela.Image1.picture(), u"/fora/p8.bmp"_s);
        EXPECT_EQ(contexto.ImagemProdutoDetalhe, u"/fora/p8_grande.bmp"_s);
        user.clickCell(tela.Flex, 3, 4);
        EXPECT_EQ(tela.Image1.picture(), u"/img/semfoto.bmp"_s);
        EXPECT_EQ(contexto.ImagemProduto, QString());
        EXPECT_EQ(contexto.ImagemProdutoDetalhe, QString());
        platform.files.remove(u"/fora/p8.bmp"_s);
        user.clickCell(tela.Flex, 2, 4);
        EXPECT_EQ(tela.Image1.picture(), u"/img/semfoto.bmp"_s) << "the row names a file that is gone";
        EXPECT_EQ(contexto.ImagemProduto, u"/fora/p8.bmp"_s);
    });
    EXPECT_EQ(failure(), 0);
}

TEST_F(BuscaProdutoTest, TheFourViews) {
    answer({productRow(7, "P-7", "MESA")});
    for (const char* arquivo : {"/img/P-7.bmp", "/img/P-7_3.bmp", "/grande/P-7_3.jpg"})
        fileExists(arquivo);
    struct Vista {
        const char* botao;
        const char16_t* imagem; ///< null: there is no photo of this view
        const char16_t* procurada;
    };
    const Vista vistas[]{{"cmdImagem1(0)", u"/img/P-7.bmp", u"/img/P-7.bmp"},
                         {"cmdImagem1(1)", nullptr, u"/img/P-7_2.bmp"},
                         {"cmdImagem1(2)", u"/img/P-7_3.bmp", u"/img/P-7_3.bmp"},
                         {"cmdImagem1(3)", nullptr, u"/img/P-7_4.bmp"}};
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        user.clickCell(tela.Flex, 1, 5);
        for (const Vista& vista : vistas) {
            SCOPED_TRACE(vista.botao);
            tela.cmdImagem1_1.setBackground(0);
            user.click(tela.field(QString::fromLatin1(vista.botao)));
            EXPECT_EQ(contexto.ImagemProduto, QString::fromUtf16(vista.procurada));
            EXPECT_EQ(tela.Image1.picture(), vista.imagem ? QString::fromUtf16(vista.imagem) : contexto.ImagemSemFoto);
            for (const Vista& outra : vistas)
                EXPECT_EQ(tela.field(QString::fromLatin1(outra.botao)).bold(), &outra == &vista) << outra.botao;
            EXPECT_EQ(tela.cmdImagem1_1.background(), screen::colour::ButtonFace);
            EXPECT_EQ(tela.Flex.Col(), 1);
            user.doubleClick(tela.Image1);
        }
        EXPECT_EQ(platform.addresses, QStringList(u"file:///grande/P-7_3.jpg"_s))
            << "only the view with a large picture opens it";
    });
}

TEST_F(BuscaProdutoTest, WhatEveryCallerGets) {
    struct Escrita {
        const char* campo;
        const char16_t* texto;
    };
    struct Retorno {
        QStringList chamadoras;
        const char* tipo;
        std::vector<Escrita> escritas;
        const char* foco; ///< null: none
        bool fecha = true;
    };
    const char16_t* codigo = u" P-7 ";
    const Retorno retornos[]{
        {{u"frmProduto"_s}, "KIT", {{"cboProduto", u"P-7"}}, nullptr},
        {{u"frmMateriaPrima"_s}, "KIT", {{"txtCodProduto", codigo}}, nullptr},
        {{u"frmProduto"_s, u"frmMateriaPrima"_s}, "", {{"txtRowID", u"7"}, {"txtCodigo", codigo}}, nullptr},
        {{u"frmPrototipo"_s}, "PROT", {{"txtCodProduto", codigo}}, "txtCodProduto"},
        {{u"frmPrototipo"_s}, "KIT", {}, nullptr, false},
        {{u"frmOrcaVeds"_s, u"frmPontoVenda"_s},
         "KIT",
         {{"txtidProdProt", u"7"}, {"txtCodProduto", codigo}},
         "txtCodProduto"},
        {{u"frmPedido"_s, u"frmOrdemServico"_s, u"frmPedidoExpress"_s, u"frmPedidoExpressCash"_s, u"frmContaMesa"_s,
          u"frmTransfEstoque"_s, u"frmCaixa"_s},
         "",
         {{"cboProduto", codigo}},
         "cboProduto"},
        {{u"frmMoveEstoqueCC"_s}, "", {{"cboProduto", codigo}, {"lblDescricao", u"MESA"}}, "mskDtmovto"},
        {{u"frmProjetaCompra"_s, u"frmMonitorProduto"_s, u"frmMoveEstoque"_s, u"frmCompras"_s, u"frmCotaCompra"_s,
          u"frmPesqProdPed"_s, u"frmCheckNulo"_s, u"frmRelaNaoAtendido"_s},
         "",
         {{"txtCodProduto", codigo}},
         "txtCodProduto"},
        {{u"frmEtiqProduto"_s, u"frmEtiqProdutoPimaco"_s, u"frmEtiqProdutoCrystal"_s, u"frmCorrProdutos"_s,
          u"frmNFEntrada"_s, u"frmNFGenerica"_s},
         "",
         {{"txtCodigo", codigo}},
         "txtCodigo"},
        {{u"frmPessoas"_s}, "", {{"cboProduto", u"P-7"}}, "cboProduto"},
        {{u"frmQualquer"_s}, "KIT", {}, nullptr},
    };
    answer({productRow(7, " P-7 ", "MESA")});
    for (const Retorno& retorno : retornos)
        for (const QString& nome : retorno.chamadoras) {
            SCOPED_TRACE(nome.toStdString() + " " + retorno.tipo);
            contexto.RegistraTela(nome,
                                  [nome](ContextoExecucao& dono) { return std::make_unique<TelaDeFora>(dono, nome); });
            contexto.TelaChamadora = nome;
            contexto.TipoConsulta = QString::fromLatin1(retorno.tipo);
            screen::Screen& chamadora = contexto.Tela(nome);
            chamadora.SetFocus(chamadora.field(u"txtOutro"_s));
            for (screen::Field* campo : chamadora.fields())
                campo->setText({});
            contexto.TopoGridBusca = 99;
            bool fechou = false;
            openSearch([&](Tela& tela) {
                user.click(tela.cmdPesquisa);
                tela.Flex.setCol(5);
                user.doubleClickCell(tela.Flex, 0, 1);
                EXPECT_TRUE(tela.isLoaded()) << "the header hands nothing over";
                EXPECT_EQ(contexto.TopoGridBusca, 99);
                user.doubleClickCell(tela.Flex, 1, 3);
                fechou = !tela.isLoaded();
            });
            EXPECT_EQ(fechou, retorno.fecha);
            EXPECT_EQ(contexto.TopoGridBusca, 1);
            QMap<QString, QString> escrito, esperado;
            for (screen::Field* campo : chamadora.fields())
                if (campo->name() != u"mskDtmovto" && !campo->text().isEmpty())
                    escrito[campo->name()] = campo->text();
            for (const Escrita& escrita : retorno.escritas)
                esperado[QString::fromLatin1(escrita.campo)] = QString::fromUtf16(escrita.texto);
            EXPECT_TRUE(escrito == esperado);
            EXPECT_EQ(chamadora.focus()->name(), QString::fromLatin1(retorno.foco ? retorno.foco : "txtOutro"));
            EXPECT_EQ(failure(), 0);
        }
}

TEST_F(BuscaProdutoTest, ACallerThatThisProgramDoesNotHave) {
    answer({productRow(7, "P-7", "MESA")});
    contexto.TelaChamadora = u"frmPedido"_s;
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        user.doubleClickCell(tela.Flex, 1, 1);
    });
    EXPECT_EQ(failure(), errorNumber::ObjectNotSet);
}

TEST_F(BuscaProdutoTest, ClearingFailsBehindTheGrid) {
    answer({productRow(7, "P-7", "MESA")});
    openSearch([&](Tela& tela) {
        tela.txtCOD.setText(u"X"_s);
        user.click(tela.cmdPesquisa);
        user.click(tela.cmdLimpar);
        EXPECT_EQ(tela.Flex.Rows(), 1);
        EXPECT_EQ(tela.txtCOD.text(), u"X"_s);
    });
    EXPECT_EQ(failure(), errorNumber::NoSuchMember);
}

TEST_F(BuscaProdutoTest, EnterMovesOnAndLeavingTheTextPutsItInCapitals) {
    openSearch([&](Tela& tela) {
        forget();
        user.type(tela.txtCOD, u"maçã"_s);
        user.key(tela.txtCOD, screen::Key::Enter);
        EXPECT_EQ(tela.txtCOD.text(), u"MAÇÃ"_s);
        EXPECT_EQ(tela.focus(), &tela.cmdPesquisa);
        user.key(tela.cmdPesquisa, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.Flex);
        EXPECT_TRUE(database.sent.isEmpty());
    });
}

TEST_F(BuscaProdutoTest, TheListOfCollections) {
    database.answer(u"FROM COLE WHERE"_s, {{u"desc_cole"_s}, {{text("JARDIM")}}});
    openSearch([&](Tela& tela) {
        tela.cboCole.setText(u" jar "_s);
        forget();
        user.dropDown(tela.cboCole);
        EXPECT_EQ(database.sent, QStringList(u"SELECT DESC_COLE FROM COLE WHERE DATA_DESA IS NULL AND (DESC_COLE LIKE "
                                             "'%JAR%') ORDER BY DESC_COLE"_s));
        EXPECT_EQ(tela.cboCole.items(), QStringList(u"JARDIM"_s));
    });
}

/// The picture is looked up by the text of the column that is current: the one left by the user in the first row, the
/// description in the rows behind it.
TEST_F(BuscaProdutoTest, TheFoundProductsAsATable) {
    answer({productRow(7, "P-7", "MESA"), productRow(8, "P-8", "BANCO")});
    fileExists("/img/P-7.bmp");
    const QString linha =
        u"<TR style='FONT-WEIGHT: bold; FONT-SIZE: 8pt; FONT-FAMILY: Tahoma; FONT-VARIANT: small'>"
        "<TD width=30%><P ALIGN=Center><IMG SRC='%1'></TD><TD width=30%>%2</TD><TD width=40%>%3</TD></TR>"_s;
    openSearch([&](Tela& tela) {
        EXPECT_EQ(tela.MontaDetalheHTML(), u"<TABLE BORDER CELLPADDING='2'></TABLE>"_s);
        user.click(tela.cmdPesquisa);
        tela.Flex.setCol(1);
        forget();
        EXPECT_EQ(tela.MontaDetalheHTML(), u"<TABLE BORDER CELLPADDING='2'>"_s +
                                               linha.arg(u"/img/P-7.bmp"_s, u"P-7"_s, u"MESA"_s) +
                                               linha.arg(u"/img/semfoto.bmp"_s, u"P-8"_s, u"BANCO"_s) + u"</TABLE>"_s);
        EXPECT_EQ(sentWith("CODI_PROD='BANCO'").size(), 1);
        EXPECT_EQ(tela.Flex.Row(), 2);
        EXPECT_EQ(tela.Flex.Col(), 2);
    });
}

TEST_F(BuscaProdutoTest, NothingOfAProductBecomesAPartOfThePage) {
    answer({productRow(7, "<b>'7&", "<script>alert(\"1\")</script>")});
    fileExists("/img/<b>'7&.bmp");
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        tela.Flex.setCol(1);
        const QString html = tela.MontaDetalheHTML();
        EXPECT_TRUE(html.contains(u"<IMG SRC='/img/&lt;b&gt;&#39;7&amp;.bmp'></TD>"_s)) << html;
        EXPECT_TRUE(html.contains(u"<TD width=30%>&lt;b&gt;&#39;7&amp;</TD>"_s)) << html;
        EXPECT_TRUE(html.contains(u"<TD width=40%>&lt;script&gt;alert(&quot;1&quot;)&lt;/script&gt;</TD>"_s)) << html;
    });
}

TEST_F(BuscaProdutoTest, OnlyPicturesOfTheirFoldersAreHandedToTheDesktop) {
    answer({productRow(8, "P-8", "BANCO")});
    for (const char* arquivo :
         {"/fora/8.bmp", "/grande/8.sh", "/grande/../fora/8.bmp", "/grande/sub/8.JPG", "/img/8.png"})
        fileExists(arquivo);
    openSearch([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        for (const char* guardado :
             {"/fora/8.bmp", "/grande/8.sh", "/grande/../fora/8.bmp", "/grande/sub/8.JPG", "/img/8.png"}) {
            database.answer(
                u"FROM PROD WHERE IDPROD=8"_s,
                {{u"CAMINHO_ARQ_LOCAL_THUMB"_s, u"CAMINHO_ARQ_LOCAL_NATURAL"_s}, {{text(""), text(guardado)}}});
            user.clickCell(tela.Flex, 1, 5);
            user.doubleClick(tela.Image1);
        }
        EXPECT_EQ(platform.addresses, (QStringList{u"file:///grande/sub/8.JPG"_s, u"file:///img/8.png"_s}));
    });
}

TEST_F(BuscaProdutoTest, AnOldPageOfProductsIsRemoved) {
    fileExists("/paginas/pesquisa_produtos.html");
    openSearch([&](Tela& tela) {
        tela.ApagaPaginaProdutos();
        EXPECT_FALSE(platform.fileExists(u"/paginas/pesquisa_produtos.html"_s));
        tela.ApagaPaginaProdutos();
    });
    EXPECT_EQ(failure(), 0);
}

} // namespace vorta::test

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
    screen::MaskedField mskDtmovto{this, "mskDtmovto", QStringLiteral("##/##/####")};
};

const QString cabeca =
    u"SELECT PROD.IDPROD, PROD.CODI_PROD, PROD.DESC_PROD, PROD.DATA_DESA, PROD.IDTIPO_PROD, PROD.CODI_REFE_PROD, "
    "PROD_EMPR.QTDE_DISP, PROD_EMPR.VALO_VEDS, PROD_EMPR.VALO_VEDS_B, PROD_EMPR.VALO_VEDS_C, "
    "PROD_EMPR.LOCA_FISI_ARMAZEM, PROD_EMPR.LOCA_FISI_PAVIMENTO, PROD_EMPR.LOCA_FISI_SETOR, "
    "PROD_EMPR.LOCA_FISI_CORREDOR, PROD_EMPR.LOCA_FISI_ESTANTE, PROD_EMPR.LOCA_FISI_PRATELEIRA, "
    "TIPO_PROD.DESC_TIPO_PROD FROM PROD, PROD_EMPR, TIPO_PROD "
    "WHERE PROD.IDPROD = PROD_EMPR.IDPROD AND PROD.IDTIPO_PROD = TIPO_PROD.IDTIPO_PROD "
    "AND PROD_EMPR.CODI_EMPR = '0001' "_qs;
const QString ativos = u"AND PROD.DATA_DESA IS NULL "_qs;

const QStringList colunas{
    u"IDPROD"_qs,          u"CODI_PROD"_qs,          u"DESC_PROD"_qs,         u"DATA_DESA"_qs,
    u"IDTIPO_PROD"_qs,     u"CODI_REFE_PROD"_qs,     u"QTDE_DISP"_qs,         u"VALO_VEDS"_qs,
    u"VALO_VEDS_B"_qs,     u"VALO_VEDS_C"_qs,        u"LOCA_FISI_ARMAZEM"_qs, u"LOCA_FISI_PAVIMENTO"_qs,
    u"LOCA_FISI_SETOR"_qs, u"LOCA_FISI_CORREDOR"_qs, u"LOCA_FISI_ESTANTE"_qs, u"LOCA_FISI_PRATELEIRA"_qs,
    u"DESC_TIPO_PROD"_qs};

QList<data::Value> produto(qint64 id, const char* codigo, const char* descricao) {
    return {number(id),   text(codigo),   text(descricao), date(2024, 6, 28), number(1),   text("REF"),
            amount(1250), amount(123450), amount(50),      amount(1000),      text("ARM"), text("PAV"),
            text("SET"),  text("COR"),    text("EST"),     text("PRA"),       text("TIPO")};
}

} // namespace

class BuscaProdutoTest : public BuscaTest {
  protected:
    BuscaProdutoTest() {
        contexto.TelaChamadora.clear();
        contexto.CaminhoImagens = u"/img/"_qs;
        contexto.ExtensaoImagens = u".bmp"_qs;
        contexto.CaminhoImagensDetalhe = u"/grande/"_qs;
        contexto.ExtensaoImagensDetalhe = u".jpg"_qs;
        contexto.ImagemSemFoto = u"/img/semfoto.bmp"_qs;
        contexto.CaminhoPaginas = u"/paginas/"_qs;
        existe("/img/semfoto.bmp");
    }

    void existe(const char* arquivo) { platform.files[QString::fromLatin1(arquivo)] = {}; }
    void responde(const QList<QList<data::Value>>& linhas) {
        database.answer(u"FROM PROD, PROD_EMPR"_qs, {colunas, linhas});
    }
    /// The search as a caller opens it: the company is set once the screen stands.
    void busca(const std::function<void(Tela&)>& faz) {
        abre<Tela>("frmBROWSE_PRODUTO", [&](Tela& tela) {
            tela.lblCodiEmpresa.setText(u"0001"_qs);
            faz(tela);
        });
    }
    screen::Option& opcao(Tela& tela, const char* nome) {
        return static_cast<screen::Option&>(tela.field(QString::fromLatin1(nome)));
    }
};

TEST_F(BuscaProdutoTest, TheOpeningSearchesNothing) {
    database.answer(u"FROM TIPO_PROD WHERE"_qs, {{u"DESC_TIPO_PROD"_qs}, {{text("B")}, {text("A")}}});
    busca([&](Tela& tela) {
        EXPECT_EQ(database.sent, QStringList(u"SELECT DESC_TIPO_PROD FROM TIPO_PROD WHERE DATA_DESA IS NULL"_qs));
        EXPECT_EQ(tela.caption(), ContextoExecucao::Titulo());
        EXPECT_TRUE(tela.Option3.value() && tela.opQQPosicao.value());
        EXPECT_FALSE(tela.Option1.value() || tela.Option2.value() || tela.Option4.value());
        EXPECT_EQ(tela.txtMaxReg.text(), u"100"_qs);
        EXPECT_EQ(tela.cboTipoProd.items(), (QStringList{u"B"_qs, u"A"_qs}));
        EXPECT_EQ(linhaDo(tela.Flex, 0),
                  (QStringList{u"ID"_qs, u"Código"_qs, u"Descrição"_qs, u"Est.Fis."_qs, u"Est.Disp."_qs, u"Est.Ped."_qs,
                               u"Vr.Prod.A"_qs, u"Vr.Prod.B"_qs, u"Vr.Prod.C"_qs, u"Armazém"_qs, u"Pavimento"_qs,
                               u"Setor"_qs, u"Corredor"_qs, u"Estante"_qs, u"Prateleira"_qs, u"Tipo Produto"_qs,
                               u"Referência"_qs, u"DT Desativa"_qs}));
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
    busca([&](Tela& tela) {
        for (const Forma& forma : formas)
            for (const auto& [nome, comparacao] : comparacoes) {
                SCOPED_TRACE(std::string(forma.opcao) + " " + nome);
                const QString ordem = QString::fromUtf16(forma.ordem);
                opcao(tela, forma.opcao).setValue(true);
                opcao(tela, nome).setValue(true);
                tela.txtCOD.setText(u" abc "_qs);
                esquece();
                user.click(tela.cmdPesquisa);
                const QString filtro =
                    forma.filtro ? QString::fromUtf16(forma.filtro) + QString::fromUtf16(comparacao) : QString();
                EXPECT_EQ(database.sent, QStringList(cabeca + ativos + filtro + ordem));
                tela.txtCOD.setText(u"   "_qs);
                esquece();
                user.click(tela.cmdPesquisa);
                EXPECT_EQ(database.sent, QStringList(cabeca + ativos + ordem)) << "blanks are no filter";
            }
    });
}

TEST_F(BuscaProdutoTest, TypeCollectionAndDeactivated) {
    database.answer(u"SELECT IDTIPO_PROD"_qs, {{u"idtipo_prod"_qs}, {{number(4)}}});
    database.answer(u"SELECT IDCOLE"_qs, {{u"idcole"_qs}, {{number(9)}}});
    busca([&](Tela& tela) {
        tela.Option1.setValue(true);
        tela.cboTipoProd.setText(u" serviço "_qs);
        tela.cboCole.setText(u"verão"_qs);
        esquece();
        user.click(tela.chkVisualiza);
        EXPECT_EQ(database.sent,
                  (QStringList{u"SELECT IDTIPO_PROD FROM TIPO_PROD WHERE DESC_TIPO_PROD='SERVIÇO'"_qs,
                               u"SELECT IDCOLE FROM COLE WHERE DESC_COLE='VERÃO'"_qs,
                               cabeca + u"AND (NOT PROD.DATA_DESA IS NULL) AND PROD.IDTIPO_PROD = 4 AND PROD.IDCOLE = "
                                        "9 ORDER BY PROD.IDPROD"_qs}));
        tela.cboTipoProd.setText({});
        tela.cboCole.setText({});
        esquece();
        user.click(tela.chkVisualiza);
        EXPECT_EQ(database.sent, QStringList(cabeca + ativos + u"ORDER BY PROD.IDPROD"_qs));
    });
}

TEST_F(BuscaProdutoTest, NothingFoundTellsSo) {
    busca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.pointer(), screen::Pointer::Default);
    });
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, u"Nenhum Registro Localizado com esses parâmetros..."_qs);
    EXPECT_EQ(platform.boxes[0].title, QString());
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::None);
}

TEST_F(BuscaProdutoTest, ARowWithItsStockAndARowOfNulls) {
    QList<data::Value> nulo(colunas.size(), null());
    nulo[0] = number(8);
    responde({produto(7, "P-7", "MESA"), nulo});
    database.answer(
        u"FROM PROD_EMPR WHERE IDPROD = 7 AND CODI_EMPR='0001'"_qs,
        {{u"qtde_disp"_qs, u"qtde_disp_0002"_qs, u"QTDE_ESTO_COPR"_qs, u"QTDE_ESTO_EMB1"_qs, u"QTDE_ESTO_EMB2"_qs,
          u"QTDE_ESTO_EMB3"_qs, u"QTDE_PEDI_ABER"_qs, u"qtde_esto_consig"_qs, u"qtde_esto_demonstr"_qs},
         {{number(1), null(), null(), null(), null(), null(), amount(250), null(), number(1)}}});
    busca([&](Tela& tela) {
        esquece();
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(linhaDo(tela.Flex, 1),
                  (QStringList{u"7"_qs, u"P-7"_qs, u"MESA"_qs, u"12,5"_qs, u"-2,5"_qs, u"2,5"_qs, u"1234,50"_qs,
                               u"0,50"_qs, u"10,00"_qs, u"ARM"_qs, u"PAV"_qs, u"SET"_qs, u"COR"_qs, u"EST"_qs,
                               u"PRA"_qs, u"TIPO"_qs, u"REF"_qs, u"28/06/2024"_qs}));
        EXPECT_EQ(linhaDo(tela.Flex, 2),
                  (QStringList{u"8"_qs, {}, {}, {}, u"0"_qs, u"0"_qs, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}}));
        EXPECT_EQ(tela.Flex.Row(), 0) << "two rows or more leave none current";
        EXPECT_EQ(database.sent.size(), 1 + 2 * 2);
        EXPECT_EQ(platform.progressed.back(), (std::pair<qint64, qint64>(0, 0)));
    });
}

TEST_F(BuscaProdutoTest, ASingleRowIsCurrent) {
    responde({produto(7, "P-7", "MESA")});
    busca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.Flex.Row(), 1);
    });
}

TEST_F(BuscaProdutoTest, TheRowCounterIsSixteenBitsWide) {
    QList<QList<data::Value>> linhas(32766, produto(7, "P", "MESA"));
    responde(linhas);
    busca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.Flex.Rows(), 32767);
    });
    EXPECT_EQ(falha(), 0);
    linhas.append(produto(8, "Q", "MESA"));
    responde(linhas);
    busca([&](Tela& tela) { user.click(tela.cmdPesquisa); });
    EXPECT_EQ(falha(), errorNumber::Overflow);
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
        esquece();
        busca([&](Tela& tela) {
            EXPECT_EQ(tela.cboTipoProd.text(), QString::fromUtf16(tipo));
            EXPECT_TRUE(tela.cboTipoProd.enabled());
            EXPECT_EQ(enviados("'ORCA_MATE_PRIM'").size(), contexto.TelaChamadora == u"frmOrcaVeds" ? 1 : 0);
        });
    }
}

TEST_F(BuscaProdutoTest, AClickOnARowRemembersTheSearch) {
    responde({produto(7, "P-7", "MESA"), produto(8, "P-8", "BANCO")});
    const std::pair<const char*, const char*> formas[]{
        {"Option1", "Option1"}, {"Option2", "Option2"}, {"Option3", "Option3"}, {"Option4", ""}};
    for (const auto& [escolhida, lembrada] : formas) {
        SCOPED_TRACE(escolhida);
        busca([&](Tela& tela) {
            opcao(tela, escolhida).setValue(true);
            tela.txtCOD.setText(u" p"_qs);
            tela.cboCole.setText(u"COLE"_qs);
            user.click(tela.cmdPesquisa);
            contexto.UltimaFormaProduto = u"antes"_qs;
            user.clickCell(tela.Flex, 0, 1);
            EXPECT_EQ(contexto.UltimaFormaProduto, u"antes"_qs) << "the header remembers nothing";
            user.clickCell(tela.Flex, 2, 3);
            EXPECT_EQ(contexto.UltimaFormaProduto, QString::fromLatin1(lembrada));
            EXPECT_EQ(contexto.UltimoTextoProduto, u" P"_qs);
            EXPECT_EQ(contexto.UltimoVisualizaProduto, u"Não"_qs);
            EXPECT_EQ(contexto.UltimaColecaoProduto, u"COLE"_qs);
        });
        busca([&](Tela& tela) {
            EXPECT_TRUE(opcao(tela, *lembrada ? lembrada : "Option3").value());
            EXPECT_EQ(tela.txtCOD.text(), u" P"_qs);
            EXPECT_EQ(tela.cboCole.text(), u"COLE"_qs);
            EXPECT_FALSE(tela.chkVisualiza.checked());
        });
    }
}

TEST_F(BuscaProdutoTest, RememberedDeactivatedProductsAreSearchedAtOnce) {
    contexto.UltimaFormaProduto = u"Option2"_qs;
    contexto.UltimoTextoProduto = u"X"_qs;
    contexto.UltimoVisualizaProduto = u"Sim"_qs;
    contexto.UltimaColecaoProduto = u"COLE"_qs;
    busca([&](Tela& tela) {
        const QStringList buscas = enviados("FROM PROD, PROD_EMPR");
        ASSERT_EQ(buscas.size(), 1);
        EXPECT_TRUE(buscas[0].endsWith(u"PROD_EMPR.CODI_EMPR = '' AND (NOT PROD.DATA_DESA IS NULL)  AND PROD.CODI_PROD "
                                       "LIKE '%X%'  ORDER BY PROD.CODI_PROD"_qs))
            << "neither the company nor the collection stand yet";
        EXPECT_EQ(tela.cboCole.text(), u"COLE"_qs);
    });
    EXPECT_EQ(platform.boxes.size(), 1u);
}

TEST_F(BuscaProdutoTest, ThePictureOfARow) {
    responde({produto(7, " P-7 ", "MESA"), produto(8, "P-8", "BANCO"), produto(9, "P-9", "SOFA")});
    database.answer(u"FROM PROD WHERE IDPROD=8"_qs, {{u"CAMINHO_ARQ_LOCAL_THUMB"_qs, u"CAMINHO_ARQ_LOCAL_NATURAL"_qs},
                                                     {{text("/fora/p8.bmp"), text("/fora/p8_grande.bmp")}}});
    existe("/img/P-7.bmp");
    existe("/fora/p8.bmp");
    busca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        esquece();
        user.clickCell(tela.Flex, 1, 4);
        EXPECT_EQ(tela.Image1.picture(), u"/img/P-7.bmp"_qs);
        EXPECT_EQ(contexto.ImagemProduto, u"/img/P-7.bmp"_qs);
        EXPECT_EQ(contexto.ImagemProdutoDetalhe, u"/grande/P-7.jpg"_qs);
        EXPECT_TRUE(database.sent.isEmpty()) << "the file of the code needs no reading";
        user.clickCell(tela.Flex, 2, 4);
        EXPECT_EQ(tela.Image1.picture(), u"/fora/p8.bmp"_qs);
        EXPECT_EQ(contexto.ImagemProdutoDetalhe, u"/fora/p8_grande.bmp"_qs);
        user.clickCell(tela.Flex, 3, 4);
        EXPECT_EQ(tela.Image1.picture(), u"/img/semfoto.bmp"_qs);
        EXPECT_EQ(contexto.ImagemProduto, QString());
        EXPECT_EQ(contexto.ImagemProdutoDetalhe, QString());
        platform.files.remove(u"/fora/p8.bmp"_qs);
        user.clickCell(tela.Flex, 2, 4);
        EXPECT_EQ(tela.Image1.picture(), u"/img/semfoto.bmp"_qs) << "the row names a file that is gone";
        EXPECT_EQ(contexto.ImagemProduto, u"/fora/p8.bmp"_qs);
    });
    EXPECT_EQ(falha(), 0);
}

TEST_F(BuscaProdutoTest, TheFourViews) {
    responde({produto(7, "P-7", "MESA")});
    for (const char* arquivo : {"/img/P-7.bmp", "/img/P-7_3.bmp", "/grande/P-7_3.jpg"})
        existe(arquivo);
    struct Vista {
        const char* botao;
        const char16_t* imagem; ///< null: there is no photo of this view
        const char16_t* procurada;
    };
    const Vista vistas[]{{"cmdImagem1(0)", u"/img/P-7.bmp", u"/img/P-7.bmp"},
                         {"cmdImagem1(1)", nullptr, u"/img/P-7_2.bmp"},
                         {"cmdImagem1(2)", u"/img/P-7_3.bmp", u"/img/P-7_3.bmp"},
                         {"cmdImagem1(3)", nullptr, u"/img/P-7_4.bmp"}};
    busca([&](Tela& tela) {
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
        EXPECT_EQ(platform.addresses, QStringList(u"file:///grande/P-7_3.jpg"_qs))
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
        {{u"frmProduto"_qs}, "KIT", {{"cboProduto", u"P-7"}}, nullptr},
        {{u"frmMateriaPrima"_qs}, "KIT", {{"txtCodProduto", codigo}}, nullptr},
        {{u"frmProduto"_qs, u"frmMateriaPrima"_qs}, "", {{"txtRowID", u"7"}, {"txtCodigo", codigo}}, nullptr},
        {{u"frmPrototipo"_qs}, "PROT", {{"txtCodProduto", codigo}}, "txtCodProduto"},
        {{u"frmPrototipo"_qs}, "KIT", {}, nullptr, false},
        {{u"frmOrcaVeds"_qs, u"frmPontoVenda"_qs},
         "KIT",
         {{"txtidProdProt", u"7"}, {"txtCodProduto", codigo}},
         "txtCodProduto"},
        {{u"frmPedido"_qs, u"frmOrdemServico"_qs, u"frmPedidoExpress"_qs, u"frmPedidoExpressCash"_qs,
          u"frmContaMesa"_qs, u"frmTransfEstoque"_qs, u"frmCaixa"_qs},
         "",
         {{"cboProduto", codigo}},
         "cboProduto"},
        {{u"frmMoveEstoqueCC"_qs}, "", {{"cboProduto", codigo}, {"lblDescricao", u"MESA"}}, "mskDtmovto"},
        {{u"frmProjetaCompra"_qs, u"frmMonitorProduto"_qs, u"frmMoveEstoque"_qs, u"frmCompras"_qs, u"frmCotaCompra"_qs,
          u"frmPesqProdPed"_qs, u"frmCheckNulo"_qs, u"frmRelaNaoAtendido"_qs},
         "",
         {{"txtCodProduto", codigo}},
         "txtCodProduto"},
        {{u"frmEtiqProduto"_qs, u"frmEtiqProdutoPimaco"_qs, u"frmEtiqProdutoCrystal"_qs, u"frmCorrProdutos"_qs,
          u"frmNFEntrada"_qs, u"frmNFGenerica"_qs},
         "",
         {{"txtCodigo", codigo}},
         "txtCodigo"},
        {{u"frmPessoas"_qs}, "", {{"cboProduto", u"P-7"}}, "cboProduto"},
        {{u"frmQualquer"_qs}, "KIT", {}, nullptr},
    };
    responde({produto(7, " P-7 ", "MESA")});
    for (const Retorno& retorno : retornos)
        for (const QString& nome : retorno.chamadoras) {
            SCOPED_TRACE(nome.toStdString() + " " + retorno.tipo);
            contexto.RegistraTela(nome,
                                  [nome](ContextoExecucao& dono) { return std::make_unique<TelaDeFora>(dono, nome); });
            contexto.TelaChamadora = nome;
            contexto.TipoConsulta = QString::fromLatin1(retorno.tipo);
            screen::Screen& chamadora = contexto.Tela(nome);
            chamadora.SetFocus(chamadora.field(u"txtOutro"_qs));
            for (screen::Field* campo : chamadora.fields())
                campo->setText({});
            contexto.TopoGridBusca = 99;
            bool fechou = false;
            busca([&](Tela& tela) {
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
            EXPECT_EQ(falha(), 0);
        }
}

TEST_F(BuscaProdutoTest, ACallerThatThisProgramDoesNotHave) {
    responde({produto(7, "P-7", "MESA")});
    contexto.TelaChamadora = u"frmPedido"_qs;
    busca([&](Tela& tela) {
        user.click(tela.cmdPesquisa);
        user.doubleClickCell(tela.Flex, 1, 1);
    });
    EXPECT_EQ(falha(), errorNumber::ObjectNotSet);
}

TEST_F(BuscaProdutoTest, ClearingFailsBehindTheGrid) {
    responde({produto(7, "P-7", "MESA")});
    busca([&](Tela& tela) {
        tela.txtCOD.setText(u"X"_qs);
        user.click(tela.cmdPesquisa);
        user.click(tela.cmdLimpar);
        EXPECT_EQ(tela.Flex.Rows(), 1);
        EXPECT_EQ(tela.txtCOD.text(), u"X"_qs);
    });
    EXPECT_EQ(falha(), errorNumber::NoSuchMember);
}

TEST_F(BuscaProdutoTest, EnterMovesOnAndLeavingTheTextPutsItInCapitals) {
    busca([&](Tela& tela) {
        esquece();
        user.type(tela.txtCOD, u"maçã"_qs);
        user.key(tela.txtCOD, screen::Key::Enter);
        EXPECT_EQ(tela.txtCOD.text(), u"MAÇÃ"_qs);
        EXPECT_EQ(tela.focus(), &tela.cmdPesquisa);
        user.key(tela.cmdPesquisa, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.cmdLimpar);
        EXPECT_TRUE(database.sent.isEmpty());
    });
}

TEST_F(BuscaProdutoTest, TheListOfCollections) {
    database.answer(u"FROM COLE WHERE"_qs, {{u"desc_cole"_qs}, {{text("JARDIM")}}});
    busca([&](Tela& tela) {
        tela.cboCole.setText(u" jar "_qs);
        esquece();
        user.dropDown(tela.cboCole);
        EXPECT_EQ(database.sent, QStringList(u"SELECT DESC_COLE FROM COLE WHERE DATA_DESA IS NULL AND (DESC_COLE LIKE "
                                             "'%JAR%') ORDER BY DESC_COLE"_qs));
        EXPECT_EQ(tela.cboCole.items(), QStringList(u"JARDIM"_qs));
    });
}

/// The picture is looked up by the text of the column that is current: the one left by the user in the first row, the
/// description in the rows behind it.
TEST_F(BuscaProdutoTest, TheFoundProductsAsATable) {
    responde({produto(7, "P-7", "MESA"), produto(8, "P-8", "BANCO")});
    existe("/img/P-7.bmp");
    const QString linha =
        u"<TR style='FONT-WEIGHT: bold; FONT-SIZE: 8pt; FONT-FAMILY: Tahoma; FONT-VARIANT: small'>"
        "<TD width=30%><P ALIGN=Center><IMG SRC='%1'></TD><TD width=30%>%2</TD><TD width=40%>%3</TD></TR>"_qs;
    busca([&](Tela& tela) {
        EXPECT_EQ(tela.MontaDetalheHTML(), u"<TABLE BORDER CELLPADDING='2'></TABLE>"_qs);
        user.click(tela.cmdPesquisa);
        tela.Flex.setCol(1);
        esquece();
        EXPECT_EQ(tela.MontaDetalheHTML(),
                  u"<TABLE BORDER CELLPADDING='2'>"_qs + linha.arg(u"/img/P-7.bmp"_qs, u"P-7"_qs, u"MESA"_qs) +
                      linha.arg(u"/img/semfoto.bmp"_qs, u"P-8"_qs, u"BANCO"_qs) + u"</TABLE>"_qs);
        EXPECT_EQ(enviados("CODI_PROD='BANCO'").size(), 1);
        EXPECT_EQ(tela.Flex.Row(), 2);
        EXPECT_EQ(tela.Flex.Col(), 2);
    });
}

TEST_F(BuscaProdutoTest, AnOldPageOfProductsIsRemoved) {
    existe("/paginas/pesquisa_produtos.html");
    busca([&](Tela& tela) {
        tela.ApagaPaginaProdutos();
        EXPECT_FALSE(platform.fileExists(u"/paginas/pesquisa_produtos.html"_qs));
        tela.ApagaPaginaProdutos();
    });
    EXPECT_EQ(falha(), 0);
}

} // namespace vorta::test

#include "search/frmBROWSE_PRODUTO.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "launch/Lancamento.h"
#include "search/RetornoProduto.h"
#include "shared/Consultas.h"
#include "shared/Preenchimento.h"
#include "shared/Totais.h"

#include <QUrl>
#include <limits>

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;
using data::Value;
using screen::Align;

constexpr int colunaId = 0;
constexpr int colunaCodigo = 1;
constexpr int colunaDescricao = 2;

QString Valor(const Value& valor) {
    return valor.isNull() ? QString() : FormatAmount(valor.number());
}

/// The product type that a caller begins with.
struct TipoInicial {
    const char* chamadora;
    const char* tipo;
};
constexpr TipoInicial tiposIniciais[]{
    {"frmOrdemServico", "SERVIÇO-VENDA"},
    {"frmPedido", ""},
    {"frmProduto", ""},
    {"frmPrototipo", ""},
    {"frmMateriaPrima", ""},
    {"frmOrcaVeds", ""},
    {"frmCompras", ""},
};

} // namespace

frmBROWSE_PRODUTO::frmBROWSE_PRODUTO(ContextoExecucao& contexto)
    : Screen(contexto.program(), "frmBROWSE_PRODUTO"), contexto_(contexto) {
    txtCOD.enterMovesOn = true;
    cmdPesquisa.enterMovesOn = true;
    txtCOD.LostFocus = [this] { txtCOD.setText(UCase(txtCOD.text())); };
    cboCole.DropDown = [this] { PreencheColecoes(contexto_, Trim(cboCole.text()), cboCole); };
    chkVisualiza.Click = [this] { cmdPesquisa_Click(); };
    cmdPesquisa.Click = [this] { cmdPesquisa_Click(); };
    cmdLimpar.Click = [this] { cmdLimpar_Click(); };
    Flex.keysChoose = true;
    Flex.Click = [this] { Flex_Click(); };
    Flex.DblClick = [this] { Flex_DblClick(); };
    Image1.DblClick = [this] { Image1_DblClick(); };
    for (screen::Button* botao : BotoesImagem())
        botao->Click = [this, botao] { cmdImagem1_Click(*botao); };
}

std::array<screen::Button*, 4> frmBROWSE_PRODUTO::BotoesImagem() {
    return {&cmdImagem1_0, &cmdImagem1_1, &cmdImagem1_2, &cmdImagem1_3};
}

void frmBROWSE_PRODUTO::Load() {
    opQQPosicao.setValue(true);
    Option3.setValue(true);
    txtMaxReg.setText(u"100"_s);
    MontaGridProdutos();
    CentralizaForm(*this);
    setCaption(ContextoExecucao::Titulo());
    PreencheTipoProduto(contexto_, cboTipoProd);
    RestauraUltimaBusca();
    cboTipoProd.setEnabled(true);
    AjustaTipoPelaChamadora();
}

void frmBROWSE_PRODUTO::RestauraUltimaBusca() {
    for (screen::Option* opcao : {&Option1, &Option2, &Option3})
        if (opcao->name() == contexto_.UltimaFormaProduto)
            opcao->setValue(true);
    txtCOD.setText(contexto_.UltimoTextoProduto);
    if (contexto_.UltimoVisualizaProduto == u"Sim")
        chkVisualiza.setChecked(true);
    else if (contexto_.UltimoVisualizaProduto == u"Não")
        chkVisualiza.setChecked(false);
    cboCole.setText(contexto_.UltimaColecaoProduto);
}

/// Quotations ask the company's switch for raw materials too; all types are offered whatever it says.
void frmBROWSE_PRODUTO::AjustaTipoPelaChamadora() {
    if (contexto_.TelaChamadora == u"frmOrcaVeds")
        LeParametroEmpresa(contexto_, u"ORCA_MATE_PRIM"_s);
    for (const TipoInicial& linha : tiposIniciais)
        if (contexto_.TelaChamadora == QLatin1StringView(linha.chamadora))
            cboTipoProd.setText(QString::fromUtf8(linha.tipo));
}

void frmBROWSE_PRODUTO::MontaGridProdutos() {
    Flex.reset({{u"ID"_s, 0},
                {u"Código"_s},
                {u"Descrição"_s},
                {u"Est.Fis."_s, -1, Align::Right},
                {u"Est.Disp."_s, -1, Align::Right},
                {u"Est.Ped."_s, -1, Align::Right},
                {u"Vr.Prod.A"_s, -1, Align::Right},
                {u"Vr.Prod.B"_s, -1, Align::Right},
                {u"Vr.Prod.C"_s, -1, Align::Right},
                {u"Armazém"_s},
                {u"Pavimento"_s},
                {u"Setor"_s},
                {u"Corredor"_s},
                {u"Estante"_s},
                {u"Prateleira"_s},
                {u"Tipo Produto"_s},
                {u"Referência"_s},
                {u"DT Desativa"_s}});
}

/// How the text is compared: anywhere, as a whole, or at the start.
Statement frmBROWSE_PRODUTO::Comparacao() const {
    Statement comparacao;
    if (opQQPosicao.value())
        comparacao << "like '%" << txtCOD.text() << "%' ";
    else if (opExata.value())
        comparacao << "= '" << txtCOD.text() << "' ";
    else if (opInicialCom.value())
        comparacao << "like '" << txtCOD.text() << "%' ";
    return comparacao;
}

void frmBROWSE_PRODUTO::MontaConsulta() {
    Statement& comando = contexto_.SqlConsulta;
    comando = Statement("SELECT prod.idprod, prod.codi_prod, prod.desc_prod, prod.data_desa, prod.idTIPO_PROD, "
                        "prod.CODI_REFE_PROD, "
                        "prod_empr.qtde_disp, prod_empr.VALO_VEDS, prod_empr.VALO_VEDS_b, prod_empr.VALO_VEDS_c, "
                        "prod_empr.LOCA_FISI_ARMAZEM, prod_empr.LOCA_FISI_PAVIMENTO, prod_empr.LOCA_FISI_SETOR, "
                        "prod_empr.LOCA_FISI_CORREDOR, prod_empr.LOCA_FISI_ESTANTE, prod_empr.LOCA_FISI_PRATELEIRA, "
                        "tipo_prod.DESC_TIPO_PROD From prod, prod_empr, tipo_prod "
                        "Where prod.idProd = prod_empr.idProd And prod.idtipo_prod = tipo_prod.idtipo_prod "
                        "and prod_empr.codi_empr = '");
    comando << lblCodiEmpresa.text() << "' ";
    if (chkVisualiza.checked())
        comando << "and (Not prod.DATA_DESA Is Null) ";
    else
        comando << "and prod.data_desa is null ";
    if (!cboTipoProd.text().isEmpty())
        comando << "and prod.idTIPO_PROD = " << IdTipoProduto(contexto_, cboTipoProd.text()) << " ";
    if (!cboCole.text().isEmpty())
        comando << "and prod.idcole = " << IdColecao(contexto_, cboCole.text()) << " ";

    struct Forma {
        const screen::Option& opcao;
        data::Piece filtro;
        data::Piece ordem;
    };
    for (const Forma& forma : {Forma{Option2, " and PROD.codi_prod ", " ORDER BY prod.codi_prod"},
                               Forma{Option3, " and PROD.desc_prod ", " ORDER BY prod.desc_prod"},
                               Forma{Option4, " and PROD.CODI_REFE_PROD ", " ORDER BY prod.CODI_REFE_PROD"}}) {
        if (!forma.opcao.value())
            continue;
        if (!Trim(txtCOD.text()).isEmpty())
            comando << forma.filtro << Comparacao();
        comando << forma.ordem;
    }
    if (Option1.value())
        comando << "ORDER BY prod.idprod";
}

QStringList frmBROWSE_PRODUTO::LinhaProduto(const Recordset& produto) {
    const qint32 id = produto.Fields("idProd").toInt32();
    const QString empresa = lblCodiEmpresa.text();
    QStringList celulas{produto.Fields("idProd").text(),
                        produto.Fields("CODI_PROD").textOr({}),
                        produto.Fields("desc_prod").textOr({}),
                        produto.Fields("qtde_disp").textOr({}),
                        FormatNumber(EstoqueDisponivel(contexto_, id, empresa)),
                        FormatNumber(QtdePedidosAbertos(contexto_, id, empresa)),
                        Valor(produto.Fields("VALO_VEDS")),
                        Valor(produto.Fields("VALO_VEDS_B")),
                        Valor(produto.Fields("VALO_VEDS_C"))};
    for (const char* coluna :
         {"LOCA_FISI_ARMAZEM", "LOCA_FISI_PAVIMENTO", "LOCA_FISI_SETOR", "LOCA_FISI_CORREDOR", "LOCA_FISI_ESTANTE",
          "LOCA_FISI_PRATELEIRA", "DESC_TIPO_PROD", "CODI_REFE_PROD", "data_desa"})
        celulas << produto.Fields(coluna).textOr({});
    return celulas;
}

void frmBROWSE_PRODUTO::cmdPesquisa_Click() {
    MontaGridProdutos();
    MontaConsulta();
    setPointer(screen::Pointer::Hourglass);
    Recordset produtos = AbreLeituraLonga(contexto_, contexto_.SqlConsulta);
    const int total = produtos.RecordCount();
    if (produtos.Eof())
        program().MsgBox(u"Nenhum Registro Localizado com esses parâmetros..."_s);
    for (int linha = 1; !produtos.Eof(); produtos.MoveNext(), ++linha) {
        Flex.AddRow(LinhaProduto(produtos));
        if (linha == std::numeric_limits<qint16>::max()) // the count of rows is 16 bits wide
            throw RuntimeError(errorNumber::Overflow);
        contexto_.platform().progress(linha, total);
    }
    contexto_.platform().progress(0, 0);
    if (Flex.Rows() >= 3)
        Flex.setRow(0);
    setPointer(screen::Pointer::Default);
}

void frmBROWSE_PRODUTO::cmdLimpar_Click() {
    MontaGridProdutos();
    CentralizaForm(*this);
    setCaption(ContextoExecucao::Titulo());
    field(u"SSTab1"_s).setEnabled(true); // a strip that only the callers' screens have: raises 438
}

void frmBROWSE_PRODUTO::GuardaUltimaBusca() {
    contexto_.UltimaFormaProduto.clear();
    for (const screen::Option* opcao : {&Option3, &Option2, &Option1})
        if (opcao->value())
            contexto_.UltimaFormaProduto = opcao->name();
    contexto_.UltimoTextoProduto = txtCOD.text();
    contexto_.UltimoVisualizaProduto = chkVisualiza.checked() ? u"Sim"_s : u"Não"_s;
    contexto_.UltimaColecaoProduto = cboCole.text();
}

QString frmBROWSE_PRODUTO::TextoColuna(int coluna) {
    Flex.setCol(coluna);
    return Flex.currentText();
}

/// Paths of the pictures that are named by the product's code.
void frmBROWSE_PRODUTO::MostraImagemLocal(const QString& sufixo) {
    const QString codigo = Trim(TextoColuna(colunaCodigo)) + sufixo;
    contexto_.ImagemProduto = contexto_.CaminhoImagens + codigo + contexto_.ExtensaoImagens;
    contexto_.ImagemProdutoDetalhe = contexto_.CaminhoImagensDetalhe + codigo + contexto_.ExtensaoImagensDetalhe;
}

void frmBROWSE_PRODUTO::Flex_Click() {
    if (Flex.Row() == 0)
        return;
    GuardaUltimaBusca();
    MostraImagemLocal({});
    bool temImagem = ExisteImagemDoCodigo(contexto_, contexto_.CaminhoImagens, contexto_.ImagemProduto);
    if (!temImagem) {
        const QString id = TextoColuna(colunaId);
        contexto_.ImagemProduto = RetornaCaminhoImagem(contexto_, id, u"LocalThumb"_s);
        contexto_.ImagemProdutoDetalhe = RetornaCaminhoImagem(contexto_, id, u"LocalNatural"_s);
        temImagem = ExisteImagemGuardada(contexto_, contexto_.ImagemProduto);
    }
    Image1.loadPicture(temImagem ? contexto_.ImagemProduto : contexto_.ImagemSemFoto);
}

void frmBROWSE_PRODUTO::cmdImagem1_Click(screen::Button& botao) {
    MostraImagemLocal(botao.text() == u"1" ? QString() : u'_' + botao.text());
    const bool temImagem = ExisteImagemDoCodigo(contexto_, contexto_.CaminhoImagens, contexto_.ImagemProduto);
    Image1.loadPicture(temImagem ? contexto_.ImagemProduto : contexto_.ImagemSemFoto);
    for (screen::Button* outro : BotoesImagem()) {
        outro->setBold(false);
        outro->setBackground(screen::colour::ButtonFace);
    }
    botao.setBold(true);
}

/// The large picture opens in the desktop's own viewer.
void frmBROWSE_PRODUTO::Image1_DblClick() {
    if (AbreNaAreaDeTrabalho(contexto_, contexto_.ImagemProdutoDetalhe))
        contexto_.platform().openAddress(
            QUrl::fromLocalFile(screen::Platform::localPath(contexto_.ImagemProdutoDetalhe)).toString());
}

void frmBROWSE_PRODUTO::Flex_DblClick() {
    if (Flex.Row() == 0)
        return;
    contexto_.TopoGridBusca = Flex.TopRow();
    const RetornoProduto* retorno = RetornoDe(contexto_.TelaChamadora, contexto_.TipoConsulta);
    if (retorno && !retorno->fecha)
        return;
    if (!retorno) {
        Unload();
        return;
    }
    screen::Screen& chamadora = contexto_.Tela(contexto_.TelaChamadora);
    for (const EscritaProduto& escrita : retorno->escritas) {
        const QString texto = TextoColuna(escrita.coluna);
        chamadora.field(QString::fromLatin1(escrita.campo)).setText(escrita.aparado ? Trim(texto) : texto);
    }
    Unload();
    if (retorno->foco)
        chamadora.SetFocus(chamadora.field(QString::fromLatin1(retorno->foco)));
}

/// A text inside an element or an attribute in apostrophes.
static QString EscapadoHTML(const QString& texto) {
    return texto.toHtmlEscaped().replace(u'\'', u"&#39;"_s);
}

QString frmBROWSE_PRODUTO::MontaDetalheHTML() {
    QString html = u"<TABLE BORDER CELLPADDING='2'>"_s;
    for (int linha = 1; linha < Flex.Rows(); ++linha) {
        Flex.setRow(linha);
        html += u"<TR style='FONT-WEIGHT: bold; FONT-SIZE: 8pt; FONT-FAMILY: Tahoma; FONT-VARIANT: small'>"_s +
                u"<TD width=30%><P ALIGN=Center>"_s + u"<IMG SRC='"_s +
                EscapadoHTML(LocalizaImagemProduto(contexto_, Flex.currentText())) + u"'></TD>"_s;
        html += u"<TD width=30%>"_s + EscapadoHTML(TextoColuna(colunaCodigo)) + u"</TD>"_s;
        html += u"<TD width=40%>"_s + EscapadoHTML(TextoColuna(colunaDescricao)) + u"</TD>"_s;
        html += u"</TR>"_s;
    }
    return html + u"</TABLE>"_s;
}

void frmBROWSE_PRODUTO::ApagaPaginaProdutos() {
    const QString pagina = contexto_.CaminhoPaginas + u"pesquisa_produtos.html"_s;
    if (contexto_.platform().fileExists(pagina))
        contexto_.platform().removeFile(pagina);
}

} // namespace vorta

#include "person/HistoricoPessoa.h"

#include "base/CampoDelimitado.h"
#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "launch/Lancamento.h"
#include "person/frmPessoas.h"
#include "shared/Consultas.h"
#include "shared/Preenchimento.h"
#include "shared/Totais.h"
#include "shared/Vinculos.h"

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;
using screen::Align;
using screen::Grid;
using screen::Label;

/// The labels below a grid; quotations and service orders count no items.
struct Estatistica {
    Label& primeira;
    Label& ultima;
    Label& documentos;
    Label* itens;
    Label& montante;
};

/// How the documents of a grid are walked: the columns of a header row, and the totals asked for each document.
struct Documento {
    const char* chave;
    const char* numero;
    const char* data;
    double (*total)(ContextoExecucao&, const QString&);
    double (*itens)(ContextoExecucao&, qint32); ///< null where items are not counted
    const char* nota;                           ///< null where no invoice stands on the line
};

double TotalPedido(ContextoExecucao& contexto, const QString& id) {
    QString pedido = id;
    return TotalPedidoVenda(contexto, pedido, u"C"_s);
}

double ItensPedido(ContextoExecucao& contexto, qint32 id) {
    return QtdeItensPedidoVenda(contexto, id, 0);
}

constexpr Documento pedidoVenda{"idPedi_Veds", "nume_pedi", "data_pedi", TotalPedido, ItensPedido, "idnff0"};
constexpr Documento orcamento{"idORCA_VEDS", "idORCA_VEDS", "data_ORCA_VEDS", TotalOrcamento, nullptr, nullptr};
constexpr Documento ordemServico{"idOS_VEDS", "idOS_VEDS", "data_OS", TotalOS, nullptr, nullptr};
constexpr Documento pedidoCompra{"idPedi_comp",     "idPedi_comp",         "data_pedi_comp",
                                 TotalPedidoCompra, QtdeItensPedidoCompra, nullptr};

QString NotaFiscal(ContextoExecucao& contexto, const data::Value& idnff0) {
    return idnff0.isNull() ? u"0"_s : NumeroNota(contexto, idnff0.text());
}

/// Adds a line for each document and fills the statistics. The date labels keep their text when there is no document.
void CarregaDocumentos(ContextoExecucao& contexto, const Statement& comando, const Documento& documento, Grid& grade,
                       const Estatistica& estatistica) {
    int quantos = 0;
    double montante = 0;
    double itens = 0;
    Recordset linhas = AbreLeitura(contexto, comando);
    for (const int todas = linhas.RecordCount(); !linhas.Eof(); linhas.MoveNext()) {
        const QString data = linhas.Fields(documento.data).textOr({});
        const double total = documento.total(contexto, linhas.Fields(documento.chave).text());
        QStringList celulas{linhas.Fields(documento.chave).text(), linhas.Fields(documento.numero).textOr({}), data,
                            FormatAmount(total)};
        if (documento.itens) {
            const double qtde = documento.itens(contexto, linhas.Fields(documento.chave).toInt32());
            celulas << FormatNumber(qtde);
            itens += qtde;
        }
        if (documento.nota)
            celulas << NotaFiscal(contexto, linhas.Fields(documento.nota));
        montante += total;
        if (++quantos == 1)
            estatistica.primeira.setText(data);
        estatistica.ultima.setText(data);
        grade.AddRow(celulas);
        contexto.platform().progress(quantos, todas);
    }
    contexto.platform().progress(0, 0);
    estatistica.documentos.setText(QString::number(quantos));
    if (estatistica.itens)
        estatistica.itens->setText(FormatNumber(itens));
    estatistica.montante.setText(FormatAmount(montante));
}

Estatistica EstatisticaPedidos(frmPessoas& tela) {
    return {tela.lblPrimeiraCompra, tela.lblUltimaCompra, tela.lblQtdeCompras, &tela.lblTotalItensCompras,
            tela.lblMontanteCompras};
}

Estatistica EstatisticaOrcamentos(frmPessoas& tela) {
    return {tela.lblPrimeiraCompraII, tela.lblUltimaCompraII, tela.lblQtdeComprasII, nullptr,
            tela.lblMontanteComprasII};
}

Estatistica EstatisticaOS(frmPessoas& tela) {
    return {tela.lblPrimeiraCompraOS, tela.lblUltimaCompraOS, tela.lblQtdeComprasOS, nullptr,
            tela.lblMontanteComprasOS};
}

Estatistica EstatisticaCompras(frmPessoas& tela) {
    return {tela.lblPrimeiraCompraForn, tela.lblUltimaCompraForn, tela.lblQtdeComprasForn,
            &tela.lblTotalItensComprasForn, tela.lblMontanteComprasForn};
}

void MontaGradeHistClie(frmPessoas& tela) {
    tela.FlexHistClie.reset({{u"ID"_s, 0},
                             {u"Pedido"_s, 1400},
                             {u"Data"_s, 1400},
                             {u"Vr.Liquido"_s, 1400, Align::Right},
                             {u"Qtde.Itens"_s, 1400, Align::Right},
                             {u"NF"_s, 1200}});
}

void MontaGradeHistClieII(frmPessoas& tela) {
    tela.FlexHistClieII.reset(
        {{u"ID"_s, 0}, {u"Orçamento"_s, 1400}, {u"Data"_s, 1400}, {u"Vr.Liquido"_s, 1400, Align::Right}});
}

void MontaGradeHistClieIII(frmPessoas& tela) {
    tela.FlexHistClieIII.reset(
        {{u"ID"_s, 0}, {u"OS"_s, 1400}, {u"Data"_s, 1400}, {u"Vr.Liquido"_s, 1400, Align::Right}});
}

void MontaGradeHistForn(frmPessoas& tela) {
    tela.FlexHistForn.reset({{u"ID"_s, 0},
                             {u"Pedido"_s, 1400},
                             {u"Data"_s, 1400},
                             {u"Vr.Liquido"_s, 1400, Align::Right},
                             {u"Qtde.Itens"_s, 1400, Align::Right}});
}

void MontaGradeHistFornDeta(frmPessoas& tela) {
    tela.FlexHistFornDeta.reset({{u"ID"_s, 0},
                                 {u"Pedido"_s, 1100},
                                 {u"Data"_s, 1100},
                                 {u"Cod.Produto"_s, 1200},
                                 {u"Desc.Produto"_s, 2500},
                                 {u"Vr.Unit."_s, 1000, Align::Right},
                                 {u"Vr.Desc."_s, 1000, Align::Right},
                                 {u"Vr.Liquido"_s, 1100, Align::Right},
                                 {u"Qtde"_s, 800, Align::Right},
                                 {u"Vr.Total"_s, 1100, Align::Right},
                                 {u"Dt.Entrega"_s, 1100},
                                 {u"Qtde.Entregue"_s, 800, Align::Right}});
}

void CarregaHistCliente(frmPessoas& tela, const QString& idclie, const QString& topo, const QString& ordem) {
    Statement& comando = tela.contexto().SqlConsulta;
    comando.clear();
    if (topo.isEmpty() || topo == u"0")
        comando << "SELECT ";
    else
        comando << "SELECT TOP " << topo << " ";
    comando << "CLIE.idClie, PEDI_VEDS.idPEDI_VEDS, PEDI_VEDS.NUME_PEDI, PESS.NOME_CONH, PEDI_VEDS.DATA_PEDI, "
               "PEDI_VEDS.DATA_DESA, PEDI_VEDS.idnff0 FROM CLIE, PEDI_VEDS, PESS "
               "Where CLIE.idClie = PEDI_VEDS.idClie And PESS.IDPESS = CLIE.IDPESS and (PEDI_VEDS.DATA_DESA Is Null) "
               "and clie.idclie = "
            << idclie << " ";
    if (ordem.isEmpty() || ordem == u"SOBE")
        comando << "order by pedi_veds.data_pedi";
    else
        comando << "order by pedi_veds.data_pedi DESC";
    CarregaDocumentos(tela.contexto(), comando, pedidoVenda, tela.FlexHistClie, EstatisticaPedidos(tela));
}

void CarregaHistOrcamentos(frmPessoas& tela, const QString& idclie) {
    Statement& comando = tela.contexto().SqlConsulta;
    comando =
        Statement("SELECT CLIE.idClie, ORCA_VEDS.idORCA_VEDS, ORCA_VEDS.IDORCA_VEDS, PESS.NOME_CONH, "
                  "ORCA_VEDS.DATA_ORCA_VEDS, ORCA_VEDS.DATA_DESA, ORCA_VEDS.idClie FROM CLIE, ORCA_VEDS, PESS "
                  "Where CLIE.idClie = ORCA_VEDS.idClie And PESS.IDPESS = CLIE.IDPESS and (ORCA_VEDS.DATA_DESA Is "
                  "Null) and clie.idclie = ");
    comando << idclie << " order by ORCA_VEDS.DATA_ORCA_VEDS";
    CarregaDocumentos(tela.contexto(), comando, orcamento, tela.FlexHistClieII, EstatisticaOrcamentos(tela));
}

void CarregaHistOS(frmPessoas& tela, const QString& idclie) {
    Statement& comando = tela.contexto().SqlConsulta;
    comando = Statement("SELECT CLIE.idClie, OS_VEDS.idOS_VEDS, OS_VEDS.IDOS_VEDS, PESS.NOME_CONH, OS_VEDS.DATA_OS, "
                        "OS_VEDS.DATA_DESA FROM CLIE, OS_VEDS, PESS "
                        "Where CLIE.idClie = OS_VEDS.idClie And PESS.IDPESS = CLIE.IDPESS and (OS_VEDS.DATA_DESA Is "
                        "Null) and clie.idclie = ");
    comando << idclie << " order by OS_VEDS.DATA_OS";
    CarregaDocumentos(tela.contexto(), comando, ordemServico, tela.FlexHistClieIII, EstatisticaOS(tela));
}

void CarregaHistFornecedor(frmPessoas& tela, const QString& idforn) {
    Statement& comando = tela.contexto().SqlConsulta;
    comando = Statement(
        "SELECT PEDI_COMP.IDPEDI_COMP, PEDI_COMP.DATA_PEDI_COMP, PEDI_COMP.DATA_PREV_ENTG, PEDI_COMP.DATA_REAL_ENTG, "
        "PEDI_COMP.OBSE_PEDI_COMP, USEN.NOME_USER, PESS.NOME_PESS, PEDI_COMP.DATA_DESA FROM FORN, PEDI_COMP, PESS, "
        "USEN "
        "Where FORN.IDFORN = PEDI_COMP.IDFORN And PESS.IDPESS = FORN.IDPESS And PEDI_COMP.USER_INCL = USEN.IDUSEN "
        "And ((PEDI_COMP.DATA_DESA Is Null)) and Forn.idForn = ");
    comando << idforn << " ORDER BY PEDI_COMP.DATA_PEDI_COMP";
    CarregaDocumentos(tela.contexto(), comando, pedidoCompra, tela.FlexHistForn, EstatisticaCompras(tela));
}

QString Valor(const data::Value& valor) {
    return valor.isNull() ? QString() : FormatAmount(valor.number());
}

/// The total is worked out here; the stored one is not looked at.
QStringList LinhaDetalhe(const Recordset& item) {
    const QString pedido = item.Fields("idPedi_comp").text();
    const data::Value qtde = item.Fields("Qtde");
    const data::Value liquido = item.Fields("valo_liqu");
    const bool temTotal = !qtde.isNull() && !liquido.isNull();
    return {pedido,
            pedido,
            item.Fields("data_pedi_comp").textOr({}),
            item.Fields("CODI_PROD").textOr({}),
            item.Fields("desc_prod").textOr({}),
            Valor(item.Fields("valo_unit")),
            Valor(item.Fields("valo_desc")),
            Valor(liquido),
            qtde.textOr({}),
            temTotal ? FormatAmount(qtde.number() * liquido.number()) : QString(),
            item.Fields("DATA_CHEG").textOr({}),
            item.Fields("QTDE_CHEG").textOr({})};
}

void CarregaHistFornecedorDetalhe(frmPessoas& tela, const QString& idforn, const QString& codigoProduto) {
    MontaGradeHistFornDeta(tela);
    Statement& comando = tela.contexto().SqlConsulta;
    comando = Statement(
        "SELECT PEDI_COMP.IDPEDI_COMP, PEDI_COMP.DATA_PEDI_COMP, PEDI_COMP.DATA_PREV_ENTG, PEDI_COMP.DATA_REAL_ENTG, "
        "PEDI_COMP.OBSE_PEDI_COMP, USEN.NOME_USER, PESS.NOME_PESS, PEDI_COMP.DATA_DESA, PEDI_COMP_DETA.QTDE, "
        "PEDI_COMP_DETA.VALO_UNIT, PEDI_COMP_DETA.VALO_DESC, PEDI_COMP_DETA.VALO_LIQU, PEDI_COMP_DETA.VALO_TOTA_LIQU, "
        "PEDI_COMP_DETA.DATA_CHEG, PEDI_COMP_DETA.QTDE_CHEG, PROD.CODI_PROD, PROD.DESC_PROD "
        "FROM FORN, PEDI_COMP, PESS, USEN, PEDI_COMP_DETA, PROD "
        "Where FORN.IDFORN = PEDI_COMP.IDFORN And PESS.IDPESS = FORN.IDPESS And PEDI_COMP.USER_INCL = USEN.IDUSEN "
        "and PEDI_COMP.IDPEDI_COMP = PEDI_COMP_DETA.IDPEDI_COMP and PEDI_COMP_DETA.IDPROD = PROD.IDPROD "
        "And ((PEDI_COMP.DATA_DESA Is Null)) and Forn.idForn = ");
    comando << idforn << " ";
    if (!codigoProduto.isEmpty())
        comando << "and PROD.CODI_PROD = '" << codigoProduto << "' ";
    comando << "ORDER BY PEDI_COMP.DATA_PEDI_COMP";
    for (Recordset itens = AbreLeitura(tela.contexto(), comando); !itens.Eof(); itens.MoveNext())
        tela.FlexHistFornDeta.AddRow(LinhaDetalhe(itens));
}

void CarregaPedidosDaTela(frmPessoas& tela) {
    const QString idclie = VinculoCliente(tela.contexto(), tela.txtRowID.text());
    CarregaHistCliente(tela, idclie, Trim(tela.txtVrTOP.text()), tela.opTopSobe.value() ? u"SOBE"_s : u"DESCE"_s);
}

void cmdPesquisar_Produto_Click(frmPessoas& tela) {
    if (Trim(tela.txtRowID.text()).isEmpty())
        return;
    CarregaHistFornecedorDetalhe(tela, VinculoFornecedor(tela.contexto(), tela.txtRowID.text()),
                                 Trim(tela.cboProduto.text()));
}

} // namespace

void LigaHistorico(frmPessoas& tela) {
    tela.cmdReprocessaHistClieI.Click = [&tela] {
        MontaGradeHistClie(tela);
        CarregaPedidosDaTela(tela);
    };
    tela.cboProduto.DropDown = [&tela] {
        AjustaLarguraLista(tela.cboProduto, 720);
        PreencheListaProdutos(tela.contexto(), tela.cboProduto.text(), tela.cboProduto);
    };
    tela.cboProduto.Click = [&tela] {
        tela.cboProduto.setText(Trim(CampoDelimitadoPor(2, tela.cboProduto.text(), u'|')));
    };
    tela.cmdPesquisar_Produto.Click = [&tela] { cmdPesquisar_Produto_Click(tela); };
}

void MontaGradesHistorico(frmPessoas& tela) {
    MontaGradeHistClie(tela);
    MontaGradeHistClieII(tela);
    MontaGradeHistClieIII(tela);
    MontaGradeHistForn(tela);
    MontaGradeHistFornDeta(tela);
}

void LimpaHistorico(frmPessoas& tela) {
    for (const Estatistica& estatistica : {EstatisticaPedidos(tela), EstatisticaCompras(tela)}) {
        estatistica.primeira.setText({});
        estatistica.ultima.setText({});
        estatistica.documentos.setText(u"0"_s);
        estatistica.itens->setText(u"0"_s);
        estatistica.montante.setText(FormatAmount(0));
    }
    for (const Estatistica& estatistica : {EstatisticaOrcamentos(tela), EstatisticaOS(tela)})
        for (Label* rotulo :
             {&estatistica.primeira, &estatistica.ultima, &estatistica.documentos, &estatistica.montante})
            rotulo->setText({});
}

void CarregaHistoricoPorId(frmPessoas& tela) {
    CarregaPedidosDaTela(tela);
    CarregaHistOrcamentos(tela, VinculoCliente(tela.contexto(), tela.txtRowID.text()));
    CarregaHistOS(tela, VinculoCliente(tela.contexto(), tela.txtRowID.text()));
    CarregaHistFornecedor(tela, VinculoFornecedor(tela.contexto(), tela.txtRowID.text()));
    CarregaHistFornecedorDetalhe(tela, VinculoFornecedor(tela.contexto(), tela.txtRowID.text()), {});
}

void CarregaHistoricoPorCodigoExterno(frmPessoas& tela) {
    CarregaPedidosDaTela(tela);
    CarregaHistFornecedor(tela, VinculoFornecedor(tela.contexto(), tela.txtRowID.text()));
}

} // namespace vorta

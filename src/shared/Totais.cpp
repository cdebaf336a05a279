#include "shared/Totais.h"

#include "base/Literals.h"
#include "launch/AcessoDados.h"
#include "shared/Consultas.h"

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;

double SomaItens(ContextoExecucao& contexto, const Statement& comando) {
    double soma = 0;
    for (Recordset itens = AbreLeituraComoEscrita(contexto, comando); !itens.Eof(); itens.MoveNext())
        soma += itens.Fields("Qtde").number() * itens.Fields("valo_liqu").number();
    return soma;
}

double numeroOuZero(const data::Value& valor) {
    return valor.isNull() ? 0 : valor.number();
}

struct Saldo {
    const char* coluna;
    int sinal;
};
constexpr Saldo saldos[]{
    {"qtde_disp", +1},      {"qtde_disp_0002", +1},   {"QTDE_ESTO_COPR", +1},
    {"QTDE_ESTO_EMB1", +1}, {"QTDE_ESTO_EMB2", +1},   {"QTDE_ESTO_EMB3", +1},
    {"QTDE_PEDI_ABER", -1}, {"qtde_esto_consig", -1}, {"qtde_esto_demonstr", -1},
};

Recordset AbreSaldos(ContextoExecucao& contexto, qint32 idprod, const QString& codiEmpr) {
    Statement comando("SELECT * From prod_empr Where idprod = ");
    comando << idprod << " and codi_empr='" << codiEmpr << "'";
    return AbreLeitura(contexto, comando);
}

} // namespace

double TotalPedidoVenda(ContextoExecucao& contexto, QString& id, const QString& soPendentes) {
    if (id.isEmpty())
        id = u"0"_s;
    Statement comando("SELECT pedi_veds_deta.idpedi_veds, pedi_veds_deta.idprod, pedi_veds_deta.qtde, "
                      "pedi_veds_deta.valo_liqu, pedi_veds_deta.idnff0 FROM pedi_veds_deta "
                      "Where (pedi_veds_deta.idpedi_veds = ");
    comando << id << ") And (pedi_veds_deta.data_desa Is Null) ";
    if (soPendentes == u"S")
        comando << " AND (pedi_veds_deta.idnff0 Is Null)";
    return SomaItens(contexto, comando);
}

double TotalOrcamento(ContextoExecucao& contexto, const QString& id) {
    Statement comando("SELECT * FROM orca_veds_deta Where idorca_veds = ");
    return SomaItens(contexto, comando << id << " And data_desa Is Null");
}

double TotalOS(ContextoExecucao& contexto, const QString& id) {
    Statement comando("SELECT * FROM os_veds_deta Where idos_veds = ");
    return SomaItens(contexto, comando << id << " And data_desa Is Null");
}

double TotalPedidoCompra(ContextoExecucao& contexto, const QString& id) {
    Statement comando("SELECT pedi_comp_deta.idpedi_comp, pedi_comp_deta.idprod, pedi_comp_deta.qtde, "
                      "pedi_comp_deta.valo_liqu FROM pedi_comp_deta Where (pedi_comp_deta.idpedi_comp = ");
    return SomaItens(contexto, comando << id << ") And (pedi_comp_deta.data_desa Is Null)");
}

double QtdeItensPedidoVenda(ContextoExecucao& contexto, qint32 id, qint32 marca) {
    Statement comando("SELECT IDPROD, QTDE From PEDI_VEDS_DETA Where idPEDI_VEDS = ");
    comando << id;
    double soma = 0;
    for (Recordset itens = AbreLeitura(contexto, comando); !itens.Eof(); itens.MoveNext()) {
        const data::Value qtde = itens.Fields("Qtde");
        if (qtde.isNull())
            continue;
        if (marca < 1 || MarcaProduto(contexto, itens.Fields("idProd").text()) == marca)
            soma += qtde.number();
    }
    return soma;
}

double QtdeItensPedidoCompra(ContextoExecucao& contexto, qint32 id) {
    Statement comando("SELECT IDPROD, QTDE From PEDI_COMP_DETA Where idPEDI_COMP = ");
    comando << id;
    double soma = 0;
    for (Recordset itens = AbreLeitura(contexto, comando); !itens.Eof(); itens.MoveNext())
        soma += numeroOuZero(itens.Fields("Qtde"));
    return soma;
}

double EstoqueDisponivel(ContextoExecucao& contexto, qint32 idprod, const QString& codiEmpr) {
    const Recordset registro = AbreSaldos(contexto, idprod, codiEmpr);
    if (registro.Eof())
        return 0;
    double disponivel = 0;
    for (const Saldo& saldo : saldos)
        disponivel += saldo.sinal * numeroOuZero(registro.Fields(saldo.coluna));
    return disponivel;
}

double QtdePedidosAbertos(ContextoExecucao& contexto, qint32 idprod, const QString& codiEmpr) {
    const Recordset registro = AbreSaldos(contexto, idprod, codiEmpr);
    return registro.Eof() ? 0 : numeroOuZero(registro.Fields("QTDE_PEDI_ABER"));
}

} // namespace vorta

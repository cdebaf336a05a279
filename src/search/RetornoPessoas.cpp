#include "search/RetornoPessoas.h"

#include "base/CampoDelimitado.h"
#include "shared/Consultas.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>

namespace vorta {

namespace {

/// Where the value of a write comes from.
enum class Origem {
    Coluna,          ///< the cell of the grid's column
    IdFornecedor,    ///< the supplier of the name in the column
    TabelaPreco,     ///< the customer's price table, by the id written before
    VendedorCliente, ///< the customer's salesperson, likewise
    DadoCliente,     ///< a field of the customer's data
};

/// One write into a field of the caller. `indice` is the grid's column, or the number of the field in the customer's
/// data.
struct Escrita {
    const char* campo;
    Origem origem;
    int indice;
};

/// When the search closes.
enum class Fecha {
    Sempre,
    ComConsulta, ///< only when the caller asked for the role that it needs
};

/// What one group of screens gets.
struct Contrato {
    std::initializer_list<QStringView> chamadoras;
    QStringView consulta; ///< the role word that the writes need; empty for none
    std::span<const Escrita> escritas;
    Fecha fecha;
    const char* foco; ///< the caller's field that gets the focus; none leaves it
};

constexpr int colunaId = 0;
constexpr int colunaDocumento = 1;
constexpr int colunaNome = 2;
constexpr int colunaPapel = 6;
constexpr int colunaCliente = 8;

using enum Origem;

constexpr Escrita idCliente[]{{"txtIdCliente", Coluna, colunaId}};
constexpr Escrita idPessoa[]{{"txtRowID", Coluna, colunaId}};
constexpr Escrita codigo[]{{"txtCodigo", Coluna, colunaId}};
constexpr Escrita documento[]{{"mskCodigo", Coluna, colunaDocumento}};
constexpr Escrita listaCliente[]{{"cboCliente", Coluna, colunaNome}};
constexpr Escrita rotuloCliente[]{{"lblCliente", Coluna, colunaNome}};
constexpr Escrita papelCliente[]{{"txtIdCliente", Coluna, colunaPapel}};
constexpr Escrita rotulosCliente[]{{"lblCliente", Coluna, colunaNome},
                                   {"lblCNPJCPF", Coluna, colunaDocumento},
                                   {"lblidPess", Coluna, colunaId},
                                   {"lblIDCliente", Coluna, colunaCliente}};
constexpr Escrita pedido[]{{"lblCliente", Coluna, colunaNome},
                           {"lblCNPJCPF", Coluna, colunaDocumento},
                           {"lblidPess", Coluna, colunaId},
                           {"lblIDCliente", Coluna, colunaCliente},
                           {"cboTabelaPrecos", TabelaPreco, colunaCliente},
                           {"cboVendedor", VendedorCliente, colunaCliente}};
constexpr Escrita compra[]{{"txtIdFornecedor", Coluna, colunaId}, {"lblFornecedor", Coluna, colunaNome}};
constexpr Escrita recebimento[]{
    {"txtIdFornecedor", Coluna, colunaId}, {"lblFornecedor", Coluna, colunaNome}, {"lblCNPJ", Coluna, colunaDocumento}};
constexpr Escrita contaPagar[]{{"txtIdFornecedor", IdFornecedor, colunaNome}, {"lblFornecedor", Coluna, colunaNome}};
constexpr Escrita notaFiscal[]{{"txtRemetente", DadoCliente, 1}, {"txtEndereco", DadoCliente, 2},
                               {"cboCidade", DadoCliente, 3},    {"txtCEP", DadoCliente, 4},
                               {"txtUF", DadoCliente, 5},        {"txtCNPJ", DadoCliente, 6},
                               {"txtIE", DadoCliente, 7},        {"txtBairro", DadoCliente, 8}};

/// The contract; the first line with the caller's name counts. All callers but the person and customer screens belong
/// to other programs.
constexpr Contrato contratos[]{
    {{u"frmOrcamento"}, {}, idCliente, Fecha::Sempre, "txtIdCliente"},
    {{u"frmPedido", u"frmOrdemServico", u"frmPedidoExpress", u"frmBuffetAtendimento"},
     u"CLIENTE",
     pedido,
     Fecha::Sempre,
     nullptr},
    {{u"frmCartaCreditoClie", u"frmPedidoExpressCash"}, u"CLIENTE", rotulosCliente, Fecha::Sempre, nullptr},
    {{u"frmAgendaCliente"}, {}, listaCliente, Fecha::Sempre, nullptr},
    {{u"frmRelaPedidos"}, u"CLIENTE", rotuloCliente, Fecha::Sempre, nullptr},
    {{u"frmCliente"}, {}, idPessoa, Fecha::Sempre, "txtRowID"},
    {{u"frmClienteExpress", u"frmProspectExpress", u"frmFornecedorExpress", u"frmVendedorExpress",
      u"frmDecoradorExpress", u"frmArquitetoExpress"},
     {},
     idPessoa,
     Fecha::Sempre,
     "txtRowID"},
    {{u"frmPessoas"}, {}, idPessoa, Fecha::Sempre, "txtRowID"},
    {{u"frmClienteTreloga", u"frmMotoristaTreloga"}, {}, documento, Fecha::Sempre, "mskCodigo"},
    {{u"frmRelPedAbe", u"frmRelFatura", u"frmEtiqMDireta"}, {}, idCliente, Fecha::Sempre, "txtIdCliente"},
    {{u"frmRelPedDetalhe", u"frmRelPedCanc"}, {}, idPessoa, Fecha::Sempre, "txtRowID"},
    {{u"frmCompras"}, u"FORNECEDOR", compra, Fecha::ComConsulta, "txtObservacao"},
    {{u"frmRecebi"}, u"FORNECEDOR", recebimento, Fecha::ComConsulta, "txtOrdemCompra"},
    {{u"frmCPagar"}, u"FORNECEDOR", contaPagar, Fecha::ComConsulta, "txtIdFornecedor"},
    {{u"frmCReceber"}, u"CLIENTE", papelCliente, Fecha::ComConsulta, "txtIdCliente"},
    {{u"frmNFGenerica"}, u"CLIENTE", notaFiscal, Fecha::ComConsulta, "txtRemetente"},
    {{u"frmEnviaEmailOrcaPedi"}, {}, codigo, Fecha::Sempre, "txtCodigo"},
};

const Contrato* contratoDe(const QString& chamadora) {
    const auto* achado = std::find_if(std::begin(contratos), std::end(contratos), [&](const Contrato& linha) {
        return std::find(linha.chamadoras.begin(), linha.chamadoras.end(), chamadora) != linha.chamadoras.end();
    });
    return achado == std::end(contratos) ? nullptr : achado;
}

/// Reads the values of the current row, each asked of the database only where a write needs it.
class LinhaEscolhida {
  public:
    LinhaEscolhida(ContextoExecucao& contexto, frmBROWSE_PESSOAS& busca) : contexto_(contexto), busca_(busca) {}

    QString valor(const Escrita& escrita) {
        switch (escrita.origem) {
        case Origem::IdFornecedor:
            return QString::number(vorta::IdFornecedor(contexto_, coluna(escrita.indice)));
        case Origem::TabelaPreco:
            return TabelaPrecoCliente(contexto_, coluna(escrita.indice));
        case Origem::VendedorCliente:
            return vorta::VendedorCliente(contexto_, coluna(escrita.indice));
        case Origem::DadoCliente:
            if (dadosCliente_.isEmpty())
                dadosCliente_ = DadosCliente(contexto_, coluna(colunaPapel));
            return CampoDelimitado(static_cast<qint16>(escrita.indice), dadosCliente_);
        case Origem::Coluna:
            break;
        }
        return coluna(escrita.indice);
    }

  private:
    QString coluna(int indice) {
        busca_.Flex.setCol(indice);
        return busca_.Flex.currentText();
    }

    ContextoExecucao& contexto_;
    frmBROWSE_PESSOAS& busca_;
    QString dadosCliente_;
};

} // namespace

void RetornaPessoa(ContextoExecucao& contexto, frmBROWSE_PESSOAS& busca) {
    const Contrato* contrato = contratoDe(contexto.TelaChamadora);
    if (!contrato)
        return busca.Unload();
    const bool pedida = contrato->consulta.isEmpty() || contexto.TipoConsulta == contrato->consulta;
    if (!pedida) {
        if (contrato->fecha == Fecha::Sempre)
            busca.Unload();
        return;
    }
    screen::Screen& chamadora = contexto.Tela(contexto.TelaChamadora);
    LinhaEscolhida linha(contexto, busca);
    for (const Escrita& escrita : contrato->escritas)
        chamadora.field(QString::fromLatin1(escrita.campo)).setText(linha.valor(escrita));
    busca.Unload();
    if (contrato->foco)
        chamadora.SetFocus(chamadora.field(QString::fromLatin1(contrato->foco)));
}

} // namespace vorta

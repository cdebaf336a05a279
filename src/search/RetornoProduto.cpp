#include "search/RetornoProduto.h"

#include <array>

namespace vorta {

namespace {

constexpr int id = 0;
constexpr int codigo = 1;
constexpr int descricao = 2;

constexpr std::array kitProduto{EscritaProduto{codigo, true, "cboProduto"}};
constexpr std::array codProduto{EscritaProduto{codigo, false, "txtCodProduto"}};
constexpr std::array registro{EscritaProduto{id, false, "txtRowID"}, EscritaProduto{codigo, false, "txtCodigo"}};
constexpr std::array idECodigo{EscritaProduto{id, false, "txtidProdProt"},
                               EscritaProduto{codigo, false, "txtCodProduto"}};
constexpr std::array listaProduto{EscritaProduto{codigo, false, "cboProduto"}};
constexpr std::array moveEstoque{EscritaProduto{codigo, false, "cboProduto"},
                                 EscritaProduto{descricao, false, "lblDescricao"}};
constexpr std::array soCodigo{EscritaProduto{codigo, false, "txtCodigo"}};

constexpr RetornoProduto retornos[]{
    {"frmProduto", "KIT", kitProduto, nullptr},
    {"frmMateriaPrima", "KIT", codProduto, nullptr},
    {"frmProduto", nullptr, registro, nullptr},
    {"frmMateriaPrima", nullptr, registro, nullptr},
    {"frmPrototipo", "PROT", codProduto, "txtCodProduto"},
    {"frmPrototipo", nullptr, {}, nullptr, false},
    {"frmOrcaVeds", nullptr, idECodigo, "txtCodProduto"},
    {"frmPontoVenda", nullptr, idECodigo, "txtCodProduto"},
    {"frmPedido", nullptr, listaProduto, "cboProduto"},
    {"frmOrdemServico", nullptr, listaProduto, "cboProduto"},
    {"frmPedidoExpress", nullptr, listaProduto, "cboProduto"},
    {"frmPedidoExpressCash", nullptr, listaProduto, "cboProduto"},
    {"frmContaMesa", nullptr, listaProduto, "cboProduto"},
    {"frmTransfEstoque", nullptr, listaProduto, "cboProduto"},
    {"frmCaixa", nullptr, listaProduto, "cboProduto"},
    {"frmMoveEstoqueCC", nullptr, moveEstoque, "mskDtmovto"},
    {"frmProjetaCompra", nullptr, codProduto, "txtCodProduto"},
    {"frmMonitorProduto", nullptr, codProduto, "txtCodProduto"},
    {"frmMoveEstoque", nullptr, codProduto, "txtCodProduto"},
    {"frmCompras", nullptr, codProduto, "txtCodProduto"},
    {"frmCotaCompra", nullptr, codProduto, "txtCodProduto"},
    {"frmPesqProdPed", nullptr, codProduto, "txtCodProduto"},
    {"frmCheckNulo", nullptr, codProduto, "txtCodProduto"},
    {"frmRelaNaoAtendido", nullptr, codProduto, "txtCodProduto"},
    {"frmEtiqProduto", nullptr, soCodigo, "txtCodigo"},
    {"frmEtiqProdutoPimaco", nullptr, soCodigo, "txtCodigo"},
    {"frmEtiqProdutoCrystal", nullptr, soCodigo, "txtCodigo"},
    {"frmCorrProdutos", nullptr, soCodigo, "txtCodigo"},
    {"frmNFEntrada", nullptr, soCodigo, "txtCodigo"},
    {"frmNFGenerica", nullptr, soCodigo, "txtCodigo"},
    {"frmPessoas", nullptr, kitProduto, "cboProduto"},
};

} // namespace

const RetornoProduto* RetornoDe(const QString& chamadora, const QString& tipoConsulta) {
    for (const RetornoProduto& retorno : retornos)
        if (chamadora == QLatin1StringView(retorno.chamadora) &&
            (!retorno.tipoConsulta || tipoConsulta == QLatin1StringView(retorno.tipoConsulta)))
            return &retorno;
    return nullptr;
}

} // namespace vorta

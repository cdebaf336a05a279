#pragma once

#include "launch/ContextoExecucao.h"
#include "screen/Screen.h"

namespace vorta {

/// Finds a person by many criteria. Any screen of the ERP may show it: the caller says who it is in `TelaChamadora` and
/// which role it wants in `TipoConsulta`; a double click on a row writes the choice into the caller's fields. The last
/// search comes back at the next opening.
class frmBROWSE_PESSOAS : public screen::Screen {
  public:
    explicit frmBROWSE_PESSOAS(ContextoExecucao& contexto);

    void Load() override;

    /// Empties the grid down to its headers.
    void MontaGridPessoas();

    screen::Label Label2{this, "Label2", QStringLiteral("Pesquisa de Pessoas")};
    screen::ListField cboCod{this, "cboCod"};
    screen::Button cmdPesquisa{this, "cmdPesquisa", QStringLiteral("&Pesquisar")};
    screen::Button cmdLimpar{this, "cmdLimpar", QStringLiteral("&Limpar")};

    // Where to look.
    screen::Option opNome{this, "opNome", QStringLiteral("Nome"), "forma", true};
    screen::Option opFantasia{this, "opFantasia", QStringLiteral("Nome Fantasia"), "forma"};
    screen::Option opCPFCNPJ{this, "opCPFCNPJ", QStringLiteral("CPF/CNPJ"), "forma"};
    screen::Option opCidade{this, "opCidade", QStringLiteral("Cidade"), "forma"};
    screen::Option opUF{this, "opUF", QStringLiteral("Estado"), "forma"};
    screen::Option opTelefone{this, "opTelefone", QStringLiteral("Telefone"), "forma"};
    screen::Option opRamoAtividade{this, "opRamoAtividade", QStringLiteral("Ramo de Atividade"), "forma"};
    screen::Option opCodInterno{this, "opCodInterno", QStringLiteral("Cód.Interno"), "forma"};
    screen::Option opCodExterno{this, "opCodExterno", QStringLiteral("Cód.Externo"), "forma"};

    // How to compare.
    screen::Option opQualquerParte{this, "opQualquerParte", QStringLiteral("Pesquisa Qualquer Posição"), "conteudo",
                                   true};
    screen::Option opCampoInteiro{this, "opCampoInteiro", QStringLiteral("Pesquisa Exata"), "conteudo"};
    screen::Option opInicialCom{this, "opInicialCom", QStringLiteral("Pesquisa Inicia com..."), "conteudo"};

    screen::Check chkVisualiza{this, "chkVisualiza", QStringLiteral("Visualiza os Desativados")};

    // Which role the person must play.
    screen::Option opTodos{this, "opTodos", QStringLiteral("Todos"), "papel", true};
    screen::Option opCliente{this, "opCliente", QStringLiteral("Cliente"), "papel"};
    screen::Option opFornecedor{this, "opFornecedor", QStringLiteral("Fornecedor"), "papel"};
    screen::Option opTransportadora{this, "opTransportadora", QStringLiteral("Transportadora"), "papel"};
    screen::Option opVendedor{this, "opVendedor", QStringLiteral("Vendedor"), "papel"};
    screen::Option opMotorista{this, "opMotorista", QStringLiteral("Motorista"), "papel"};
    screen::Option opArquiteto{this, "opArquiteto", QStringLiteral("Arquiteto"), "papel"};
    screen::Option opDecorador{this, "opDecorador", QStringLiteral("Decorador"), "papel"};
    screen::Option opProspect{this, "opProspect", QStringLiteral("Prospect"), "papel"};

    screen::Grid Flex{this, "Flex"};

  private:
    void DesabilitaPapeis();
    void PresetaPapel();
    bool RestauraBusca();
    void GuardaBusca();
    void PreencheGrid(data::Recordset& registros);

    void cmdPesquisa_Click();
    void cmdLimpar_Click();
    void cboCod_DropDown();
    void Flex_DblClick();

    ContextoExecucao& contexto_;
};

} // namespace vorta

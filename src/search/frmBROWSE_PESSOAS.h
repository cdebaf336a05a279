#pragma once

#include "base/Literals.h"
#include "launch/ContextoExecucao.h"
#include "screen/Screen.h"
#include "shared/Papeis.h"

namespace vorta {

struct FiltroPapel;

/// Finds a person by many criteria. Any screen of the ERP may show it: the caller says who it is in `TelaChamadora` and
/// which role it wants in `TipoConsulta`; a double click on a row writes the choice into the caller's fields. The last
/// search comes back at the next opening.
class frmBROWSE_PESSOAS : public screen::Screen {
  public:
    explicit frmBROWSE_PESSOAS(ContextoExecucao& contexto);

    void Load() override;

    /// Empties the grid down to its headers.
    void MontaGridPessoas();
    /// The option that asks for persons in a role.
    screen::Option& opcaoDe(const Papel& papel) const;

    screen::Label Label2{this, "Label2", u"Pesquisa de Pessoas"_s};
    // The keyboard goes from the text over the search to its result; what empties it is the last.
    screen::ListField cboCod{this, "cboCod"};
    screen::Button cmdPesquisa{this, "cmdPesquisa", u"&Pesquisar"_s};
    screen::Grid Flex{this, "Flex"};

    // Where to look. The frames are labels of their groups, so that they take the colours of the scheme.
    screen::Label grupoFormaDeBusca{this, "grupoFormaDeBusca", u"Forma de Busca"_s};
    screen::Option opNome{this, "opNome", u"Nome"_s, "forma", true};
    screen::Option opFantasia{this, "opFantasia", u"Nome Fantasia"_s, "forma"};
    screen::Option opCPFCNPJ{this, "opCPFCNPJ", u"CPF/CNPJ"_s, "forma"};
    screen::Option opCidade{this, "opCidade", u"Cidade"_s, "forma"};
    screen::Option opUF{this, "opUF", u"Estado"_s, "forma"};
    screen::Option opTelefone{this, "opTelefone", u"Telefone"_s, "forma"};
    screen::Option opRamoAtividade{this, "opRamoAtividade", u"Ramo de Atividade"_s, "forma"};
    screen::Option opCodInterno{this, "opCodInterno", u"Cód.Interno"_s, "forma"};
    screen::Option opCodExterno{this, "opCodExterno", u"Cód.Externo"_s, "forma"};

    // How to compare.
    screen::Label grupoConteudoDaBusca{this, "grupoConteudoDaBusca", u"Conteúdo da Busca"_s};
    screen::Option opQualquerParte{this, "opQualquerParte", u"Pesquisa Qualquer Posição"_s, "conteudo", true};
    screen::Option opCampoInteiro{this, "opCampoInteiro", u"Pesquisa Exata"_s, "conteudo"};
    screen::Option opInicialCom{this, "opInicialCom", u"Pesquisa Inicia com..."_s, "conteudo"};

    screen::Check chkVisualiza{this, "chkVisualiza", u"Visualiza os Desativados"_s};

    // Which role the person must play.
    screen::Label grupoVinculo{this, "grupoVinculo", u"Vínculo"_s};
    screen::Option opTodos{this, "opTodos", u"Todos"_s, "papel", true};
    screen::Option opCliente{this, "opCliente", u"Cliente"_s, "papel"};
    screen::Option opFornecedor{this, "opFornecedor", u"Fornecedor"_s, "papel"};
    screen::Option opTransportadora{this, "opTransportadora", u"Transportadora"_s, "papel"};
    screen::Option opVendedor{this, "opVendedor", u"Vendedor"_s, "papel"};
    screen::Option opMotorista{this, "opMotorista", u"Motorista"_s, "papel"};
    screen::Option opArquiteto{this, "opArquiteto", u"Arquiteto"_s, "papel"};
    screen::Option opDecorador{this, "opDecorador", u"Decorador"_s, "papel"};
    screen::Option opProspect{this, "opProspect", u"Prospect"_s, "papel"};

    screen::Button cmdLimpar{this, "cmdLimpar", u"&Limpar"_s};

  private:
    void DesabilitaPapeis();
    void PresetaPapel();
    bool RestauraBusca();
    void GuardaBusca();
    void PreencheGrid(data::Recordset& registros, const FiltroPapel& filtro);

    void cmdPesquisa_Click();
    void cmdLimpar_Click();
    void cboCod_DropDown();
    void Flex_DblClick();
    void GravaFicha();

    ContextoExecucao& contexto_;
};

} // namespace vorta

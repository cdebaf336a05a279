#pragma once

#include "base/Literals.h"
#include "launch/ContextoExecucao.h"
#include "screen/Screen.h"

namespace vorta {

/// First phase of an inclusion: checks a name and a document against the register before a person is keyed in. Finds
/// nothing: offers to start the inclusion, fills name, kind and document of the calling screen and leaves "[OK]" in
/// `RetornoPesquisa`. Any other way out leaves there what the last lookup or inclusion left.
class frmPESSOAS_INCL : public screen::Screen {
  public:
    explicit frmPESSOAS_INCL(ContextoExecucao& contexto);

    void Load() override;

    screen::Label Label2{this, "Label2", u"Inclusão de Pessoas - Fase 1 (Verificação de Duplicidade de Cadastros)"_s};
    screen::ListField cboCod{this, "cboCod"};
    screen::Option Option1{this, "Option1", u"CNPJ"_s, "documento"};
    screen::Option Option2{this, "Option2", u"CPF"_s, "documento", true};
    screen::MaskedField mskCodigo{this, "mskCodigo", u"###.###.###-##"_s};
    screen::Button cmdPesquisa{this, "cmdPesquisa", u"Verificar"_s};
    screen::Button Command1{this, "Command1", u"Cancelar"_s};
    screen::ListField lstLog{this, "lstLog", false};
    screen::Option opNome{this, "opNome", u"Nome (Razão Social)"_s, "nome", true};
    screen::Option opFantasia{this, "opFantasia", u"Nome Conhecido (Nome Fantasia)"_s, "nome"};

  private:
    /// What the chosen kind of document makes of the person.
    const QString& TipoPessoa() const;
    void AjustaMascaraDocumento();
    bool DocumentoInformado();
    void VerificaDocumento();
    void VerificaNome();
    void LimpaLog();
    bool ConfirmaInclusao();
    void TransportaDados();

    void cmdPesquisa_Click();
    void cboCod_DropDown();
    void mskCodigo_LostFocus();

    ContextoExecucao& contexto_;
};

} // namespace vorta

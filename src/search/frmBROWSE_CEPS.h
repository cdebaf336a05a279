#pragma once

#include "base/Literals.h"
#include "launch/ContextoExecucao.h"
#include "screen/Screen.h"

namespace vorta {

/// Finds street addresses in the postal-code database, whose connection is open only during a search. A double click
/// writes the address into the block of the person screen that `EnderecoAlvoCep` names ("COML", "COBR", "ENTG").
class frmBROWSE_CEPS : public screen::Screen {
  public:
    explicit frmBROWSE_CEPS(ContextoExecucao& contexto);

    void Load() override;

    screen::Label Label2{this, "Label2", u"Pesquisa de CEPS"_s};
    screen::TextField txtCEP{this, "txtCEP"};
    screen::TextField txtEndereco{this, "txtEndereco"};
    screen::ListField cboCidade{this, "cboCidade"}; ///< stands on the screen; no search reads it
    screen::ListField cboUF{this, "cboUF"};         ///< likewise
    screen::Button cmdPesquisa{this, "cmdPesquisa", u"&Pesquisar"_s};
    screen::Grid Flex{this, "Flex"};

  private:
    void MontaGridCeps();
    bool PodePesquisar();
    void Recusa(const QString& mensagem);
    void PreencheGrid(const QString& logradouros);
    void TransfereEndereco();

    void cmdPesquisa_Click();
    void Flex_DblClick();

    ContextoExecucao& contexto_;
};

} // namespace vorta

#pragma once

#include "base/Literals.h"
#include "launch/ContextoExecucao.h"
#include "screen/Screen.h"

namespace vorta {

/// Statistics of the register: how many active rows it and four of its role tables hold, counted once at the opening.
/// Carries the maintenance that looks up the municipal codes of all persons anew.
class frmInfoPess : public screen::Screen {
  public:
    explicit frmInfoPess(ContextoExecucao& contexto);

    void Load() override;

    screen::Label Label1{this, "Label1", u"Tabela"_s};
    screen::Label Label2{this, "Label2", u"Qt.Registros Ativos"_s};
    screen::Label lblDesc1{this, "lblDesc1"};
    screen::Label lblQt1{this, "lblQt1"};
    screen::Label lblDesc2{this, "lblDesc2"};
    screen::Label lblQt2{this, "lblQt2"};
    screen::Label lblDesc3{this, "lblDesc3"};
    screen::Label lblQt3{this, "lblQt3"};
    screen::Label lblDesc4{this, "lblDesc4"};
    screen::Label lblQt4{this, "lblQt4"};
    screen::Label lblDesc5{this, "lblDesc5"};
    screen::Label lblQt5{this, "lblQt5"};
    screen::Label lblDesc6{this, "lblDesc6"};
    screen::Label lblQt6{this, "lblQt6"};
    screen::Label lblDescSemVinc{this, "lblDescSemVinc"};
    screen::Label lblQtSemVinc{this, "lblQtSemVinc"};
    screen::Label lblDataHora{this, "lblDataHora"};
    // The way out takes the first focus, never the button that rewrites every person.
    screen::Button cmdSAIR{this, "cmdSAIR", u"Sai&r"_s};
    screen::Button cmdEspecialMun{this, "cmdEspecialMun", u"Especial Municipios"_s};

  private:
    void ContaRegistros();
    void CalculaSemVinculo();
    void cmdEspecialMun_Click();

    ContextoExecucao& contexto_;
};

/// Makes the screen known to the register.
void RegistraTelasManutencao(ContextoExecucao& contexto);

} // namespace vorta

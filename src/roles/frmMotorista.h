#pragma once

#include "base/Literals.h"
#include "roles/TelaPapel.h"

namespace vorta {

/// A person's data as a driver. The screen keeps the person's back-reference `idMOTO` by itself, since no direct link
/// does.
class frmMotorista : public TelaPapel {
  public:
    explicit frmMotorista(ContextoExecucao& contexto);

    screen::MaskedField mskDtAdmissao{this, "mskDtAdmissao", u"##/##/####"_s};
    screen::TextField txtCNH{this, "txtCNH"};
    screen::TextField txtProntuario{this, "txtProntuario"};
    screen::ListField cboUF_Emitente{this, "cboUF_Emitente"};
    screen::TextField txtPai0Moto{this, "txtPai0Moto"};
    screen::TextField txtMae0Moto{this, "txtMae0Moto"};
    screen::TextField txtRefeMoto{this, "txtRefeMoto"};

  protected:
    data::Statement MontaInsert(std::optional<qint32> id) override;
    data::Statement MontaUpdate(qint32 id) override;
    void CarregaCampos(const data::Recordset& registro) override;
};

} // namespace vorta

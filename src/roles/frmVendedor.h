#pragma once

#include "base/Literals.h"
#include "roles/TelaPapel.h"

namespace vorta {

/// The pay terms of a person as a salesperson.
class frmVendedor : public TelaPapel {
  public:
    explicit frmVendedor(ContextoExecucao& contexto);

    screen::MaskedField mskDtAdmissao{this, "mskDtAdmissao", u"##/##/####"_s};
    screen::TextField txtSalFixo{this, "txtSalFixo"};
    screen::TextField txtPercPool{this, "txtPercPool"};
    screen::TextField txtPercIndi{this, "txtPercIndi"};

  protected:
    data::Statement MontaInsert(std::optional<qint32> id) override;
    data::Statement MontaUpdate(qint32 id) override;
    void CarregaCampos(const data::Recordset& registro) override;
    void CompletaCampos() override;
};

} // namespace vorta

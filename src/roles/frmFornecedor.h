#pragma once

#include "base/Literals.h"
#include "roles/TelaPapel.h"

namespace vorta {

/// The purchase conditions of a person as a supplier.
class frmFornecedor : public TelaPapel {
  public:
    explicit frmFornecedor(ContextoExecucao& contexto);

    screen::MaskedField mskDtCredencial{this, "mskDtCredencial", u"##/##/####"_s};
    screen::TextField txtLimiCred{this, "txtLimiCred"};
    screen::TextField txtDescontoFornecedor{this, "txtDescontoFornecedor"};
    BlocoContatos contatos{*this, regrasContatos()};

  protected:
    data::Statement MontaInsert(std::optional<qint32> id) override;
    data::Statement MontaUpdate(qint32 id) override;
    void CarregaCampos(const data::Recordset& registro) override;

  private:
    /// The discount as a statement carries it; one left empty becomes "0.00" on the screen too.
    QString Desconto();
};

} // namespace vorta

#pragma once

#include "base/Literals.h"
#include "roles/TelaPapel.h"

namespace vorta {

/// The role row of a person as a carrier: a date of credential and contacts.
class frmTransportadora : public TelaPapel {
  public:
    explicit frmTransportadora(ContextoExecucao& contexto);

    screen::MaskedField mskDtCredencial{this, "mskDtCredencial", u"##/##/####"_s};
    BlocoContatos contatos{*this, regrasContatos()};

  protected:
    data::Statement MontaInsert(std::optional<qint32> id) override;
    data::Statement MontaUpdate(qint32 id) override;
    void CarregaCampos(const data::Recordset& registro) override;
};

} // namespace vorta

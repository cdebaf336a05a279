#pragma once

#include "roles/TelaComissionado.h"

namespace vorta {

/// The record of a person as an architect.
class frmArquiteto : public TelaComissionado {
  public:
    explicit frmArquiteto(ContextoExecucao& contexto)
        : TelaComissionado(contexto, papelArquiteto, {"txtCREA", "arqt_crea"}) {}
};

} // namespace vorta

#pragma once

#include "roles/TelaComissionado.h"

namespace vorta {

/// The record of a person as a decorator.
class frmDecorador : public TelaComissionado {
  public:
    explicit frmDecorador(ContextoExecucao& contexto)
        : TelaComissionado(contexto, papelDecorador, {"txtADD", "deco_add0"}) {}
};

} // namespace vorta

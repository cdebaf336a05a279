#pragma once

#include "launch/ContextoExecucao.h"

namespace vorta {

/// A person's sheet as a page of HTML: all fields of the screen as a load shows them, contacts, branches of activity
/// and roles in force. The screens and what they have remembered stay as they are. Empty for a person that is gone.
QString FichaPessoa(ContextoExecucao& contexto, const QString& idpess);

} // namespace vorta

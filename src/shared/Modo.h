#pragma once

#include "launch/ContextoExecucao.h"

namespace vorta {

/// What is being done with the record on the screen. All screens share one mode, which other programs of the ERP read
/// as the text in `ModoTela`.
enum class Modo { Ocioso, Inclusao, Alteracao };

/// Anything but "I" and "A" is idle.
Modo ModoAtual(const ContextoExecucao& contexto);
void MudaModo(ContextoExecucao& contexto, Modo modo);

} // namespace vorta

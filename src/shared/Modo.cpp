#include "shared/Modo.h"

#include "base/Literals.h"

namespace vorta {

Modo ModoAtual(const ContextoExecucao& contexto) {
    if (contexto.ModoTela == u"I")
        return Modo::Inclusao;
    return contexto.ModoTela == u"A" ? Modo::Alteracao : Modo::Ocioso;
}

void MudaModo(ContextoExecucao& contexto, Modo modo) {
    contexto.ModoTela = modo == Modo::Inclusao ? u"I"_s : modo == Modo::Alteracao ? u"A"_s : u" "_s;
}

} // namespace vorta

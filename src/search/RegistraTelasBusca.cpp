#include "search/RegistraTelasBusca.h"

#include "search/frmBROWSE_CEPS.h"
#include "search/frmBROWSE_PESSOAS.h"
#include "search/frmBROWSE_PRODUTO.h"
#include "search/frmPESSOAS_INCL.h"

namespace vorta {

namespace {

template <typename Tela>
void Registra(ContextoExecucao& contexto, const char* nome) {
    contexto.RegistraTela(QString::fromLatin1(nome),
                          [](ContextoExecucao& dono) { return std::make_unique<Tela>(dono); });
}

} // namespace

void RegistraTelasBusca(ContextoExecucao& contexto) {
    Registra<frmBROWSE_PESSOAS>(contexto, "frmBROWSE_PESSOAS");
    Registra<frmBROWSE_PRODUTO>(contexto, "frmBROWSE_PRODUTO");
    Registra<frmPESSOAS_INCL>(contexto, "frmPESSOAS_INCL");
    Registra<frmBROWSE_CEPS>(contexto, "frmBROWSE_CEPS");
}

} // namespace vorta

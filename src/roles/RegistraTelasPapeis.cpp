#include "roles/RegistraTelasPapeis.h"

#include "roles/frmArquiteto.h"
#include "roles/frmCliente.h"
#include "roles/frmDecorador.h"
#include "roles/frmFornecedor.h"
#include "roles/frmMotorista.h"
#include "roles/frmTransportadora.h"
#include "roles/frmVendedor.h"

namespace vorta {

namespace {

template <typename Tela>
void Registra(ContextoExecucao& contexto, TipoPapel papel) {
    contexto.RegistraTela(QString::fromLatin1(PapelDe(papel).tela),
                          [](ContextoExecucao& dono) { return std::make_unique<Tela>(dono); });
}

} // namespace

void RegistraTelasPapeis(ContextoExecucao& contexto) {
    Registra<frmCliente>(contexto, TipoPapel::Cliente);
    Registra<frmFornecedor>(contexto, TipoPapel::Fornecedor);
    Registra<frmTransportadora>(contexto, TipoPapel::Transportadora);
    Registra<frmMotorista>(contexto, TipoPapel::Motorista);
    Registra<frmVendedor>(contexto, TipoPapel::Vendedor);
    Registra<frmArquiteto>(contexto, TipoPapel::Arquiteto);
    Registra<frmDecorador>(contexto, TipoPapel::Decorador);
}

} // namespace vorta

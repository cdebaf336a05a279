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
void Registra(ContextoExecucao& contexto, const PapelTela& papel) {
    contexto.RegistraTela(QString::fromLatin1(papel.tela),
                          [](ContextoExecucao& dono) { return std::make_unique<Tela>(dono); });
}

} // namespace

void RegistraTelasPapeis(ContextoExecucao& contexto) {
    Registra<frmCliente>(contexto, papelCliente);
    Registra<frmFornecedor>(contexto, papelFornecedor);
    Registra<frmTransportadora>(contexto, papelTransportadora);
    Registra<frmMotorista>(contexto, papelMotorista);
    Registra<frmVendedor>(contexto, papelVendedor);
    Registra<frmArquiteto>(contexto, papelArquiteto);
    Registra<frmDecorador>(contexto, papelDecorador);
}

} // namespace vorta

#include "app/Register.h"

#include "firebird/FirebirdAdapter.h"
#include "maintenance/frmInfoPess.h"
#include "odbc/OdbcAdapter.h"
#include "person/frmPessoas.h"
#include "roles/RegistraTelasPapeis.h"
#include "search/RegistraTelasBusca.h"

namespace vorta {

namespace {

std::unique_ptr<data::Adapter> MakeAdapter(data::Engine engine) {
    return engine == data::Engine::Firebird ? data::MakeFirebirdAdapter() : data::MakeOdbcAdapter();
}

} // namespace

Register::Register(screen::Platform& platform, data::StatementTrace trace)
    : program_(platform), contexto_(program_, MakeAdapter, std::move(trace)), user_(program_) {
    contexto_.RegistraTela(startScreen(),
                           [](ContextoExecucao& contexto) { return std::make_unique<frmPessoas>(contexto); });
    RegistraTelasBusca(contexto_);
    RegistraTelasPapeis(contexto_);
    RegistraTelasManutencao(contexto_);
}

QString Register::startScreen() {
    return QStringLiteral("frmPessoas");
}

void Register::start(const QString& launchString) {
    program_.dispatch([&] {
        contexto_.LinhaComando = launchString;
        contexto_.MostraTela(startScreen());
        program_.End();
    });
}

} // namespace vorta

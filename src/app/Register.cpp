#include "app/Register.h"

#include "base/Literals.h"
#include "firebird/FirebirdAdapter.h"
#include "maintenance/frmInfoPess.h"
#include "odbc/OdbcAdapter.h"
#include "person/FichaPessoa.h"
#include "person/frmPessoas.h"
#include "roles/RegistraTelasPapeis.h"
#include "search/RegistraTelasBusca.h"

namespace vorta {

Register::Register(screen::Platform& platform, data::StatementTrace trace, Between between)
    : between_(std::move(between)), program_(platform),
      contexto_(
          program_,
          [this](data::Engine engine) {
              std::unique_ptr<data::Adapter> adapter = makeAdapter(engine);
              return between_ && adapter ? between_(std::move(adapter)) : std::move(adapter);
          },
          std::move(trace)),
      user_(program_) {
    contexto_.RegistraTela(startScreen(),
                           [](ContextoExecucao& contexto) { return std::make_unique<frmPessoas>(contexto); });
    RegistraTelasBusca(contexto_);
    RegistraTelasPapeis(contexto_);
    RegistraTelasManutencao(contexto_);
    contexto_.FichaPessoa = [this](const QString& idpess) { return FichaPessoa(contexto_, idpess); };
}

QString Register::launchStringOf(const QStringList& arguments) {
    return arguments.mid(1).join(u' ');
}

QString Register::startScreen() {
    return u"frmPessoas"_s;
}

std::unique_ptr<data::Adapter> Register::makeAdapter(data::Engine engine) {
    switch (engine) {
    case data::Engine::Firebird:
        return data::MakeFirebirdAdapter(std::exchange(whileOpening_, {}));
    case data::Engine::SqlServer:
        return data::MakeOdbcAdapter();
    }
    return nullptr;
}

void Register::start(const QString& launchString) {
    whileOpening_ = [this] { program_.platform().prepare(contexto_.Tela(startScreen())); };
    program_.dispatch([&] {
        contexto_.LinhaComando = launchString;
        contexto_.MostraTela(startScreen());
        program_.End();
    });
    program_.platform().dropPrepared();
}

} // namespace vorta

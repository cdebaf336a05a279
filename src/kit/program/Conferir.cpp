#include "app/Register.h"
#include "audit/MunicipalCodes.h"
#include "base/RuntimeError.h"
#include "kit/Bases.h"
#include "kit/program/Command.h"
#include "launch/ConectaServidor.h"
#include "shared/TipoDocumento.h"

#include <functional>
#include <memory>
#include <utility>

namespace vorta::program {

namespace {

/// The register's outside world for a command: boxes are lines, and no screen is ever shown.
class CommandPlatform : public screen::Platform {
  public:
    explicit CommandPlatform(QString home) : home_(std::move(home)) {}

    screen::Answer messageBox(const screen::Box& box) override {
        Say(stderr, box.text);
        return screen::Answer::OK;
    }
    void runModal(screen::Screen&) override {}
    void openAddress(const QString&) override {}
    QString home() const override { return home_; }

  private:
    QString home_;
};

/// Puts the codes in and says how many.
Outcome fillCodes(data::Connection& connection, const Arguments& arguments) {
    const bool writes = arguments.has(u"--grava"_s);
    const QString path = arguments.value(u"--csv"_s);
    const auto sheet = path.isEmpty() ? nullptr : std::make_unique<audit::Sheet>(path, audit::FilledCodesTitles());
    audit::CodesFilled filled;
    {
        ProgressLine progress;
        try {
            filled = audit::FillMunicipalCodes(connection, writes, sheet.get(), std::ref(progress));
        } catch (const RuntimeError&) {
            // What has been committed before stays, and its report with it.
            if (sheet)
                sheet->commit();
            throw;
        }
    }
    if (sheet)
        sheet->commit();
    Say(stdout, (writes ? u"%1 código(s) de município preenchido(s)"_s
                        : u"%1 código(s) de município seriam preenchidos; repita com --grava para gravar"_s)
                    .arg(filled.filled));
    Say(stdout,
        u"%1 endereço(s) sem código ficam como estão, por faltar a cidade ou o estado"_s.arg(filled.withoutTown));
    Say(stdout, u"%1 endereço(s) sem código ficam como estão, por o estado não ter a cidade"_s.arg(filled.unknownTown));
    return succeeded;
}

Outcome review(ContextoExecucao& contexto, const Arguments& arguments) {
    audit::Report report(arguments.value(u"--csv"_s), arguments.value(u"--html"_s));
    audit::Extent extent;
    {
        ProgressLine progress;
        extent = audit::AuditRegister(contexto.principal(), CNPJAlfanumerico(contexto), report, std::ref(progress));
    }
    report.finish(u"Conferência do cadastro, base %1"_s.arg(contexto.Ambiente), extent, QDateTime::currentDateTime());
    Say(stdout, u"Base %1: %2 pessoas conferidas, %3 delas desativadas"_s.arg(contexto.Ambiente)
                    .arg(extent.persons)
                    .arg(extent.deactivated));
    for (const QString& line : report.table())
        Say(stdout, line);
    Say(stdout, report.total() == 0 ? u"Nada a corrigir"_s : u"%1 achado(s)"_s.arg(report.total()));
    return report.total() == 0 ? succeeded : failed;
}

} // namespace

std::optional<Outcome> Conferir(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--base"_s, u"--csv"_s, u"--html"_s},
                              {u"--corrige-municipios"_s, u"--grava"_s});
    const bool fills = arguments.has(u"--corrige-municipios"_s);
    if (!arguments.right(0) || arguments.base() == u"CEP" || (fills && arguments.has(u"--html"_s)) ||
        (!fills && arguments.has(u"--grava"_s)))
        return std::nullopt;
    RequireInstallation(arguments.home());
    CommandPlatform platform(arguments.home());
    Register cadastro(platform);
    ContextoExecucao& contexto = cadastro.context();
    contexto.Ambiente = arguments.base();
    if (!cadastro.program().dispatch([&] { ConectaServidor(contexto); }))
        return failed;
    if (!contexto.ConexaoPrincipal || !contexto.ConexaoPrincipal->IsOpen())
        throw RuntimeError(errorNumber::ConnectionFailed, u"A base %1 não pôde ser aberta"_s.arg(contexto.Ambiente));
    return fills ? fillCodes(contexto.principal(), arguments) : review(contexto, arguments);
}

} // namespace vorta::program

#include "base/EngineWatch.h"
#include "base/RuntimeError.h"
#include "importer/Run.h"
#include "kit/ConfigFiles.h"
#include "kit/program/Command.h"

#include <cstdlib>

namespace vorta::program {

namespace {

void SayOutcome(const importer::Order& order, const importer::Summary& summary) {
    Say(stdout, order.trial ? u"Ensaio: nada foi gravado"_s : u"Importação de %1"_s.arg(order.file));
    Say(stdout, (order.trial ? u"%1 pessoa(s) a incluir"_s : u"%1 pessoa(s) incluída(s)"_s).arg(summary.entered));
    Say(stdout, u"%1 já cadastrada(s)"_s.arg(summary.known));
    Say(stdout, u"%1 recusada(s)"_s.arg(summary.refused));
    if (!summary.refusedFile.isEmpty())
        Say(stdout, u"As recusadas, com o motivo, estão em %1"_s.arg(summary.refusedFile));
    if (order.trial && summary.entered > 0)
        Say(stdout, u"Para gravar, repita o comando com --grava"_s);
}

} // namespace

std::optional<Outcome> Importar(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--colunas"_s, u"--chamada"_s}, {u"--grava"_s});
    if (!arguments.right(1))
        return std::nullopt;
    RequireInstallation(arguments.home());
    importer::Order order;
    order.home = kit::Layout(arguments.home()).home;
    order.launchString = arguments.value(u"--chamada"_s, u"1^1^PRD^False^"_s);
    order.file = arguments.rest().front();
    order.names = arguments.value(u"--colunas"_s);
    order.trial = !arguments.has(u"--grava"_s);
    importer::Summary summary;
    const EngineWatch watch([](int seconds, const auto& over) { return TellAndWait(seconds, over); },
                            [] { std::_Exit(failed); });
    try {
        ProgressLine progress;
        importer::ImportPersons(order, summary, std::ref(progress));
    } catch (const RuntimeError&) {
        if (!order.trial && summary.entered > 0)
            Say(stderr,
                u"A importação parou depois de %1 pessoa(s) incluída(s). Repita o comando para continuar: as já "
                "incluídas não se repetem"_s.arg(summary.entered));
        throw;
    }
    SayOutcome(order, summary);
    return summary.refused == 0 ? succeeded : failed;
}

} // namespace vorta::program

#include "kit/Indexes.h"

#include "kit/Ddl.h"
#include "kit/program/Command.h"
#include "system/Session.h"

namespace vorta::program {

std::optional<Outcome> Indexes(const QStringList& words) {
    if (data::EngineNamed(words.value(0)) == data::Engine::SqlServer && words.size() == 1) {
        system::Write(stdout, kit::SqlServerIndexScript());
        return succeeded;
    }
    const Arguments arguments(words, {u"--home"_s, u"--base"_s});
    if (!arguments.right(0))
        return std::nullopt;
    RequireInstallation(arguments.home());
    ProgressLine progress;
    const kit::IndexDifference done = kit::UpdateIndexes(arguments.home(), arguments.base(), std::ref(progress));
    for (const QString& name : done.surplus)
        Say(stdout, u"removido: %1"_s.arg(name));
    for (const kit::Index& index : done.missing)
        Say(stdout, u"criado: %1"_s.arg(kit::IndexWords(index)));
    Say(stdout, u"Base %1: os índices estão em dia"_s.arg(arguments.base()));
    return succeeded;
}

} // namespace vorta::program

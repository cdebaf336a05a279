#include "kit/Upgrade.h"

#include "kit/program/Command.h"

namespace vorta::program {

std::optional<Outcome> Upgrade(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s});
    if (!arguments.right(0))
        return std::nullopt;
    RequireInstallation(arguments.home());
    const qint64 changed = kit::UpgradeInstallation(arguments.home());
    Say(stdout, changed == 0 ? u"Nada a mudar"_s : u"%1 nome(s) com apóstrofo corrigido(s)"_s.arg(changed));
    return succeeded;
}

} // namespace vorta::program

#include "kit/Copies.h"
#include "kit/program/Command.h"

namespace vorta::program {

std::optional<Outcome> Backup(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--base"_s});
    if (!arguments.right(1))
        return std::nullopt;
    RequireInstallation(arguments.home());
    ProgressLine progress;
    const qint64 size =
        kit::BackUpBase(arguments.home(), arguments.base(), arguments.rest().front(), std::ref(progress));
    Say(stdout, u"Base %1 copiada para %2 (%3 bytes)"_s.arg(arguments.base(), arguments.rest().front()).arg(size));
    return succeeded;
}

} // namespace vorta::program

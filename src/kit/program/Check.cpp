#include "kit/Check.h"

#include "base/RuntimeError.h"
#include "kit/program/Command.h"

namespace vorta::program {

std::optional<Outcome> Check(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s});
    if (!arguments.right(0))
        return std::nullopt;
    RequireInstallation(arguments.home());
    return Report(ProgressLine::Find([&](const kit::Progress& progress) {
        return kit::CheckInstallation(arguments.home(), QDateTime::currentDateTime(), progress);
    }));
}

std::optional<Outcome> Try(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--base"_s});
    if (!arguments.right(0))
        return std::nullopt;
    try {
        kit::CheckBase(arguments.home(), arguments.base());
    } catch (const RuntimeError&) {
        // It is told by who looks for himself.
    }
    return succeeded;
}

} // namespace vorta::program

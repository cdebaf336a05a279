#include "kit/Check.h"

#include "kit/program/Command.h"

namespace vorta::program {

std::optional<Outcome> Check(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s});
    if (!arguments.right(0))
        return std::nullopt;
    RequireInstallation(arguments.home());
    return Report(kit::CheckInstallation(arguments.home()));
}

} // namespace vorta::program

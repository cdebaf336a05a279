#include "kit/Verify.h"

#include "kit/program/Command.h"

namespace vorta::program {

std::optional<Outcome> Verify(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--base"_s});
    if (!arguments.right(0))
        return std::nullopt;
    RequireInstallation(arguments.home());
    return Report(kit::VerifyBase(arguments.home(), arguments.base()));
}

} // namespace vorta::program

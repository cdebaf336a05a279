#include "kit/Verify.h"

#include "kit/program/Command.h"

#include <functional>

namespace vorta::program {

std::optional<Outcome> Verify(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--base"_s});
    if (!arguments.right(0))
        return std::nullopt;
    RequireInstallation(arguments.home());
    const std::vector<kit::Finding> findings = [&] {
        ProgressLine progress;
        std::vector<kit::Finding> found = kit::VerifyBase(arguments.home(), arguments.base(), std::ref(progress));
        progress.stopIfWanted();
        return found;
    }();
    return Report(findings);
}

} // namespace vorta::program

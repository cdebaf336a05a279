#include "kit/PostalCodes.h"
#include "kit/program/Command.h"

#include <functional>

namespace vorta::program {

std::optional<Outcome> Cep(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s});
    if (!arguments.right(1))
        return std::nullopt;
    RequireInstallation(arguments.home());
    kit::ListMistakes mistakes;
    const qint64 loaded = [&] {
        ProgressLine progress;
        return kit::LoadPostalCodeFile(arguments.home(), arguments.rest().front(), mistakes, std::ref(progress));
    }();
    if (mistakes.all == 0) {
        Say(stdout, u"%1 logradouros carregados"_s.arg(loaded));
        return succeeded;
    }
    for (const QString& line : std::as_const(mistakes.lines))
        Say(stderr, line);
    Say(stderr, u"%1 erro(s); nada foi carregado"_s.arg(mistakes.all));
    return failed;
}

} // namespace vorta::program

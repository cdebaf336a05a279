#include "kit/Copies.h"
#include "kit/program/Command.h"

namespace vorta::program {

std::optional<Outcome> Restore(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--base"_s}, {u"--replace"_s});
    if (!arguments.right(1))
        return std::nullopt;
    RequireInstallation(arguments.home());
    ProgressLine progress;
    const kit::Restored restored = kit::RestoreBase(arguments.home(), arguments.base(), arguments.rest().front(),
                                                    arguments.has(u"--replace"_s), std::ref(progress));
    Say(stdout, u"Base %1 restaurada e verificada: %2"_s.arg(arguments.base(), restored.base));
    if (!restored.previous.isEmpty())
        Say(stdout, u"A base anterior ficou em %1; apague-a quando não precisar mais dela"_s.arg(restored.previous));
    if (!restored.line.isEmpty())
        Say(stdout, u"A configuração desta pasta já aponta para a base nova; nas demais máquinas, o sexto campo da "
                    "linha passa a ser:\n%1"_s.arg(restored.line));
    return succeeded;
}

} // namespace vorta::program

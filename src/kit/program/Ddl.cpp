#include "kit/Ddl.h"

#include "kit/program/Command.h"

namespace vorta::program {

std::optional<Outcome> Ddl(const QStringList& words) {
    const std::optional<data::Engine> engine = data::EngineNamed(words.value(0));
    if (!engine || words.size() != 1)
        return std::nullopt;
    std::fputs(kit::Script(*engine).toUtf8().constData(), stdout);
    return succeeded;
}

} // namespace vorta::program

#include "kit/Ddl.h"

#include "kit/program/Command.h"
#include "system/Session.h"

namespace vorta::program {

std::optional<Outcome> Ddl(const QStringList& words) {
    const std::optional<data::Engine> engine = data::EngineNamed(words.value(0));
    if (!engine || words.size() != 1)
        return std::nullopt;
    system::Write(stdout, kit::Script(*engine));
    return succeeded;
}

} // namespace vorta::program

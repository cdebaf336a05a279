#include "kit/Create.h"

#include "kit/program/Command.h"

namespace vorta::program {

std::optional<Outcome> Create(const QStringList& words) {
    const Arguments arguments(words, {u"--home"_s, u"--people"_s, u"--seed"_s}, {u"--demo"_s});
    kit::Contents contents;
    bool peopleRight = true, seedRight = true;
    contents.demo = arguments.has(u"--demo"_s);
    if (arguments.has(u"--people"_s))
        contents.people = arguments.value(u"--people"_s).toLongLong(&peopleRight);
    if (arguments.has(u"--seed"_s))
        contents.seed = arguments.value(u"--seed"_s).toULongLong(&seedRight);
    const bool inRange = contents.people >= 0 && contents.people <= kit::mostPeople;
    if (!arguments.right(0) || !peopleRight || !seedRight || !inRange)
        return std::nullopt;
    ProgressLine progress;
    kit::CreateInstallation(arguments.home(), contents, std::ref(progress));
    Say(stdout, u"Instalação criada em %1"_s.arg(arguments.home()));
    return succeeded;
}

} // namespace vorta::program

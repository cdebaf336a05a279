#include "firebird/OpenFailure.h"

#include "base/Literals.h"
#include "firebird/EngineFiles.h"

#include <QStringList>

namespace vorta::firebird {

namespace {

/// What the engine says besides a code: texts and numbers in the order of its own message.
struct Said {
    QStringList texts;
    QList<int> numbers;
};

/// The engine's words on `code`; nothing when its failure is another.
std::optional<Said> saidOn(const Firebird::IStatus& failure, intptr_t code) {
    std::optional<Said> said;
    for (const intptr_t* item = failure.getErrors(); item[0] != isc_arg_end;
         item += item[0] == isc_arg_cstring ? 3 : 2) {
        if (item[0] == isc_arg_gds && said)
            break;
        if (item[0] == isc_arg_gds && item[1] == code)
            said.emplace();
        else if (said && item[0] == isc_arg_string)
            said->texts << QString::fromUtf8(reinterpret_cast<const char*>(item[1]));
        else if (said && item[0] == isc_arg_number)
            said->numbers << static_cast<int>(item[1]);
    }
    return said;
}

QString nameOf(DiskStructure structure) {
    if (const std::optional<EngineVersion> engine = EngineOf(structure))
        return u"Firebird "_s + engine->name();
    return u"Firebird de estrutura %1.%2"_s.arg(structure.majorNumber).arg(structure.minorNumber);
}

QString wrongVersion(const QString& base, DiskStructure found, DiskStructure supported) {
    const QString maker = nameOf(found);
    const QString here = nameOf(supported);
    if (found > supported)
        return u"A base %1 é do %2, mais novo que o motor em uso, o %3; ela só abre com o %2 ou um mais novo"_s.arg(
            base, maker, here);
    return u"A base %1 é do %2, e o motor em uso é o %3. Para trazê-la, copie-a onde houver o %2 "
           "(pessoas-base backup --home PASTA --base NOME CÓPIA) e restaure a cópia aqui "
           "(pessoas-base restore --home PASTA --base NOME --replace CÓPIA)"_s.arg(base, maker, here);
}

} // namespace

std::optional<QString> OpenFailureWords(const Firebird::IStatus& failure) {
    if (const auto said = saidOn(failure, isc_wrong_ods); said && said->texts.size() == 1 && said->numbers.size() == 4)
        return wrongVersion(said->texts.front(), {said->numbers[0], said->numbers[1]},
                            {said->numbers[2], said->numbers[3]});
    if (saidOn(failure, isc_unavailable) && !EngineIsInstalled())
        return u"O motor do Firebird não está instalado nesta máquina (falta o pacote firebird%1-server-core)"_s.arg(
            EngineInUse().name());
    return std::nullopt;
}

} // namespace vorta::firebird

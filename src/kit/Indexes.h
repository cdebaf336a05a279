#pragma once

#include "kit/Create.h"
#include "kit/Loader.h"

/// The indexes of an existing base: those of another version of the program may be others than the statements of this
/// one ask for. Indexes of other programs, by their names, are left alone.
namespace vorta::kit {

/// What differs: by table, columns and direction, whatever the names.
struct IndexDifference {
    std::vector<Index> missing; ///< asked for, and not there or switched off
    QStringList surplus;        ///< names of those that the kit made once and nothing asks for any more
    bool empty() const { return missing.empty() && surplus.isEmpty(); }
};
/// Compares a base with what is asked for; a table that is not there misses no index.
IndexDifference CompareIndexes(Loader& loader, Base base);
/// An index as a message tells it: "PESS (NOME_PESS)".
QString IndexWords(const Index& index);

/// Removes what is surplus, makes what is missing, and counts the values of all indexes anew, by which the engine
/// chooses between them; gives what differed. Each step stands by itself, so that a run that breaks off can be
/// repeated. Raises in words when the base cannot be opened or others hold its tables.
IndexDifference UpdateIndexes(const QString& home, const QString& base, const Progress& progress = {});

} // namespace vorta::kit

#pragma once

#include "audit/Audit.h"
#include "audit/Report.h"

namespace vorta::audit {

struct CodesFilled {
    qint64 filled = 0;      ///< in a trial: what would be
    qint64 withoutTown = 0; ///< the code is empty, and so is the town or the state
    qint64 unknownTown = 0; ///< the state has no such town
};

/// Fills the municipal codes that are empty where town and state are known; nothing else of a person is touched, and
/// nothing that is null stops it. Unless `writes` it is a trial. Each page of persons is one transaction; a
/// row of the sheet, if there is one, tells each code of a transaction that has been committed.
CodesFilled FillMunicipalCodes(data::Connection& connection, bool writes, Sheet* sheet, const Progress& progress = {});

/// The titles of that sheet.
QStringList FilledCodesTitles();

} // namespace vorta::audit

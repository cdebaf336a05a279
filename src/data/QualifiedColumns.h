#pragma once

#include "data/Statement.h"

namespace vorta::data {

/// The searches of customers, carriers, drivers and salespersons select `idclie`, `idtrpt`, `idmoto` or `idvend` bare
/// from the role's table and `pess`, which has a column of that name too: engines refuse that as ambiguous. Gives the
/// statement with such a column of the select list qualified by the first table of FROM (its alias, if it has one); any
/// other statement unchanged.
Statement QualifyRoleKeys(const Statement& statement);

} // namespace vorta::data

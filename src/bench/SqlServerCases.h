#pragma once

#include "bench/Case.h"

namespace vorta::bench {

/// The SQL Server road against a bare ODBC client, on the server that the variable `VORTA_TEST_SQLSERVER` names by a
/// connection string; no cases without it. The table made there goes with the cases.
std::vector<Case> SqlServerCases();

} // namespace vorta::bench

#pragma once

#include "data/Adapter.h"
#include "odbc/Drivers.h"

namespace vorta::data {

/// The adapter for SQL Server, over Qt's ODBC driver. It takes the connection strings of the engine tags (see
/// `OdbcConnectionString`), needs a `QCoreApplication`, and sends every statement as it stands. A lock held by somebody
/// else ends in -2147217900 after a few seconds; dates with slashes are read year first whatever the language of the
/// login.
std::unique_ptr<Adapter> MakeOdbcAdapter();
/// The same with another driver than this system's.
std::unique_ptr<Adapter> MakeOdbcAdapterFor(const odbc::DriverForm& driver);

} // namespace vorta::data

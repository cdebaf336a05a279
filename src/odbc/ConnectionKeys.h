#pragma once

#include "odbc/Drivers.h"

#include <QString>

namespace vorta::odbc {

/// The connection string for the ODBC driver from one of the forms of the engine tags ("driver={SQL
/// Server};server=...", "Provider=SQLNCLI;Server=...", "Provider=sqloledb;...;Data Source=..."): their keys say the
/// same things by different names. The drivers that they name exist on Windows only, where an OLE DB provider stands
/// for the ODBC driver of its kind. A server may be "name", "name,port" or "name\instance".
QString OdbcConnectionString(const QString& connectionString, const DriverForm& driver = DriverOfThisSystem());

} // namespace vorta::odbc

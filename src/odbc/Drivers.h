#pragma once

/// The ODBC drivers of SQL Server, and how each wants to be spoken to.
namespace vorta::odbc {

struct DriverForm {
    const char* settings; ///< in front of every connection; %1 stands for the driver that the connection string names
    bool portIsKey;       ///< the port of a server has a key of its own; otherwise it stands behind the server's name
    bool bracesDoubled; ///< how a value says that a brace is no end; a driver without it reads to a brace and semicolon
    bool utf8;          ///< texts come in UTF-8; otherwise they are asked for in UTF-16
};

inline constexpr DriverForm freeTds{"DRIVER={FreeTDS};TDS_VERSION=7.4;CLIENTCHARSET=UTF-8;", true, false, true};
inline constexpr DriverForm microsoft{"DRIVER={%1};", false, true, false};

/// The one that is used on this system.
const DriverForm& DriverOfThisSystem();

} // namespace vorta::odbc

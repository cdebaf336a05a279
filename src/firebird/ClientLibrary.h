#pragma once

#include <firebird/Interface.h>

#include <QString>

/// The engine's client library. It is loaded when the first Firebird base is wanted, so that a register on another
/// engine starts without it.
namespace vorta::firebird {

/// The entry points that the register calls; everything else is reached through the first.
struct ClientLibrary {
    Firebird::IMaster* (*masterInterface)();
    /// Writes the five letters of the SQLSTATE of a failure, and a zero, into the first argument.
    void (*sqlState)(char*, const intptr_t*);
    QString folder; ///< where the file lies; empty where the system does not tell
};

/// The library: the file that `VORTA_FBCLIENT` names, or else the one beside the program, or else the one that is
/// installed on the system. Raises -2147467259, with the places that were looked at, when there is none.
const ClientLibrary& Client();

} // namespace vorta::firebird

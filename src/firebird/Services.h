#pragma once

#include "firebird/ConnectionText.h"

#include <QByteArray>
#include <QStringList>

#include <functional>

/// Backup, restore and validation of a base through the engine's service interface: in this process for a base that it
/// opens itself, on the server for a base of a server. The copy travels through this process either way, so its file
/// is always one of this machine. Whatever the engine refuses is a `RuntimeError` with its code.
namespace vorta::firebird {

/// Takes the next bytes of a copy. What it raises ends the work.
using CopySink = std::function<void(QByteArrayView bytes)>;
/// Gives the next bytes of a copy, at most so many; nothing at its end.
using CopySource = std::function<QByteArray(qsizetype most)>;

/// Copies the base as it stands at this moment, while others work with it.
void BackUp(const ConnectionText& base, const CopySink& sink);
/// Makes a new base from a copy; the database must not exist. A failure can leave a part of it.
void Restore(const ConnectionText& base, const CopySource& source);

/// What a validation found.
struct Validation {
    /// The pages and records were looked at while others had the base open: all tables and their indexes, but not the
    /// list of free pages.
    bool shared = false;
    qint64 errors = 0;
    QStringList damaged; ///< tables with errors; known of a shared validation only
    QStringList skipped; ///< tables that somebody held for too long
};
/// The engine's full validation, which needs the base for itself and changes nothing in it.
Validation ValidateAlone(const ConnectionText& base);
/// The validation that runs while others work with the base.
Validation ValidateShared(const ConnectionText& base);

/// Closes a base to everybody; fails when others have it open.
void ShutDown(const ConnectionText& base);
/// Removes a base from its machine, one whose restoration broke off as well.
void Drop(const ConnectionText& base);

} // namespace vorta::firebird

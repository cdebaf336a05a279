#pragma once

#include "kit/Create.h"

#include <QDateTime>

#include <optional>

/// Copies of bases as one file each, made and taken back while the programs are in use. The bases are those that an
/// installation's configuration names, of this machine or of a server; the file is always one of this machine. The
/// embedded engine must have been prepared for `home`. Failures are told in the program's own words.
namespace vorta::kit {

/// Writes a copy of the base, as it stands at this moment, to `file`, which only its owner may read and which must not
/// exist: 58 when it does, 75 when it cannot be written. A copy that breaks off leaves no file. Gives its bytes.
qint64 BackUpBase(const QString& home, const QString& base, const QString& file, const Progress& progress = {});

/// The last copy of a base that this installation has made.
struct Copy {
    QDateTime when;
    QString file;
};
std::optional<Copy> LastCopy(const QString& home, const QString& base);

/// What a restoration has left behind.
struct Restored {
    QString base;     ///< where the restored base stands
    QString previous; ///< where the base that it replaced stands now; empty without one
    QString line;     ///< the connection that other machines' configuration needs now; empty when nothing changed
};
/// Makes the base anew from a copy: in a new file first, which is validated and then takes the base's place in one
/// step, so that a failure leaves everything as it was. A base that is there is replaced only when told to (58), and
/// only while nobody has it open (70). On a server the new base stands under a name of its own beside the old one,
/// which is closed, and the line of the configuration names it.
Restored RestoreBase(const QString& home, const QString& base, const QString& file, bool replace,
                     const Progress& progress = {});

} // namespace vorta::kit

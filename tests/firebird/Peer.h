#pragma once

#include "base/Literals.h"

#include <QString>

namespace vorta::test {

/// The word that makes this test program act as a second program on an embedded database: it adds one row to `logr` and
/// ends.
inline const QString peerWord = u"--peer"_s;
/// The same, but its process ends with the base open, right behind a call of the system that a signal broke off, as it
/// ends when its display goes.
inline const QString peerCutOffWord = u"--peer-cut-off"_s;

} // namespace vorta::test

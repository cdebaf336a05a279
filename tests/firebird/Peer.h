#pragma once

#include "base/Literals.h"

#include <QString>

namespace vorta::test {

/// The word that makes this test program act as a second program on an embedded database: it adds one row to `logr` and
/// ends.
inline const QString peerWord = u"--peer"_s;

} // namespace vorta::test

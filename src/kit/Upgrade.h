#pragma once

#include "kit/Schema.h"

namespace vorta::kit {

class Loader;

/// A column of names that the register offers to be chosen. A chosen name stands between apostrophes in statements, so
/// one that holds an apostrophe ends the program.
struct NameColumn {
    const char* table;
    const char* column;

    /// The rows that an older version of the kit has left with an apostrophe.
    qint64 withApostrophe(Loader& loader) const;
};

/// Those that the kit itself fills in that base.
std::vector<NameColumn> NameColumns(Base base);

/// Brings the data of an installation that an older version has made to the form of today: apostrophes in names to
/// choose from become acute accents, in every base that the installation names and this machine's engine opens. Gives
/// the number of rows changed. The embedded engine must have been prepared for `home`.
qint64 UpgradeInstallation(const QString& home);

} // namespace vorta::kit

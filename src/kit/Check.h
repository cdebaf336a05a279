#pragma once

#include "kit/Progress.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace vorta::kit {

/// One thing that was looked at, in words that an administrator understands; when it is not right, they say what to do.
struct Finding {
    bool right;
    QString words;
};

/// Looks at everything that the register needs from an installation: files and their rights, connections, tables,
/// columns, generators, reference data, pictures, and the age of the last copy at the moment `now`. Changes nothing.
/// The embedded engine must have been prepared for `home`.
std::vector<Finding> CheckInstallation(const QString& home, const QDateTime& now = QDateTime::currentDateTime(),
                                       const Progress& progress = {});

/// The word with which `pessoas-base` looks at one base only and tells nothing but that it has come to the end.
inline constexpr char TryBase[] = "try";
/// The part of it that opens the base of that name.
std::vector<Finding> CheckBase(const QString& home, const QString& name);

} // namespace vorta::kit

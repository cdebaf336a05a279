#pragma once

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
std::vector<Finding> CheckInstallation(const QString& home, const QDateTime& now = QDateTime::currentDateTime());

} // namespace vorta::kit

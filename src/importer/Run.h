#pragma once

#include <QString>
#include <functional>

namespace vorta::importer {

/// What is to be imported, and how.
struct Order {
    QString home;
    QString launchString;
    QString file;
    QString names;     ///< a file that names columns otherwise; empty for none
    bool trial = true; ///< enters every person and undoes it
};

struct Summary {
    qint64 entered = 0; ///< in a trial: would have been
    qint64 known = 0;   ///< were there already
    qint64 refused = 0;
    QString refusedFile; ///< the refused rows with their reasons; empty without any
};

using Progress = std::function<void(const QString& what, qint64 done, qint64 all)>;

/// Enters the persons of a table one by one. The whole file is looked through before the first one; a fault of the file
/// itself raises 13 or 53 and nothing is written. A failure that would meet every person is raised as it comes;
/// `summary` then tells how far the run has come, and a run of the same file goes on from there. Refused rows go to a
/// new file beside the table, in its own columns behind the reason.
void ImportPersons(const Order& order, Summary& summary, const Progress& progress = {});

} // namespace vorta::importer

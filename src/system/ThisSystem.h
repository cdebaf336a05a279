#pragma once

#include <QString>
#include <QStringList>

/// Where things lie on a system, and what they are called there.
namespace vorta::system {

struct System {
    QString home;                  ///< the installation, unless told otherwise
    bool hasDrives = false;        ///< a path may begin with a letter and a colon, and has backslashes
    bool rightsAreNumbers = false; ///< files have an owner, a group and the rights of both
    bool locksAreFiles = false;    ///< the engine keeps its locks in files of a folder, for whoever uses that folder
    QStringList fonts;             ///< for windows where the desktop names none that is there, the best first
    bool namesSqlServerDrivers = false; ///< the drivers that connection strings name are the system's own
    QString clientLibrary;              ///< the engine's client library
    QString modulePrefix;               ///< what the name of a module of the engine begins with
    QString moduleSuffix;               ///< and what it ends with
    QString programSuffix;              ///< what the file name of a program ends with
    QStringList engineFolders;  ///< the engine's parts, from the folder of its client library; %1 is its version
    QStringList programFolders; ///< its programs, the same way
};

const System& ThisSystem();

/// Where the engine's client library may be installed: paths, or names that the system's loader knows.
QStringList InstalledClients();
/// The folder of the file that holds a function of a loaded library; empty when the system does not tell.
QString FolderOfFunction(const void* function);

} // namespace vorta::system

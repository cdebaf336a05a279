#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <span>

/// Which version of the engine is there, what it calls its parts, and where they lie. Nothing else knows the names.
namespace vorta::firebird {

/// The structure of database files on the disk. A version opens the files of its own major number, up to its own minor.
struct DiskStructure {
    int majorNumber;
    int minorNumber;
    auto operator<=>(const DiskStructure&) const = default;
};

/// What differs from version to version. A new version is a row of the table.
struct EngineVersion {
    int number;                   ///< 4 of "4.0"
    const char* provider;         ///< the embedded engine among the "Providers" of a configuration
    DiskStructure structure;      ///< of the files that it makes
    const char* securityDatabase; ///< the file name that it expects for its users
    bool copiesCharacterSets; ///< it takes its character sets from its root folder alone, wherever it is told to look

    QString name() const; ///< "4.0"
};
std::span<const EngineVersion> EngineVersions();
/// The version of the client library in use; one that is newer than the table goes by the last row.
const EngineVersion& EngineInUse();
/// The oldest version that opens files of that structure; nothing when none of the table does.
std::optional<EngineVersion> EngineOf(DiskStructure structure);

/// The folder in which the engine's own parts lie (plugins, character sets); empty when only the client library is
/// installed.
QString EngineFolder();
/// Whether the engine can run inside a process, without a server.
bool EngineIsInstalled();
/// A program of the engine ("firebird", "isql-fb") that takes its root folder from the environment; empty when it is
/// not installed.
QString EngineProgram(const QString& name);

/// A file that a root folder needs: a text of its own or a copy of another file.
struct RootFile {
    QString name;
    QByteArray text;
    QString copyOf;
};
/// What a root folder of our own holds, besides its "firebird.conf", so that the engine finds its own parts from there.
QList<RootFile> EngineRootFiles();

} // namespace vorta::firebird

#include "firebird/EngineFiles.h"

#include "base/Literals.h"
#include "firebird/ClientLibrary.h"
#include "system/ThisSystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <array>

namespace vorta::firebird {

namespace {

/// From the oldest to the newest.
constexpr std::array versions{
    EngineVersion{3, "Engine12", {12, 2}, "security3.fdb", true},
    EngineVersion{4, "Engine13", {13, 0}, "security4.fdb", false},
    EngineVersion{5, "Engine13", {13, 1}, "security5.fdb", false},
};

/// "libfbintl.so" of "fbintl".
QString moduleFile(const QString& name) {
    return system::ThisSystem().modulePrefix + name + system::ThisSystem().moduleSuffix;
}

QString characterSets() {
    return u"intl/"_s + moduleFile(u"fbintl"_s);
}

/// "4.0" of the client library, whose version need not be in the table.
QString clientName() {
    static const unsigned version = Client().masterInterface()->getUtilInterface()->getClientVersion(); // 0x0400
    return u"%1.%2"_s.arg(version >> 8).arg(version & 0xff);
}

/// A place of the engine with the version in it.
QString withVersion(QString place) {
    return place.replace(u"%1"_s, clientName());
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The engine's own configuration file, with the folder that it means by a variable in the variable's place.
QByteArray resolved(const QString& path, const char* variable, const QString& folder) {
    return contentOf(path).replace(variable, QFile::encodeName(folder));
}

/// What the engine's own file says, and every module by its place: some versions look for modules in their root folder.
QByteArray pluginsText(const QString& folder) {
    const QDir modules(folder + u"/plugins"_s);
    QByteArray text = resolved(folder + u"/plugins.conf"_s, "$(dir_plugins)", modules.path());
    for (const QString& module : modules.entryList({moduleFile(u"*"_s)}, QDir::Files)) {
        const QString name = QFileInfo(module).completeBaseName().sliced(system::ThisSystem().modulePrefix.size());
        text += u"\nPlugin = %1 {\n\tModule = %2\n}\n"_s.arg(name, modules.filePath(module)).toUtf8();
    }
    return text;
}

} // namespace

QString EngineVersion::name() const {
    return QString::number(number) + u".0"_s;
}

std::span<const EngineVersion> EngineVersions() {
    return versions;
}

const EngineVersion& EngineInUse() {
    const int number = clientName().section(u'.', 0, 0).toInt();
    const auto row = std::find_if(versions.begin(), versions.end(),
                                  [&](const EngineVersion& version) { return version.number == number; });
    return row == versions.end() ? versions.back() : *row;
}

std::optional<EngineVersion> EngineOf(DiskStructure structure) {
    const auto row = std::find_if(versions.begin(), versions.end(), [&](const EngineVersion& version) {
        return version.structure.majorNumber == structure.majorNumber &&
               version.structure.minorNumber >= structure.minorNumber;
    });
    return row == versions.end() ? std::nullopt : std::optional(*row);
}

QString EngineFolder() {
    static const QString folder = [] {
        const QString& library = Client().folder;
        for (const QString& place : system::ThisSystem().engineFolders)
            if (const QString found = QDir::cleanPath(library + withVersion(place));
                !library.isEmpty() && QFileInfo(found + u"/plugins"_s).isDir())
                return found;
        return QString();
    }();
    return folder;
}

bool EngineIsInstalled() {
    return QFileInfo::exists(EngineFolder() + u"/plugins/"_s + moduleFile(QString::fromLatin1(EngineInUse().provider)));
}

QString EngineProgram(const QString& name) {
    // A distribution may put a script in front of its programs, which leads each of them to a root folder of its own
    // choice; so the program itself is looked for first.
    const QString& library = Client().folder;
    const QString file = name + system::ThisSystem().programSuffix;
    for (const QString& place : system::ThisSystem().programFolders)
        if (const QFileInfo program(library + withVersion(place) + file); program.isExecutable())
            return program.canonicalFilePath();
    const QString inPath = QStandardPaths::findExecutable(name);
    return !inPath.isEmpty() ? inPath : QStandardPaths::findExecutable(name, {u"/usr/sbin"_s});
}

QList<RootFile> EngineRootFiles() {
    const QString folder = EngineFolder();
    if (folder.isEmpty())
        return {};
    QList<RootFile> files{{u"plugins.conf"_s, pluginsText(folder), {}},
                          {u"intl/fbintl.conf"_s, resolved(folder + u"/intl/fbintl.conf"_s, "$(root)", folder), {}}};
    if (EngineInUse().copiesCharacterSets)
        files.append({characterSets(), {}, folder + u'/' + characterSets()});
    return files;
}

} // namespace vorta::firebird

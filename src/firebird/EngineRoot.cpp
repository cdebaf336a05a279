#include "firebird/EngineRoot.h"

#include "base/Journal.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "firebird/EngineFiles.h"
#include "system/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <optional>

namespace vorta::firebird {

namespace {

/// Classic lets several processes share a database file. Without the loopback provider a file that cannot be opened
/// here is not tried once more through a server that happens to run on this machine. A lock whose owner was killed is
/// found out after two seconds.
QByteArray configuration() {
    return QByteArray("ServerMode = Classic\nDefaultDbCachePages = 2048\nDeadlockTimeout = 2\nProviders = Remote,") +
           EngineInUse().provider + '\n';
}

/// Writes a file whole or not at all, since another program may start at the same moment. What cannot be written shows
/// when a database is opened.
void writeFile(const QString& path, const QByteArray& content) {
    QSaveFile saved(path);
    if (saved.open(QIODevice::WriteOnly) && saved.write(content) == content.size())
        saved.commit();
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The engine's parts change with its version, so what the folder holds of them is looked at each time.
void keep(const QDir& root, const RootFile& file) {
    const QFileInfo there(root.filePath(file.name));
    root.mkpath(QFileInfo(file.name).path());
    if (file.copyOf.isEmpty()) {
        if (contentOf(there.filePath()) != file.text)
            writeFile(there.filePath(), file.text);
        return;
    }
    const QFileInfo original(file.copyOf);
    if (!there.exists() || there.size() != original.size() || there.lastModified() < original.lastModified())
        writeFile(there.filePath(), contentOf(file.copyOf));
}

bool isWrittenByOthers(const system::FileState& place) {
    using namespace system::rights;
    const bool ours = place.owner == system::ThisUser() || place.owner == 0;
    const bool safe = place.folder && (place.rights & keptByOwners);
    const bool open =
        (place.rights & everybodyWrites) || ((place.rights & groupWrites) && !system::IsOwnGroup(place.group));
    return !ours || (open && !safe);
}

/// Makes the folder the user's own; none when it cannot be, or others can write it.
bool makeOwn(const QDir& root) {
    const QFile::Permissions owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    return QDir().mkpath(root.path()) && QFile::setPermissions(root.path(), owner) && !OthersCanWrite(root.path());
}

void fill(const QDir& root) {
    keep(root, {u"firebird.conf"_s, configuration(), {}});
    for (const RootFile& file : EngineRootFiles())
        keep(root, file);
}

} // namespace

bool OthersCanWrite(const QString& path) {
    QString place = QFileInfo(path).canonicalFilePath();
    while (!place.isEmpty()) {
        const std::optional<system::FileState> found = system::StateOf(place, system::Links::Themselves);
        if (!found || isWrittenByOthers(*found))
            return true;
        if (QDir(place).isRoot())
            return false;
        place = QFileInfo(place).path();
    }
    return true;
}

QString PrepareEngineRoot() {
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    QDir root(cache + u"/vorta/motor-"_s + EngineInUse().name());
    if (cache.isEmpty() || !makeOwn(root)) {
        if (OthersCanWrite(root.path()) && root.exists())
            Journal(u"%1 pode ser gravada por outros usuários; o motor não carrega nada dela"_s.arg(root.path()));
        static std::optional<QTemporaryDir> ownOfProcess;
        ownOfProcess.emplace(QDir::tempPath() + u"/vorta-motor-XXXXXX"_s);
        root.setPath(ownOfProcess->path());
        if (!ownOfProcess->isValid() || !makeOwn(root))
            throw RuntimeError(errorNumber::ConnectionFailed,
                               u"Não há uma pasta que só este usuário possa gravar para os arquivos do motor do banco "
                               "de dados (%1, %2)"_s.arg(cache, QDir::tempPath()));
    }
    fill(root);
    return root.path();
}

} // namespace vorta::firebird

#include "firebird/LockFiles.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "system/Files.h"
#include "system/ThisSystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace vorta::firebird {

namespace {

using system::FileState;
using system::OpenFile;

/// What the administrator makes in an installation belongs to whom the installation belongs.
void giveToOwnerOf(const QString& around, const QString& folder) {
    if (const auto owner = system::StateOf(around); owner && system::ThisUser() == 0)
        system::GiveTo(folder, owner->owner, owner->group);
}

} // namespace

void MakeLockFolder(const QString& folder) {
    using std::filesystem::perms;
    if (QFileInfo(folder).isDir() || !QDir().mkpath(folder))
        return;
    giveToOwnerOf(QFileInfo(folder).path(), folder);
    // The colleagues of the folder's group open the same databases, so its lock files are theirs too.
    std::error_code notOurs;
    std::filesystem::permissions(
        folder.toStdString(),
        perms::owner_all | perms::group_all | perms::others_read | perms::others_exec | perms::set_gid, notOurs);
}

namespace {

/// What the engine maps for one base: its locks and its list of who is connected.
constexpr qint64 bytesOfABase = 2 << 20;
/// What it wants for itself besides.
constexpr qint64 smallChange = 1 << 16;

[[noreturn]] void refuseFull(const QString& folder) {
    throw RuntimeError(errorNumber::ConnectionFailed,
                       u"O disco da pasta de travas %1 está cheio; libere espaço e tente novamente"_s.arg(folder));
}

/// The engine's files, none of them a link that a colleague has put there.
QStringList filesIn(const QString& folder) {
    QStringList paths;
    for (const QFileInfo& file : QDir(folder).entryInfoList({u"fb*"_s}, QDir::Files | QDir::NoSymLinks | QDir::System))
        paths << file.filePath();
    return paths;
}

/// True for a file that this process has just been given for, as the administrator: root's, or that of the engine's own
/// user.
bool isGivenAway(const FileState& file) {
    static const unsigned engine = system::UserOf("firebird");
    return file.owner == 0 || file.owner == engine;
}

void giveToFolder(OpenFile& file, const FileState& now, const FileState& folder) {
    constexpr unsigned rights = 0660;
    if (!isGivenAway(now) || (now.owner == folder.owner && now.group == folder.group && now.rights == rights))
        return;
    file.giveTo(folder.owner, folder.group);
    file.setRights(rights);
}

/// False when the disk has no room for the whole of the file.
bool isWhole(OpenFile& file, const FileState& now) {
    return now.room >= now.size || file.reserve(now.size);
}

} // namespace

void RequireRoomForLocks(const QString& folder) {
    const std::optional<qint64> room = system::RoomOnDiskOf(folder);
    if (!system::ThisSystem().locksAreFiles || !room || *room >= bytesOfABase + smallChange)
        return;
    // Programs that have it open already have made the room.
    qint64 there = 0;
    for (const QString& path : filesIn(folder))
        if (const std::optional<FileState> file = system::StateOf(path, system::Links::Themselves))
            there += file->room;
    if (there < bytesOfABase && *room + there < bytesOfABase + smallChange)
        refuseFull(folder);
}

void SettleLockFiles(const QString& folder) {
    if (!system::ThisSystem().locksAreFiles)
        return;
    const bool gives = system::ThisUser() == 0;
    const std::optional<FileState> owner = system::StateOf(folder);
    for (const QString& path : filesIn(folder)) {
        OpenFile file(path, OpenFile::How::Write);
        const std::optional<FileState> now = file.state();
        if (!now || !now->plain || now->names != 1)
            continue;
        if (gives && owner)
            giveToFolder(file, *now, *owner);
        if (!isWhole(file, *now))
            refuseFull(folder);
    }
}

} // namespace vorta::firebird

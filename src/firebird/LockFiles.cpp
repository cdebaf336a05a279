#include "firebird/LockFiles.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#endif

namespace vorta::firebird {

namespace {

/// What the administrator makes in an installation belongs to whom the installation belongs.
void giveToOwnerOf([[maybe_unused]] const QString& around, [[maybe_unused]] const QString& folder) {
#ifdef Q_OS_LINUX
    struct stat owner {};
    if (::geteuid() == 0 && ::stat(QFile::encodeName(around).constData(), &owner) == 0)
        (void)!::chown(QFile::encodeName(folder).constData(), owner.st_uid, owner.st_gid);
#endif
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

#ifdef Q_OS_LINUX

namespace {

/// What the engine maps for one base: its locks and its list of who is connected.
constexpr qint64 bytesOfABase = 2 << 20;
/// What it wants for itself besides.
constexpr qint64 smallChange = 1 << 16;
constexpr qint64 blockOfAStat = 512;

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

/// A file that is open for as long as the object lives.
class OpenFile {
  public:
    explicit OpenFile(const QString& path)
        : number_(::open(QFile::encodeName(path).constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)) {}
    ~OpenFile() {
        if (number_ >= 0)
            ::close(number_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    int number() const { return number_; }
    /// What the system knows of it; nothing of what is no plain file of one name.
    std::optional<struct stat> state() const {
        struct stat found {};
        if (number_ < 0 || ::fstat(number_, &found) != 0 || !S_ISREG(found.st_mode) || found.st_nlink != 1)
            return std::nullopt;
        return found;
    }

  private:
    int number_;
};

/// True for a file that this process has just been given for, as the administrator: root's, or that of the engine's own
/// user.
bool isGivenAway(const struct stat& file) {
    static const uid_t engine = [] {
        const passwd* const user = ::getpwnam("firebird");
        return user ? user->pw_uid : uid_t{0};
    }();
    return file.st_uid == 0 || file.st_uid == engine;
}

void giveToFolder(const OpenFile& file, const struct stat& now, const struct stat& folder) {
    constexpr mode_t rights = 0660, all = 07777;
    if (!isGivenAway(now) ||
        (now.st_uid == folder.st_uid && now.st_gid == folder.st_gid && (now.st_mode & all) == rights))
        return;
    (void)!::fchown(file.number(), folder.st_uid, folder.st_gid);
    (void)::fchmod(file.number(), rights);
}

/// False when the disk has no room for the whole of the file.
bool isWhole(const OpenFile& file, const struct stat& now) {
    if (now.st_blocks * blockOfAStat >= now.st_size)
        return true;
    return ::fallocate(file.number(), 0, 0, now.st_size) == 0 || (errno != ENOSPC && errno != EDQUOT);
}

} // namespace

void RequireRoomForLocks(const QString& folder) {
    struct statvfs disk {};
    if (::statvfs(QFile::encodeName(folder).constData(), &disk) != 0)
        return;
    const auto room = static_cast<qint64>(disk.f_bavail) * static_cast<qint64>(disk.f_frsize);
    if (room >= bytesOfABase + smallChange)
        return;
    // Programs that have it open already have made the room.
    qint64 there = 0;
    for (const QString& path : filesIn(folder)) {
        struct stat file {};
        if (::lstat(QFile::encodeName(path).constData(), &file) == 0)
            there += file.st_blocks * blockOfAStat;
    }
    if (there < bytesOfABase && room + there < bytesOfABase + smallChange)
        refuseFull(folder);
}

void SettleLockFiles(const QString& folder) {
    struct stat owner {};
    const bool gives = ::geteuid() == 0 && ::stat(QFile::encodeName(folder).constData(), &owner) == 0;
    for (const QString& path : filesIn(folder)) {
        const OpenFile file(path);
        const std::optional<struct stat> now = file.state();
        if (!now)
            continue;
        if (gives)
            giveToFolder(file, *now, owner);
        if (!isWhole(file, *now))
            refuseFull(folder);
    }
}

#else

void RequireRoomForLocks(const QString&) {}
void SettleLockFiles(const QString&) {}

#endif

} // namespace vorta::firebird

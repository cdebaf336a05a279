#include "system/Files.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace vorta::system {

namespace {

constexpr qint64 blockOfAStat = 512;

FileState toState(const struct stat& found) {
    FileState state;
    state.id = {found.st_dev, found.st_ino};
    state.names = found.st_nlink;
    state.folder = S_ISDIR(found.st_mode);
    state.plain = S_ISREG(found.st_mode);
    state.owner = found.st_uid;
    state.group = found.st_gid;
    state.rights = found.st_mode & rights::all;
    state.size = found.st_size;
    state.room = found.st_blocks * blockOfAStat;
    return state;
}

int descriptor(qintptr handle) {
    return static_cast<int>(handle);
}

short numberOf(OpenFile::Lock mode) {
    switch (mode) {
    case OpenFile::Lock::Exclusive:
        return F_WRLCK;
    case OpenFile::Lock::Shared:
        return F_RDLCK;
    case OpenFile::Lock::None:
        break;
    }
    return F_UNLCK;
}

struct flock wholeFile(short mode) {
    struct flock whole {};
    whole.l_type = mode;
    whole.l_whence = SEEK_SET;
    return whole;
}

} // namespace

std::optional<FileState> StateOf(const QString& path, Links links) {
    struct stat found {};
    const QByteArray name = QFile::encodeName(path);
    const int result = links == Links::Followed ? ::stat(name.constData(), &found) : ::lstat(name.constData(), &found);
    return result == 0 ? std::optional(toState(found)) : std::nullopt;
}

unsigned ThisUser() {
    return ::geteuid();
}

unsigned UserOf(const char* name) {
    const passwd* const user = ::getpwnam(name);
    return user ? user->pw_uid : 0;
}

bool IsOwnGroup(unsigned group) {
    const passwd* const user = ::getpwuid(::geteuid());
    const QByteArray name = user ? user->pw_name : "";
    const ::group* const found = ::getgrgid(group);
    if (group == 0 || !found || name != found->gr_name)
        return group == 0;
    for (char** member = found->gr_mem; *member; ++member)
        if (name != *member)
            return false;
    return true;
}

bool GiveTo(const QString& path, unsigned owner, unsigned group) {
    return ::chown(QFile::encodeName(path).constData(), owner, group) == 0;
}

bool SetRights(const QString& path, unsigned rights) {
    return ::chmod(QFile::encodeName(path).constData(), rights) == 0;
}

void SyncFolder(const QString& path) {
    const int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
}

bool SyncFile(int handle) {
    return ::fsync(handle) == 0;
}

std::optional<qint64> RoomOnDiskOf(const QString& folder) {
    struct statvfs disk {};
    if (::statvfs(QFile::encodeName(folder).constData(), &disk) != 0)
        return std::nullopt;
    return static_cast<qint64>(disk.f_bavail) * static_cast<qint64>(disk.f_frsize);
}

OpenFile::OpenFile(const QString& path, How how, Links links) {
    const int flags = O_NONBLOCK | O_CLOEXEC | (links == Links::Themselves ? O_NOFOLLOW : 0) |
                      (how == How::Read ? O_RDONLY : O_RDWR) | (how == How::MakeNew ? O_CREAT | O_EXCL : 0);
    handle_ = ::open(QFile::encodeName(path).constData(), flags, 0600);
    if (handle_ == none)
        error_ = errno;
}

void OpenFile::close() {
    if (handle_ != none)
        ::close(descriptor(handle_));
    handle_ = none;
}

bool OpenFile::failed() {
    error_ = errno;
    return false;
}

std::optional<FileState> OpenFile::state() const {
    struct stat found {};
    return isOpen() && ::fstat(descriptor(handle_), &found) == 0 ? std::optional(toState(found)) : std::nullopt;
}

bool OpenFile::giveTo(unsigned owner, unsigned group) {
    return ::fchown(descriptor(handle_), owner, group) == 0 || failed();
}

bool OpenFile::setRights(unsigned rights) {
    return ::fchmod(descriptor(handle_), rights) == 0 || failed();
}

bool OpenFile::lock(Lock mode) {
    struct flock whole = wholeFile(numberOf(mode));
    while (::fcntl(descriptor(handle_), F_OFD_SETLK, &whole) != 0) {
        if (errno == EINTR)
            continue;
        error_ = errno == EACCES || errno == EAGAIN ? 0 : errno;
        return false;
    }
    return true;
}

bool OpenFile::isLockedByOthers() {
    struct flock whole = wholeFile(F_WRLCK);
    return ::fcntl(descriptor(handle_), F_OFD_GETLK, &whole) == 0 && whole.l_type != F_UNLCK;
}

// The engine holds every base file that it has open, in whatever program, with a shared lock of this kind.
bool OpenFile::takeFromEngine() {
    return ::flock(descriptor(handle_), LOCK_EX | LOCK_NB) == 0 || failed();
}

QByteArray OpenFile::read(qsizetype most) const {
    QByteArray content(most, '\0');
    const ssize_t length = ::pread(descriptor(handle_), content.data(), static_cast<std::size_t>(most), 0);
    content.truncate(std::max<ssize_t>(length, 0));
    return content;
}

bool OpenFile::replaceContent(const QByteArray& content) {
    const auto length = static_cast<std::size_t>(content.size());
    return (::pwrite(descriptor(handle_), content.constData(), length, 0) == content.size() &&
            ::ftruncate(descriptor(handle_), content.size()) == 0) ||
           failed();
}

bool OpenFile::reserve(qint64 size) {
    return ::fallocate(descriptor(handle_), 0, 0, size) == 0 || (errno != ENOSPC && errno != EDQUOT);
}

} // namespace vorta::system

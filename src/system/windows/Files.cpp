#include "system/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <io.h>
#include <windows.h>

namespace vorta::system {

namespace {

HANDLE toHandle(qintptr handle) {
    return reinterpret_cast<HANDLE>(handle);
}

std::optional<FileState> stateOf(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION found{};
    if (!::GetFileInformationByHandle(handle, &found))
        return std::nullopt;
    FileState state;
    state.id = {found.dwVolumeSerialNumber, quint64(found.nFileIndexHigh) << 32 | found.nFileIndexLow};
    state.names = found.nNumberOfLinks;
    state.folder = found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
    state.plain = !state.folder && ::GetFileType(handle) == FILE_TYPE_DISK;
    state.rights = state.folder ? 0700 : 0600;
    state.size = qint64(quint64(found.nFileSizeHigh) << 32 | found.nFileSizeLow);
    state.room = state.size;
    return state;
}

HANDLE openAs(const QString& path, DWORD access, DWORD share, DWORD how, DWORD flags) {
    const QString native = QDir::toNativeSeparators(path);
    return ::CreateFileW(reinterpret_cast<const wchar_t*>(native.utf16()), access, share, nullptr, how, flags, nullptr);
}

constexpr DWORD everybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD asItself = FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT;

DWORD flagsOf(Links links) {
    return links == Links::Themselves ? asItself : FILE_FLAG_BACKUP_SEMANTICS;
}

} // namespace

std::optional<FileState> StateOf(const QString& path, Links links) {
    const HANDLE handle = openAs(path, FILE_READ_ATTRIBUTES, everybody, OPEN_EXISTING, flagsOf(links));
    if (handle == INVALID_HANDLE_VALUE)
        return std::nullopt;
    const std::optional<FileState> state = stateOf(handle);
    ::CloseHandle(handle);
    return state;
}

// Rights are lists there, which a folder hands on to what is made in it: nothing has to be given to anybody.
unsigned ThisUser() {
    return 0;
}

unsigned UserOf(const char*) {
    return 0;
}

bool IsOwnGroup(unsigned) {
    return true;
}

bool GiveTo(const QString&, unsigned, unsigned) {
    return true;
}

bool SetRights(const QString&, unsigned) {
    return true;
}

void SyncFolder(const QString&) {}

bool SyncFile(int handle) {
    return ::_commit(handle) == 0;
}

std::optional<qint64> RoomOnDiskOf(const QString& folder) {
    const QStorageInfo disk(folder);
    return disk.bytesTotal() > 0 ? std::optional(disk.bytesAvailable()) : std::nullopt;
}

OpenFile::OpenFile(const QString& path, How how, Links links) {
    const DWORD access = how == How::Read ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
    const HANDLE handle =
        openAs(path, access, everybody, how == How::MakeNew ? CREATE_NEW : OPEN_EXISTING, flagsOf(links));
    if (handle == INVALID_HANDLE_VALUE)
        failed();
    else
        handle_ = reinterpret_cast<qintptr>(handle);
}

void OpenFile::close() {
    if (handle_ != none)
        ::CloseHandle(toHandle(handle_));
    handle_ = none;
}

bool OpenFile::failed() {
    error_ = static_cast<int>(::GetLastError());
    return false;
}

std::optional<FileState> OpenFile::state() const {
    return isOpen() ? stateOf(toHandle(handle_)) : std::nullopt;
}

bool OpenFile::giveTo(unsigned, unsigned) {
    return true;
}

bool OpenFile::setRights(unsigned) {
    return true;
}

bool OpenFile::lock(Lock mode) {
    OVERLAPPED whole{};
    constexpr DWORD all = MAXDWORD;
    const HANDLE handle = toHandle(handle_);
    ::UnlockFileEx(handle, 0, all, all, &whole);
    if (mode == Lock::None)
        return true;
    const DWORD flags = LOCKFILE_FAIL_IMMEDIATELY | (mode == Lock::Exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0);
    if (::LockFileEx(handle, flags, 0, all, all, &whole))
        return true;
    const DWORD code = ::GetLastError();
    error_ = code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING ? 0 : static_cast<int>(code);
    return false;
}

bool OpenFile::isLockedByOthers() {
    const bool free = lock(Lock::Exclusive);
    lock(Lock::None);
    return !free;
}

// The engine holds what it has open against everybody who wants it whole.
bool OpenFile::takeFromEngine() {
    const HANDLE alone = ::ReOpenFile(toHandle(handle_), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_DELETE, 0);
    if (alone == INVALID_HANDLE_VALUE)
        return failed();
    ::CloseHandle(toHandle(handle_));
    handle_ = reinterpret_cast<qintptr>(alone);
    return true;
}

QByteArray OpenFile::read(qsizetype most) const {
    QByteArray content(most, '\0');
    OVERLAPPED begin{};
    DWORD length = 0;
    if (!::ReadFile(toHandle(handle_), content.data(), static_cast<DWORD>(most), &length, &begin))
        length = 0;
    content.truncate(length);
    return content;
}

bool OpenFile::replaceContent(const QByteArray& content) {
    OVERLAPPED begin{};
    DWORD written = 0;
    const HANDLE handle = toHandle(handle_);
    const auto length = static_cast<DWORD>(content.size());
    return (::WriteFile(handle, content.constData(), length, &written, &begin) && written == length &&
            ::SetFilePointerEx(handle, LARGE_INTEGER{.QuadPart = content.size()}, nullptr, FILE_BEGIN) &&
            ::SetEndOfFile(handle)) ||
           failed();
}

// Files have their whole room from the beginning.
bool OpenFile::reserve(qint64) {
    return true;
}

} // namespace vorta::system

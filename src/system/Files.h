#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <utility>

/// What systems know of files beyond their content: who they belong to, who may use them, who has them open.
namespace vorta::system {

/// Two paths lead to the same file when these are equal.
struct FileId {
    quint64 device = 0;
    quint64 number = 0;
    bool operator==(const FileId&) const = default;
};

/// Rights as the usual octal numbers. A system that knows other ones gives a file to its owner alone.
namespace rights {
inline constexpr unsigned everybodyReads = 0004;
inline constexpr unsigned everybodyWrites = 0002;
inline constexpr unsigned groupWrites = 0020;
inline constexpr unsigned keptByOwners = 01000; ///< in a folder, everybody's entries are safe from the others
inline constexpr unsigned all = 07777;
} // namespace rights

struct FileState {
    FileId id;
    quint64 names = 1; ///< how many paths lead to it
    bool folder = false;
    bool plain = false; ///< a file with content, no device
    unsigned owner = 0;
    unsigned group = 0;
    unsigned rights = 0;
    qint64 size = 0;
    qint64 room = 0; ///< what it takes of the disk, less than its size where parts were never written
};

enum class Links { Followed, Themselves };
/// Nothing when there is no such file.
std::optional<FileState> StateOf(const QString& path, Links links = Links::Followed);

/// The user of this process; 0 for an administrator who may give files away.
unsigned ThisUser();
/// The user of that name, 0 when there is none.
unsigned UserOf(const char* name);
/// The group that stands for this user alone, or for the administrator.
bool IsOwnGroup(unsigned group);

/// An owner that stays.
inline constexpr unsigned sameOwner = ~0U;
/// Only an administrator may give files away; false when that is refused.
bool GiveTo(const QString& path, unsigned owner, unsigned group);
bool SetRights(const QString& path, unsigned rights);
/// Waits until the entries of a folder stand on the disk, as far as the system can do that.
void SyncFolder(const QString& path);
/// Waits until the content of the open file (`QFile::handle`) stands on the disk; false when it cannot.
bool SyncFile(int handle);
/// The room that is left on the disk of a folder; nothing when the system does not tell.
std::optional<qint64> RoomOnDiskOf(const QString& folder);

/// A file that is open for as long as the object lives; other programs may open it too.
class OpenFile {
  public:
    enum class How { Read, Write, MakeNew }; ///< a new file is its owner's alone
    OpenFile() = default;
    /// Does not wait, whatever kind of file it is; see `isOpen`.
    OpenFile(const QString& path, How how, Links links = Links::Themselves);
    ~OpenFile() { close(); }
    OpenFile(OpenFile&& other) noexcept { *this = std::move(other); }
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(handle_, other.handle_);
        std::swap(error_, other.error_);
        return *this;
    }

    bool isOpen() const { return handle_ != none; }
    /// The system's number of the last failure; see Failures.h.
    int error() const { return error_; }
    void close();

    std::optional<FileState> state() const;
    bool giveTo(unsigned owner, unsigned group);
    bool setRights(unsigned rights);

    enum class Lock { None, Shared, Exclusive };
    /// Locks the whole file against other openings of it, on other machines too; at once or not at all. False with an
    /// `error` of 0 when somebody else is in the way. An own lock changes without anybody coming between.
    bool lock(Lock mode);
    /// True when somebody else holds any lock.
    bool isLockedByOthers();
    /// True when nobody, on this machine, has the file open with the engine; nobody can from then on.
    bool takeFromEngine();

    QByteArray read(qsizetype most) const;
    /// Over what stands there, so that a full disk has the room already.
    bool replaceContent(const QByteArray& content);
    /// Gives all of `size` bytes their room; false when the disk is full.
    bool reserve(qint64 size);

  private:
    static constexpr qintptr none = -1;
    bool failed();
    qintptr handle_ = none;
    int error_ = 0;
};

} // namespace vorta::system

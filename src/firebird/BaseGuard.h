#pragma once

#include "system/Files.h"

#include <QString>

#include <optional>
#include <utility>

/// The lock place of a base. All programs that have one base open in the embedded engine settle their writing in the
/// memory of one lock folder on one machine; two of them with different lock folders destroy the base. So the lock
/// folder belongs to the base, and a file beside the base tells which one is in force.
namespace vorta::firebird {

/// The lock folder of a base: "firebird/lock" of the installation to which its folder belongs, for a base elsewhere a
/// folder beside it.
QString LockFolderOf(const QString& database);

/// The lock place of programs that have a base open at this moment.
struct PlaceInForce {
    QString machine;
    QString folder;
    bool own; ///< it is the base's own, on this machine
};
/// Nothing when nobody has the base open.
std::optional<PlaceInForce> PlaceInForceOf(const QString& database);

/// Holds a base's lock place for as long as it lives. The file beside the base is locked by the operating system, which
/// a shared folder passes on to other machines: the first who opens the base has it for himself for a moment and writes
/// his place into it, later ones share it. A process that ends, however it ends, lets go.
class BaseGuard {
  public:
    BaseGuard() = default;
    /// Takes part in the lock place `lockFolder` of that database file; waits a moment for somebody with another place
    /// to go. Raises -2147467259, in words, when the base stays open elsewhere, or when the file cannot be used. A base
    /// that is not there, or that this user may only read, needs no guard.
    BaseGuard(const QString& database, const QString& lockFolder);
    BaseGuard(BaseGuard&& other) noexcept { *this = std::move(other); }
    BaseGuard& operator=(BaseGuard&& other) noexcept {
        std::swap(file_, other.file_);
        std::swap(base_, other.base_);
        std::swap(number_, other.number_);
        return *this;
    }

    /// Raises -2147467259, in words, when the base is no longer where it was opened: what is written now would go with
    /// the removed file.
    void requireBase() const;

    /// The guard file of a database file.
    static QString fileOf(const QString& database);

  private:
    system::OpenFile file_;
    QString base_;       ///< the path of the base file
    quint64 number_ = 0; ///< the file's own number
};

} // namespace vorta::firebird

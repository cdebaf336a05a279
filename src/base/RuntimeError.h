#pragma once

#include <QString>
#include <exception>

namespace vorta {

/// The numbers of all run-time errors: what each means, and who raises it. A contract names them by their number, since
/// that is what the box of an error shows.
namespace errorNumber {
/// A number does not fit what receives it: `ToInt16`, `ToInt32`, `Value` and every field of 16 or 32 bits.
inline constexpr int Overflow = 6;
/// Memory has run out: the program, of whatever part.
inline constexpr int OutOfMemory = 7;
/// A text that is no number, date or boolean where one is needed: `ToNumber`, `ToBoolean`, `Value`; an index outside a
/// list or tab strip; a text that the character set of the data does not have; a value of the wrong kind in a load.
inline constexpr int TypeMismatch = 13;
/// A failure that no part of the register names, such as an exception of a library: the program.
inline constexpr int InternalError = 51;
/// A path that names no file (empty, or a folder): the platform's files.
inline constexpr int BadFileName = 52;
/// A file that is not there or cannot be read: the platform's files, a field's picture, the kit.
inline constexpr int FileNotFound = 53;
/// What is to be made is there already: the kit's creation of an installation.
inline constexpr int FileAlreadyExists = 58;
/// There is no room left for what is to be written: the engine's services, the kit.
inline constexpr int DiskFull = 61;
/// A base that others are working with: the kit's restoration.
inline constexpr int PermissionDenied = 70;
/// A path that cannot be written: the kit.
inline constexpr int PathRefused = 75;
/// An object that is not there: a connection never made, a screen or window that the program does not have.
inline constexpr int ObjectNotSet = 91;
/// A null where a value is needed: `Value`.
inline constexpr int InvalidNull = 94;
/// A row or column outside a grid: `Grid`.
inline constexpr int OutsideGrid = 381;
/// A field or operation that the object lacks: `Screen::field`, the context's fields, the rollback of some saves.
inline constexpr int NoSuchMember = 438;
/// A value asked where no row is, behind the last one: `Recordset`.
inline constexpr int NoCurrentRow = 3021;
/// A column that the result, or a table of the kit, does not have: `Recordset`, the kit's loader.
inline constexpr int NoSuchColumn = 3265;
/// An operation on what is closed: `Connection` before `Open` and after `Close`, `Recordset` likewise.
inline constexpr int ObjectClosed = 3704;
/// A connection that cannot be opened, for whatever reason, or is lost: the adapters.
inline constexpr int ConnectionFailed = -2147467259;
/// A statement that the engine refuses: the adapters, and the guard.
inline constexpr int StatementRefused = -2147217900;
/// A write that breaks a constraint of the database: the adapters.
inline constexpr int ConstraintViolated = -2147217873;
} // namespace errorNumber

/// The one exception of the register: every failure that is not a message of a screen travels as this.
class RuntimeError : public std::exception {
  public:
    /// `description` in the program's words, Portuguese; empty takes the standard words of the number.
    explicit RuntimeError(int number, const QString& description = {});
    /// A failure told by a database engine: its own code, its SQLSTATE, and the statement that met it.
    RuntimeError(int number, const QString& description, int engineCode, const QString& sqlState,
                 const QString& statement);

    int number() const { return number_; }
    const QString& description() const { return description_; }
    int engineCode() const { return engineCode_; }
    const QString& sqlState() const { return sqlState_; }
    const QString& statement() const { return statement_; }
    const char* what() const noexcept override { return utf8_.constData(); }

  private:
    int number_;
    QString description_;
    int engineCode_ = 0;
    QString sqlState_;
    QString statement_;
    QByteArray utf8_;
};

} // namespace vorta

#pragma once

#include <QString>
#include <exception>

namespace vorta {

/// Numbers of the run-time errors that the screens and the data layer raise.
namespace errorNumber {
inline constexpr int Overflow = 6;                   ///< a number does not fit the field that receives it
inline constexpr int TypeMismatch = 13;              ///< a text that is no number, date or boolean where one is needed
inline constexpr int BadFileName = 52;               ///< a path that names no file
inline constexpr int FileNotFound = 53;              ///< a file that is not there
inline constexpr int ObjectNotSet = 91;              ///< an object that is not there, such as a connection never made
inline constexpr int InvalidNull = 94;               ///< a null where a value is needed
inline constexpr int NoSuchMember = 438;             ///< a field or operation that the object lacks
inline constexpr int NoCurrentRow = 3021;            ///< a value asked where no row is: behind the last one
inline constexpr int NoSuchColumn = 3265;            ///< a column that the result does not carry
inline constexpr int ObjectClosed = 3704;            ///< an operation on a recordset or connection that is closed
inline constexpr int ConnectionFailed = -2147467259; ///< a connection that cannot be opened or is lost
inline constexpr int StatementRefused = -2147217900; ///< a statement that the engine (or the guard) refuses
inline constexpr int ConstraintViolated = -2147217873; ///< a write that breaks a constraint of the database
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

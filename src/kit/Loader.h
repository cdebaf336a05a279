#pragma once

#include "firebird/EmbeddedEngine.h"
#include "kit/Schema.h"

#include <QDate>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// Rows into a Firebird base at the engine's own pace: prepared inserts whose values travel in the form in which the
/// engine keeps them.
namespace vorta::kit {

/// A decimal with two places, as a number of hundredths.
struct Hundredths {
    qint64 value = 0;
};

/// A connection to one base for loading: all of it in one transaction until `commit`, and rolled back without one.
class Loader {
  public:
    /// Tells which tables a loader writes.
    using Part = std::function<bool(const Table& table)>;

    /// -2147467259 when the base cannot be opened. With a part, rows of other tables are taken and dropped, so that
    /// several loaders can share one load, each on a thread of its own.
    explicit Loader(const QString& connectionString, Part part = {});
    ~Loader();
    Loader(const Loader&) = delete;
    Loader& operator=(const Loader&) = delete;

    /// Runs one statement. A definition is usable after the next `commit`.
    void run(const QString& statement);
    /// The first column of the first row as a number; 0 without a row or for a null.
    qint64 number(const QString& query);
    /// All rows of a query as text, a null being a null text; for the check and for tests.
    std::vector<QStringList> rows(const QString& query);
    void commit();

  private:
    friend class RowLoader;
    Firebird::ITransaction& transaction();

    Part part_;
    firebird::Attachment attachment_;
    firebird::Handle<Firebird::ITransaction> transaction_;
};

/// Inserts rows of one table: values in the order of the columns, then `send`. A value of the wrong kind, a text with
/// characters outside Windows-1252 or a number of values other than the columns is a mistake of the caller and ends
/// in 13.
class RowLoader {
  public:
    /// For these columns of the table, or all of them.
    RowLoader(Loader& loader, const Table& table, const QStringList& columns = {});
    ~RowLoader();

    RowLoader& operator<<(qint64 value);
    RowLoader& operator<<(int value) { return *this << qint64{value}; }
    RowLoader& operator<<(Hundredths value);
    /// An invalid date is a null.
    RowLoader& operator<<(QDate value);
    /// No key is a null.
    RowLoader& operator<<(std::optional<qint64> key) { return key ? *this << *key : *this << nullptr; }
    /// A text in Windows-1252; too long a text is cut at the column's length, a null byte array is a null.
    RowLoader& operator<<(QByteArrayView latin);
    RowLoader& operator<<(const QByteArray& latin) { return *this << QByteArrayView(latin); }
    RowLoader& operator<<(const char* latin) { return *this << QByteArrayView(latin); }
    RowLoader& operator<<(const QString& text);
    RowLoader& operator<<(std::nullptr_t);
    void send();
    qint64 sent() const { return sent_; }

  private:
    struct Slot {
        Column column;
        unsigned offset;
        unsigned nullOffset;
    };
    Slot& next(Kind kind);
    void setNull(const Slot& slot, bool null);

    Loader& loader_;
    firebird::Handle<Firebird::IStatement> statement_;
    firebird::Handle<Firebird::IMessageMetadata> form_;
    std::vector<Slot> slots_;
    std::vector<unsigned char> message_;
    bool dropped_ = false; ///< another loader writes this table
    size_t position_ = 0;
    qint64 sent_ = 0;
};

} // namespace vorta::kit

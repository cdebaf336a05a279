#pragma once

#include "data/Adapter.h"

#include <QList>
#include <optional>
#include <semaphore>
#include <vector>

namespace vorta::test {

/// The answer to a query: its columns and rows.
struct FakeRows {
    QStringList columns;
    QList<QList<data::Value>> rows;
};

/// A database without an engine: it remembers every text that reaches it and answers queries with prepared rows. A
/// query without a prepared answer gives no rows. Shared by all connections made of it.
class FakeDatabase {
  public:
    /// Answers queries whose text contains `part`; of several the one prepared last wins.
    void answer(const QString& part, FakeRows rows);
    /// Any statement whose text contains `part` fails with this number.
    void fail(const QString& part, int errorNumber);
    /// What the engine does before it gives the first row of the next query, and only of that.
    std::function<void()> thinks;
    /// Opening a connection fails.
    bool refuseOpen = false;

    data::AdapterFactory factory();

    struct Opened {
        data::Engine engine;
        QString connectionString;
        int timeout;
    };
    std::vector<Opened> opened;
    QStringList
        sent; ///< all texts, with "BEGIN", "COMMIT" and "ROLLBACK" for transactions, "CLOSE" for a closed connection
    QStringList writes; ///< texts of write statements only

  private:
    friend class FakeAdapter;
    const FakeRows* rowsFor(const QString& text) const;
    void failIfAsked(const data::Statement& statement) const;

    std::vector<std::pair<QString, FakeRows>> answers_;
    std::vector<std::pair<QString, int>> failures_;
};

/// The engine of that database thinks about its next query until it is told to end, but not for ever.
class Thinking {
  public:
    explicit Thinking(FakeDatabase& database);
    void end() { end_.release(); }
    /// Whether the query has waited, and not in vain.
    bool wasEnded() const { return inTime_; }

  private:
    std::counting_semaphore<> end_{0};
    bool inTime_ = false;
};

/// A text value, a number, a null for the rows above.
data::Value text(const char* utf8);
data::Value number(qint64 integer);
data::Value amount(qint64 cents);
data::Value date(int year, int month, int day);
data::Value null();

} // namespace vorta::test

#pragma once

#include "firebird/EmbeddedEngine.h"

#include <QByteArray>

namespace vorta::bench {

/// Firebird's client interface with nothing above it: sends a statement's text and drops what comes back. The floor of
/// every benchmark that talks to a database, over the same library and connection settings as the register.
class BareClient {
  public:
    /// Opens a database by the register's form of connection strings; `RuntimeError` as there.
    explicit BareClient(const QString& connectionString);
    ~BareClient();

    /// Sends one statement. A query's rows are fetched and dropped; a write outside `begin` is its own transaction.
    void send(const QByteArray& text);
    /// From here to `commit` or `rollback` everything runs in one transaction.
    void begin();
    void commit();
    void rollback();

    /// What the rows of a query need at the least: the bytes of their values as the engine hands them over, a null
    /// none.
    struct Volume {
        qint64 rows = 0;
        qint64 bytes = 0;
    };
    Volume volume(const QByteArray& query);

  private:
    using Transaction = firebird::Handle<Firebird::ITransaction>;
    Transaction start(bool writing);
    firebird::Handle<Firebird::IStatement> prepare(const QByteArray& text);
    template <typename Row>
    void fetch(Firebird::IStatement& statement, Row row);

    firebird::Attachment attachment_;
    Transaction reading_;
    Transaction writing_;
};

} // namespace vorta::bench

#pragma once

#include "data/Engine.h"
#include "data/Statement.h"
#include "data/Value.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <span>

namespace vorta::data {

/// Receives the rows of a query, in order. `text` carries UTF-8 bytes that live only during the call.
class RowSink {
  public:
    virtual ~RowSink() = default;
    /// The columns that will be looked at; none for all. An adapter may give others as well, not fewer of those that
    /// there are.
    virtual std::span<const Piece> wanted() const { return {}; }
    virtual void columns(const QStringList& names) = 0;
    virtual void beginRow() = 0;
    virtual void null() = 0;
    virtual void integer(qint64 value) = 0;
    virtual void decimal(Decimal value) = 0;
    virtual void text(std::string_view utf8) = 0;
    virtual void date(const QDateTime& value) = 0;
    virtual void endRow() = 0;
};

/// One connection to one engine. Every failure is a `RuntimeError`: -2147467259 for a connection that cannot be opened
/// or is lost, -2147217900 for a statement the engine refuses, -2147217873 for a constraint. Outside a transaction each
/// write commits by itself.
class Adapter {
  public:
    virtual ~Adapter() = default;
    /// Opens with the connection string of the engine's own form, waiting at most `timeoutSeconds`.
    virtual void open(const QString& connectionString, int timeoutSeconds) = 0;
    /// Closes; an open transaction is rolled back.
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    virtual void begin() = 0;
    virtual void commit() = 0;
    /// Undoes what stands behind `begin`; refused without it, as a commit is.
    virtual void rollback() = 0;
    virtual void execute(const Statement& statement) = 0;
    virtual void query(const Statement& statement, RowSink& rows) = 0;
};

/// Makes the adapter of an engine; given to the program at its start. None means that a connection cannot be opened.
using AdapterFactory = std::function<std::unique_ptr<Adapter>(Engine)>;

} // namespace vorta::data

#include "data/Connection.h"

#include "base/RuntimeError.h"
#include "data/Guard.h"
#include "data/QualifiedColumns.h"

namespace vorta::data {

Connection::Connection(AdapterFactory adapters, StatementTrace trace)
    : adapters_(std::move(adapters)), trace_(std::move(trace)) {}

Connection::~Connection() {
    try {
        if (IsOpen())
            adapter_->close();
    } catch (const RuntimeError&) {
        // The connection is gone either way; nobody is left to be told.
    }
}

void Connection::Open(Engine engine, const QString& connectionString) {
    std::unique_ptr<Adapter> adapter = adapters_(engine);
    if (!adapter)
        throw RuntimeError(errorNumber::ConnectionFailed);
    adapter->open(connectionString, ConnectionTimeout);
    adapter_ = std::move(adapter);
}

void Connection::Execute(const Statement& statement) {
    Adapter& adapter = open();
    if (trace_)
        trace_(statement.text());
    GuardStatement(statement);
    adapter.execute(statement);
}

void Connection::query(const Statement& statement, RowSink& rows) {
    Adapter& adapter = open();
    if (trace_)
        trace_(statement.text());
    GuardStatement(statement);
    adapter.query(QualifyRoleKeys(statement), rows);
}

void Connection::BeginTrans() {
    open().begin();
}

void Connection::CommitTrans() {
    open().commit();
}

void Connection::Close() {
    open().close();
    adapter_.reset();
}

bool Connection::IsOpen() const {
    return adapter_ && adapter_->isOpen();
}

Adapter& Connection::open() {
    if (!IsOpen())
        throw RuntimeError(errorNumber::ObjectClosed);
    return *adapter_;
}

} // namespace vorta::data

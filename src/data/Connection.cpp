#include "data/Connection.h"

#include "base/EngineWatch.h"
#include "base/Journal.h"
#include "base/RuntimeError.h"
#include "data/Guard.h"
#include "data/QualifiedColumns.h"

namespace vorta::data {

Connection::Connection(AdapterFactory adapters, StatementTrace trace)
    : adapters_(std::move(adapters)), trace_(std::move(trace)) {}

Connection::~Connection() {
    try {
        const EngineCall call;
        if (IsOpen())
            adapter_->close();
    } catch (const RuntimeError& error) {
        // The connection is gone either way, and so is whoever could be told on a screen.
        Journal(error.description());
    }
}

void Connection::Open(Engine engine, const QString& connectionString) {
    std::unique_ptr<Adapter> adapter = adapters_(engine);
    if (!adapter)
        throw RuntimeError(errorNumber::ConnectionFailed);
    const EngineCall call;
    adapter->open(connectionString, ConnectionTimeout);
    adapter_ = std::move(adapter);
}

void Connection::Execute(const Statement& statement) {
    Adapter& adapter = open();
    if (trace_)
        trace_(statement.text());
    GuardStatement(statement);
    const EngineCall call;
    adapter.execute(statement);
}

void Connection::query(const Statement& statement, RowSink& rows) {
    Adapter& adapter = open();
    if (trace_)
        trace_(statement.text());
    GuardStatement(statement);
    const EngineCall call;
    adapter.query(QualifyRoleKeys(statement), rows);
}

void Connection::BeginTrans() {
    const EngineCall call;
    open().begin();
}

void Connection::CommitTrans() {
    const EngineCall call;
    open().commit();
}

void Connection::Close() {
    const EngineCall call;
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

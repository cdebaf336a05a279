#include "firebird/FirebirdAdapter.h"

#include "firebird/Bridge.h"
#include "firebird/Client.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/RowReader.h"
#include "firebird/StatementCache.h"

#include <QSet>

namespace vorta::firebird {

namespace {

using data::RowSink;
using data::Statement;

/// Reads cost nothing while this one stays open, and see what others commit.
constexpr unsigned char readBlock[] = {isc_tpb_version3, isc_tpb_read, isc_tpb_read_committed, isc_tpb_rec_version};
/// A row that somebody else is writing is waited for, but not for ever.
constexpr unsigned char lockSeconds = 4;
constexpr unsigned char writeBlock[] = {
    isc_tpb_version3, isc_tpb_write, isc_tpb_read_committed, isc_tpb_rec_version, isc_tpb_wait, isc_tpb_lock_timeout, 1,
    lockSeconds};

/// Ways of a statement through the engine.
enum class Answer { Rows, OneRow, Nothing, Tables };

Answer answerOf(unsigned type, unsigned flags) {
    if (flags & Firebird::IStatement::FLAG_HAS_CURSOR)
        return Answer::Rows;
    if (type == isc_info_sql_stmt_exec_procedure)
        return Answer::OneRow;
    return type == isc_info_sql_stmt_ddl ? Answer::Tables : Answer::Nothing;
}

class FirebirdAdapter : public data::Adapter {
  public:
    ~FirebirdAdapter() override {
        try {
            close();
        } catch (const RuntimeError&) {
            // Nobody is left to be told; the engine cleans up after a connection that goes.
        }
    }

    void open(const QString& connectionString, int timeoutSeconds) override {
        close();
        attachment_ = Attach(connectionString, timeoutSeconds);
    }
    void close() override;
    bool isOpen() const override { return attachment_ != nullptr; }
    void begin() override;
    void commit() override;
    void execute(const Statement& statement) override;
    void query(const Statement& statement, RowSink& rows) override;

  private:
    using Transaction = Handle<Firebird::ITransaction>;

    /// What runs: a prepared statement, with its integers bound if they stand aside.
    struct Runnable {
        Firebird::IStatement* statement = nullptr;
        Firebird::IMessageMetadata* inputDescription = nullptr;
        void* input = nullptr;
        Handle<Firebird::IStatement> owned;
    };

    Transaction start(std::span<const unsigned char> block) {
        Status status;
        return Transaction(attachment_->startTransaction(&status, static_cast<unsigned>(block.size()), block.data()));
    }
    /// The transaction that reads run in now.
    Firebird::ITransaction& reading() {
        if (transaction_)
            return *transaction_;
        if (!readTransaction_)
            readTransaction_ = start(readBlock);
        return *readTransaction_;
    }
    void endReading() {
        if (readTransaction_)
            EndWith(readTransaction_, [](auto* open) {
                Status status;
                open->commit(&status);
            });
    }

    Runnable prepare(const Statement& statement);
    Handle<Firebird::IStatement> prepareText(const QString& text);
    std::optional<std::vector<bool>> describeDates(const QString& text);
    void run(const Statement& statement, RowSink* rows);
    void runInsert(const Statement& statement, const QString& table);
    void runPrepared(const Runnable& prepared, Firebird::ITransaction& transaction, RowSink* rows);
    void write(const Runnable& prepared, RowSink* rows);
    void readAll(const Runnable& prepared, Firebird::ITransaction& transaction, RowSink* rows);
    void giveIdentity(const QString& column, RowSink& rows) const;

    Handle<Firebird::IAttachment> attachment_;
    Transaction readTransaction_;
    Transaction transaction_;
    StatementCache cache_;
    std::optional<qint64> identity_;
    QSet<QString> keyless_; ///< tables without a key by the rule `id` and table
};

void FirebirdAdapter::close() {
    if (!attachment_)
        return;
    cache_.clear();
    identity_.reset();
    keyless_.clear();
    try {
        Status status;
        if (transaction_)
            EndWith(transaction_, [&](auto* open) { open->rollback(&status); });
        endReading();
        EndWith(attachment_, [&](auto* open) { open->detach(&status); });
    } catch (const Firebird::FbException& failure) {
        transaction_.reset();
        readTransaction_.reset();
        attachment_.reset();
        throw ToRuntimeError(failure, {});
    }
}

void FirebirdAdapter::begin() {
    if (transaction_)
        throw RuntimeError(errorNumber::StatementRefused,
                           QStringLiteral("Já existe uma transação aberta nesta conexão"));
    Translated({}, [&] { transaction_ = start(writeBlock); });
}

void FirebirdAdapter::commit() {
    if (!transaction_)
        throw RuntimeError(errorNumber::StatementRefused, QStringLiteral("Não há transação aberta nesta conexão"));
    Translated({}, [&] {
        EndWith(transaction_, [](auto* open) {
            Status status;
            open->commit(&status);
        });
    });
}

void FirebirdAdapter::execute(const Statement& statement) {
    Translated(statement.text(), [&] {
        const std::optional<QString> table = InsertedTable(statement);
        if (table)
            runInsert(statement, table->toUpper());
        else
            run(statement, nullptr);
    });
}

void FirebirdAdapter::query(const Statement& statement, RowSink& rows) {
    Translated(statement.text(), [&] {
        if (const std::optional<QString> column = IdentityColumn(statement))
            giveIdentity(*column, rows);
        else
            run(BridgeSyntax(statement), &rows);
    });
}

void FirebirdAdapter::giveIdentity(const QString& column, RowSink& rows) const {
    rows.columns({column});
    rows.beginRow();
    if (identity_)
        rows.integer(*identity_);
    else
        rows.null();
    rows.endRow();
}

/// Sends an insert so that it gives back its key, for `@@IDENTITY`. A table without such a key is remembered and
/// written plainly.
void FirebirdAdapter::runInsert(const Statement& statement, const QString& table) {
    if (!keyless_.contains(table)) {
        Runnable returning;
        try {
            returning = prepare(ReturningKey(statement, table));
        } catch (const Firebird::FbException&) {
            // Either the table has no such key, or the insert itself is wrong: sending it plainly tells which.
        }
        if (returning.statement) {
            identity_.reset();
            return write(returning, nullptr);
        }
    }
    run(statement, nullptr);
    identity_.reset();
    keyless_.insert(table);
}

void FirebirdAdapter::run(const Statement& statement, RowSink* rows) {
    const Runnable prepared = prepare(statement);
    Status status;
    if (answerOf(prepared.statement->getType(&status), prepared.statement->getFlags(&status)) == Answer::Rows)
        readAll(prepared, reading(), rows);
    else
        write(prepared, rows);
}

Handle<Firebird::IStatement> FirebirdAdapter::prepareText(const QString& text) {
    Status status;
    const QByteArray bytes = text.toUtf8();
    return Handle<Firebird::IStatement>(attachment_->prepare(&status, &reading(), static_cast<unsigned>(bytes.size()),
                                                             bytes.constData(), SQL_DIALECT_V6,
                                                             Firebird::IStatement::PREPARE_PREFETCH_METADATA));
}

std::optional<std::vector<bool>> FirebirdAdapter::describeDates(const QString& text) {
    try {
        Status status;
        const Handle<Firebird::IStatement> statement = prepareText(text);
        const Handle<Firebird::IMessageMetadata> input(statement->getInputMetadata(&status));
        std::vector<bool> dates;
        const unsigned count = input->getCount(&status);
        for (unsigned i = 0; i < count; ++i) {
            const unsigned type = input->getType(&status, i) & ~1u;
            dates.push_back(type == SQL_TYPE_DATE || type == SQL_TIMESTAMP);
        }
        return dates;
    } catch (const Firebird::FbException&) {
        return std::nullopt;
    }
}

FirebirdAdapter::Runnable FirebirdAdapter::prepare(const Statement& statement) {
    Runnable runnable;
    const Statement bridged = BridgeDates(statement, [this](const QString& text) { return describeDates(text); });
    if (const Parameterised aside = TakeIntegers(bridged); !aside.integers.empty()) {
        PreparedStatement* const cached = cache_.find(*attachment_, reading(), aside.text);
        if (cached && cached->bind(aside.integers)) {
            runnable.statement = &cached->statement();
            runnable.inputDescription = cached->inputDescription();
            runnable.input = cached->input();
            return runnable;
        }
    }
    runnable.owned = prepareText(bridged.text());
    runnable.statement = runnable.owned.get();
    return runnable;
}

void FirebirdAdapter::write(const Runnable& prepared, RowSink* rows) {
    if (transaction_)
        return runPrepared(prepared, *transaction_, rows);
    Transaction own = start(writeBlock);
    try {
        runPrepared(prepared, *own, rows);
    } catch (const Firebird::FbException&) {
        EndWith(own, [](auto* open) {
            Status status;
            open->rollback(&status);
        });
        throw;
    }
    EndWith(own, [](auto* open) {
        Status status;
        open->commit(&status);
    });
}

void FirebirdAdapter::runPrepared(const Runnable& prepared, Firebird::ITransaction& transaction, RowSink* rows) {
    Status status;
    const Answer answer = answerOf(prepared.statement->getType(&status), prepared.statement->getFlags(&status));
    if (answer == Answer::Tables) {
        // Statements kept prepared, and the open read transaction, would hold the table that is about to change.
        cache_.clear();
        endReading();
        keyless_.clear();
    }
    if (answer != Answer::OneRow) {
        prepared.statement->execute(&status, &transaction, prepared.inputDescription, prepared.input, nullptr, nullptr);
        if (rows)
            rows->columns({});
        return;
    }
    const Handle<Firebird::IMessageMetadata> description(prepared.statement->getOutputMetadata(&status));
    RowReader reader(*attachment_, *description);
    prepared.statement->execute(&status, &transaction, prepared.inputDescription, prepared.input, description.get(),
                                reader.message());
    if (rows) {
        rows->columns(reader.names());
        reader.give(transaction, *rows);
    } else {
        identity_ = reader.single();
    }
}

void FirebirdAdapter::readAll(const Runnable& prepared, Firebird::ITransaction& transaction, RowSink* rows) {
    Status status;
    const Handle<Firebird::IMessageMetadata> description(prepared.statement->getOutputMetadata(&status));
    RowReader reader(*attachment_, *description);
    Handle<Firebird::IResultSet> cursor(prepared.statement->openCursor(&status, &transaction, prepared.inputDescription,
                                                                       prepared.input, description.get(), 0));
    if (rows)
        rows->columns(reader.names());
    while (cursor->fetchNext(&status, reader.message()) == Firebird::IStatus::RESULT_OK)
        if (rows)
            reader.give(transaction, *rows);
    EndWith(cursor, [&](auto* open) { open->close(&status); });
}

} // namespace

} // namespace vorta::firebird

namespace vorta::data {

std::unique_ptr<Adapter> MakeFirebirdAdapter() {
    return std::make_unique<firebird::FirebirdAdapter>();
}

} // namespace vorta::data

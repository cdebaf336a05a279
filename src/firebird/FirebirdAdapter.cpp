#include "firebird/FirebirdAdapter.h"

#include "base/Literals.h"
#include "data/NamedColumns.h"
#include "firebird/Bridge.h"
#include "firebird/Client.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/EngineReasons.h"
#include "firebird/StatementCache.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QHash>
#include <QSet>
#include <future>

namespace vorta::firebird {

namespace {

using data::RowSink;
using data::Statement;

/// Reads cost nothing while this one stays open, and see what others commit.
constexpr unsigned char readBlock[] = {isc_tpb_version3, isc_tpb_read, isc_tpb_read_committed, isc_tpb_rec_version};
/// A row that somebody else is writing is waited for, but not for ever.
constexpr unsigned char writeBlock[] = {
    isc_tpb_version3, isc_tpb_write, isc_tpb_read_committed, isc_tpb_rec_version, isc_tpb_wait, isc_tpb_lock_timeout, 1,
    lockSeconds};

/// The class of SQLSTATE of a value that the engine cannot take.
const QString dataClass = u"22"_s;

/// True when the engine cannot take a value.
bool isOfValues(const Firebird::FbException& failure) {
    return ToRuntimeError(failure, {}).sqlState().startsWith(dataClass);
}

/// True when a row was changed by somebody else between a statement's reading and its writing of it.
bool ChangedMeanwhile(const Firebird::FbException& failure) {
    return Tells(failure.getStatus()->getErrors(), isc_update_conflict);
}

/// Runs a writing statement. The engine undoes one that meets a row changed meanwhile; said again, it meets the row as
/// it stands now, so that of two saves at once both succeed and the last one stands. A wait that was in vain is told by
/// the engine in the same codes, and is not repeated.
std::optional<qint64> Write(PreparedStatement& prepared, Firebird::ITransaction& transaction, RowSink* rows) {
    constexpr std::chrono::seconds patience{lockSeconds};
    constexpr std::chrono::milliseconds waited = patience - std::chrono::seconds{1};
    const QDeadlineTimer end(patience);
    while (true) {
        QElapsedTimer attempt;
        attempt.start();
        try {
            return prepared.execute(transaction, rows);
        } catch (const Firebird::FbException& failure) {
            if (!ChangedMeanwhile(failure) || end.hasExpired() || attempt.hasExpired(waited.count()))
                throw;
        }
    }
}

class FirebirdAdapter : public data::Adapter {
  public:
    explicit FirebirdAdapter(std::function<void()> meanwhile) : meanwhile_(std::move(meanwhile)) {}
    ~FirebirdAdapter() override {
        try {
            close();
        } catch (const RuntimeError&) {
            // Nobody is left to be told; the engine cleans up after a connection that goes.
        }
    }

    void open(const QString& connectionString, int timeoutSeconds) override {
        close();
        if (!meanwhile_) {
            attachment_ = Attach(connectionString, timeoutSeconds);
            return;
        }
        // It sets environment variables, which no other thread may be reading then.
        PrepareOpening(connectionString);
        auto attaching = std::async(std::launch::async, Attach, connectionString, timeoutSeconds);
        std::exchange(meanwhile_, {})();
        attachment_ = attaching.get();
    }
    void close() override;
    bool isOpen() const override { return attachment_ != nullptr; }
    void begin() override;
    void commit() override;
    void rollback() override;
    void execute(const Statement& statement) override;
    void query(const Statement& statement, RowSink& rows) override;

  private:
    using Transaction = Handle<Firebird::ITransaction>;

    /// What runs: a statement of the cache, or one made for this run alone.
    struct Runnable {
        PreparedStatement* prepared = nullptr;
        std::unique_ptr<PreparedStatement> own;
        QString text; ///< with every value in its place
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

    /// `isQuery`: asked for rows, so that its very text may come again.
    Runnable prepare(const Statement& statement, bool isQuery = false);
    Runnable prepareQuery(const Statement& statement, const RowSink& rows);
    std::optional<std::vector<bool>> describeDates(const QString& text);
    void run(const Statement& statement);
    void run(Runnable runnable, RowSink* rows);
    Runnable prepareAsText(const QString& text);
    PreparedStatement::Result open(Runnable& runnable);
    void runInsert(const Statement& statement, const QString& table);
    bool insertPrepared(const Statement& returning);
    std::optional<qint64> write(PreparedStatement& prepared, RowSink* rows);
    void giveIdentity(const QString& column, RowSink& rows) const;

    std::function<void()> meanwhile_;
    Attachment attachment_;
    Transaction readTransaction_;
    Transaction transaction_;
    StatementCache cache_;
    std::optional<qint64> identity_;
    QHash<QString, std::vector<bool>> dates_; ///< where a date stands, by the shape of the statement
    QSet<QString> keyless_;                   ///< tables without a key by the rule `id` and table
};

void FirebirdAdapter::close() {
    if (!attachment_)
        return;
    cache_.clear();
    identity_.reset();
    dates_.clear();
    keyless_.clear();
    if (LocksAreGone()) {
        // The engine could not even close any more. What is not committed never will be.
        (void)transaction_.release();
        (void)readTransaction_.release();
        (void)attachment_.release();
        attachment_ = {};
        throw RuntimeError(errorNumber::ConnectionFailed,
                           u"A instalação foi removida ou movida enquanto o programa trabalhava"_s);
    }
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
        throw RuntimeError(errorNumber::StatementRefused, u"Já existe uma transação aberta nesta conexão"_s);
    attachment_.get_deleter().guard.requireBase();
    Translated({}, [&] { transaction_ = start(writeBlock); });
}

void FirebirdAdapter::commit() {
    if (!transaction_)
        throw RuntimeError(errorNumber::StatementRefused, u"Não há transação aberta nesta conexão"_s);
    attachment_.get_deleter().guard.requireBase();
    Translated({}, [&] {
        EndWith(transaction_, [](auto* open) {
            Status status;
            open->commit(&status);
        });
    });
}

void FirebirdAdapter::rollback() {
    if (!transaction_)
        throw RuntimeError(errorNumber::StatementRefused, u"Não há transação aberta nesta conexão"_s);
    Translated({}, [&] {
        EndWith(transaction_, [](auto* open) {
            Status status;
            open->rollback(&status);
        });
    });
}

void FirebirdAdapter::execute(const Statement& statement) {
    Translated(statement.text(), [&] {
        const std::optional<QString> table = InsertedTable(statement);
        if (table)
            runInsert(statement, table->toUpper());
        else
            run(statement);
    });
}

void FirebirdAdapter::query(const Statement& statement, RowSink& rows) {
    Translated(statement.text(), [&] {
        if (const std::optional<QString> column = IdentityColumn(statement))
            giveIdentity(*column, rows);
        else
            run(prepareQuery(BridgeSyntax(statement), rows), &rows);
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
        const Statement withKey = ReturningKey(statement, table);
        if (insertPrepared(withKey))
            return;
        Runnable returning;
        try {
            returning = prepare(withKey);
        } catch (const Firebird::FbException&) {
            // Either the table has no such key, or the insert itself is wrong: sending it plainly tells which.
        }
        if (returning.prepared) {
            identity_ = write(*returning.prepared, nullptr);
            return;
        }
    }
    run(statement);
    identity_.reset();
    keyless_.insert(table);
}

/// Inserts of one shape run prepared, their values bound. False for an insert that cannot be run so; what the engine
/// has against a value, it tells of the text itself.
bool FirebirdAdapter::insertPrepared(const Statement& returning) {
    const std::optional<InsertedValues> aside =
        TakeInsertedValues(BridgeDates(returning, [this](const QString& text) { return describeDates(text); }));
    PreparedStatement* const cached =
        aside ? cache_.find(*attachment_, reading(), aside->statement, StatementCache::Keep::AtOnce) : nullptr;
    if (!cached || cached->answer() != Answer::OneRow || !cached->bind(std::span(aside->texts)))
        return false;
    try {
        identity_ = write(*cached, nullptr);
        return true;
    } catch (const Firebird::FbException& failure) {
        if (!isOfValues(failure))
            throw;
        return false;
    }
}

void FirebirdAdapter::run(const Statement& statement) {
    run(prepare(statement), nullptr);
}

void FirebirdAdapter::run(Runnable runnable, RowSink* rows) {
    if (runnable.prepared->answer() == Answer::Rows) {
        PreparedStatement::Result result = open(runnable);
        runnable.prepared->fetch(std::move(result), reading(), rows);
    } else {
        write(*runnable.prepared, rows);
    }
}

/// A value that is longer than its place, say, can be compared as a literal alone.
PreparedStatement::Result FirebirdAdapter::open(Runnable& runnable) {
    try {
        return runnable.prepared->open(reading());
    } catch (const Firebird::FbException& failure) {
        if (runnable.own || !isOfValues(failure))
            throw;
    }
    runnable = prepareAsText(runnable.text);
    return runnable.prepared->open(reading());
}

std::optional<std::vector<bool>> FirebirdAdapter::describeDates(const QString& text) {
    const QString shape = Shape(text);
    if (const auto known = dates_.constFind(shape); known != dates_.constEnd())
        return *known;
    try {
        std::vector<bool> dates = PreparedStatement(*attachment_, reading(), text).datesAmongParameters();
        dates_.insert(shape, dates);
        return dates;
    } catch (const Firebird::FbException&) {
        return std::nullopt;
    }
}

FirebirdAdapter::Runnable FirebirdAdapter::prepare(const Statement& statement, bool isQuery) {
    const Statement bridged = BridgeDates(statement, [this](const QString& text) { return describeDates(text); });
    const Parameterised aside = TakeOperands(bridged);
    if (isQuery || !aside.operands.empty()) {
        const bool plain = aside.operands.empty();
        PreparedStatement* const cached =
            cache_.find(*attachment_, reading(), plain ? bridged.text() : aside.text,
                        plain ? StatementCache::Keep::WhenRepeated : StatementCache::Keep::AtOnce);
        if (cached && cached->bind(std::span(aside.operands)))
            return {cached, nullptr, bridged.text()};
    }
    return prepareAsText(bridged.text());
}

FirebirdAdapter::Runnable FirebirdAdapter::prepareAsText(const QString& text) {
    auto own = std::make_unique<PreparedStatement>(*attachment_, reading(), text);
    PreparedStatement* const prepared = own.get();
    return {prepared, std::move(own), text};
}

/// With the wanted columns alone where that can be said. Where the engine refuses it, the text as the flow sent it
/// tells its own failure, or brings what there is.
FirebirdAdapter::Runnable FirebirdAdapter::prepareQuery(const Statement& statement, const RowSink& rows) {
    if (const std::optional<Statement> narrow = data::OnlyColumns(statement, rows.wanted())) {
        try {
            return prepare(*narrow, true);
        } catch (const Firebird::FbException&) {
        }
    }
    return prepare(statement, true);
}

std::optional<qint64> FirebirdAdapter::write(PreparedStatement& prepared, RowSink* rows) {
    if (prepared.answer() == Answer::Tables) {
        // Statements kept prepared, and the open read transaction, would hold the table that is about to change.
        cache_.clear();
        dates_.clear();
        keyless_.clear();
        endReading();
    }
    if (transaction_)
        return Write(prepared, *transaction_, rows);
    attachment_.get_deleter().guard.requireBase();
    Transaction own = start(writeBlock);
    try {
        const std::optional<qint64> given = Write(prepared, *own, rows);
        EndWith(own, [](auto* open) {
            Status status;
            open->commit(&status);
        });
        return given;
    } catch (const Firebird::FbException&) {
        EndWith(own, [](auto* open) {
            Status status;
            open->rollback(&status);
        });
        throw;
    }
}

} // namespace

} // namespace vorta::firebird

namespace vorta::data {

std::unique_ptr<Adapter> MakeFirebirdAdapter(std::function<void()> meanwhile) {
    return std::make_unique<firebird::FirebirdAdapter>(std::move(meanwhile));
}

} // namespace vorta::data

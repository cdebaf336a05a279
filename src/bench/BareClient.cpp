#include "bench/BareClient.h"

#include "firebird/EmbeddedEngine.h"

#include <cstring>
#include <vector>

namespace vorta::bench {

namespace {

using firebird::EndWith;
using firebird::Handle;
using firebird::Status;

constexpr unsigned char readBlock[] = {isc_tpb_version3, isc_tpb_read, isc_tpb_read_committed, isc_tpb_rec_version};
constexpr unsigned char writeBlock[] = {isc_tpb_version3, isc_tpb_write, isc_tpb_read_committed, isc_tpb_rec_version};

} // namespace

BareClient::BareClient(const QString& connectionString) : attachment_(firebird::Attach(connectionString, 15)) {
    reading_ = start(false);
}

BareClient::~BareClient() {
    // Closing what was only measured: a failure here changes no figure.
    try {
        Status status;
        if (writing_)
            EndWith(writing_, [&](auto* open) { open->rollback(&status); });
        EndWith(reading_, [&](auto* open) { open->commit(&status); });
        EndWith(attachment_, [&](auto* open) { open->detach(&status); });
    } catch (const Firebird::FbException&) {
    }
}

BareClient::Transaction BareClient::start(bool writing) {
    Status status;
    return Transaction(attachment_->startTransaction(&status, writing ? sizeof writeBlock : sizeof readBlock,
                                                     writing ? writeBlock : readBlock));
}

Handle<Firebird::IStatement> BareClient::prepare(const QByteArray& text) {
    Status status;
    return Handle<Firebird::IStatement>(
        attachment_->prepare(&status, writing_ ? writing_.get() : reading_.get(), static_cast<unsigned>(text.size()),
                             text.constData(), SQL_DIALECT_V6, Firebird::IStatement::PREPARE_PREFETCH_METADATA));
}

template <typename Row>
void BareClient::fetch(Firebird::IStatement& statement, Row row) {
    Status status;
    const Handle<Firebird::IMessageMetadata> description(statement.getOutputMetadata(&status));
    std::vector<unsigned char> message(description->getMessageLength(&status));
    Handle<Firebird::IResultSet> cursor(statement.openCursor(&status, writing_ ? writing_.get() : reading_.get(),
                                                             nullptr, nullptr, description.get(), 0));
    while (cursor->fetchNext(&status, message.data()) == Firebird::IStatus::RESULT_OK)
        row(*description, message);
    EndWith(cursor, [&](auto* open) { open->close(&status); });
}

void BareClient::send(const QByteArray& text) {
    firebird::Translated(QString::fromUtf8(text), [&] {
        Status status;
        const Handle<Firebird::IStatement> statement = prepare(text);
        if (statement->getFlags(&status) & Firebird::IStatement::FLAG_HAS_CURSOR)
            return fetch(*statement, [](auto&, auto&) {});
        Transaction own = writing_ ? nullptr : start(true);
        statement->execute(&status, writing_ ? writing_.get() : own.get(), nullptr, nullptr, nullptr, nullptr);
        if (own)
            EndWith(own, [&](auto* open) { open->commit(&status); });
    });
}

void BareClient::begin() {
    firebird::Translated({}, [&] { writing_ = start(true); });
}

void BareClient::commit() {
    firebird::Translated({}, [&] {
        Status status;
        EndWith(writing_, [&](auto* open) { open->commit(&status); });
    });
}

void BareClient::rollback() {
    firebird::Translated({}, [&] {
        Status status;
        EndWith(writing_, [&](auto* open) { open->rollback(&status); });
    });
}

BareClient::Volume BareClient::volume(const QByteArray& query) {
    return firebird::Translated(QString::fromUtf8(query), [&] {
        Volume counted;
        const Handle<Firebird::IStatement> statement = prepare(query);
        fetch(*statement, [&](Firebird::IMessageMetadata& description, const std::vector<unsigned char>& message) {
            Status status;
            ++counted.rows;
            for (unsigned i = 0; i < description.getCount(&status); ++i) {
                short null = 0;
                std::memcpy(&null, message.data() + description.getNullOffset(&status, i), sizeof null);
                if (null != 0)
                    continue;
                unsigned short length = static_cast<unsigned short>(description.getLength(&status, i));
                if ((description.getType(&status, i) & ~1u) == SQL_VARYING)
                    std::memcpy(&length, message.data() + description.getOffset(&status, i), sizeof length);
                counted.bytes += length;
            }
        });
        return counted;
    });
}

} // namespace vorta::bench

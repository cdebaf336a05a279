#include "kit/Loader.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "data/Value.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/RowReader.h"

#include <cstring>

namespace vorta::kit {

namespace {

using firebird::EndWith;
using firebird::Handle;
using firebird::Owned;
using firebird::Status;
using firebird::Translated;

constexpr int secondsToOpen = 15;
/// The engine's number for the character set of the data.
constexpr unsigned windows1252 = 53;
/// The engine counts its days from 17 November 1858.
constexpr qint64 firstEngineDay = 2400001; // as a Julian day

/// A load is kept or dropped as a whole, so that the engine need not note how to undo each of its rows.
constexpr unsigned char loadBlock[] = {isc_tpb_version3, isc_tpb_write, isc_tpb_concurrency, isc_tpb_wait,
                                       isc_tpb_no_auto_undo};

struct NativeForm {
    unsigned type;
    unsigned length;
    int scale;
};

NativeForm nativeForm(const Column& column) {
    switch (column.kind) {
    case Kind::Key:
    case Kind::Integer:
        return {SQL_LONG, sizeof(qint32), 0};
    case Kind::Amount:
        return {SQL_INT64, sizeof(qint64), -2};
    case Kind::Date:
        return {SQL_TYPE_DATE, sizeof(ISC_DATE), 0};
    case Kind::Text:
        break;
    }
    return {SQL_VARYING, static_cast<unsigned>(column.length), 0};
}

class TextRows : public data::RowSink {
  public:
    std::vector<QStringList> rows;
    void columns(const QStringList&) override {}
    void beginRow() override { rows.emplace_back(); }
    void null() override { rows.back() << QString(); }
    void integer(qint64 value) override { rows.back() << QString::number(value); }
    void decimal(data::Decimal value) override { rows.back() << data::Value(value).text(); }
    void text(std::string_view utf8) override {
        rows.back() << QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    }
    void date(const QDateTime& value) override { rows.back() << value.date().toString(Qt::ISODate); }
    void endRow() override {}
};

} // namespace

Loader::Loader(const QString& connectionString, Part part)
    : part_(std::move(part)), attachment_(firebird::Attach(connectionString, secondsToOpen)) {}

Loader::~Loader() {
    if (firebird::LocksAreGone()) {
        // The engine could not even close any more.
        (void)transaction_.release();
        (void)attachment_.release();
        return;
    }
    try {
        Status status;
        if (transaction_)
            EndWith(transaction_, [&](auto* open) { open->rollback(&status); });
        EndWith(attachment_, [&](auto* open) { open->detach(&status); });
    } catch (const Firebird::FbException&) {
        // The engine cleans up after a connection that goes.
    }
}

Firebird::ITransaction& Loader::transaction() {
    if (!transaction_)
        Translated({}, [&] {
            Status status;
            transaction_.reset(attachment_->startTransaction(&status, sizeof(loadBlock), loadBlock));
        });
    return *transaction_;
}

void Loader::commit() {
    if (transaction_)
        Translated({}, [&] {
            Status status;
            EndWith(transaction_, [&](auto* open) { open->commit(&status); });
        });
}

void Loader::run(const QString& statement) {
    Translated(statement, [&] {
        Status status;
        const QByteArray text = statement.toUtf8();
        attachment_->execute(&status, &transaction(), static_cast<unsigned>(text.size()), text.constData(),
                             SQL_DIALECT_V6, nullptr, nullptr, nullptr, nullptr);
    });
}

std::vector<QStringList> Loader::rows(const QString& query) {
    return Translated(query, [&] {
        Status status;
        const QByteArray text = query.toUtf8();
        Handle<Firebird::IStatement> statement(
            attachment_->prepare(&status, &transaction(), static_cast<unsigned>(text.size()), text.constData(),
                                 SQL_DIALECT_V6, Firebird::IStatement::PREPARE_PREFETCH_METADATA));
        const Handle<Firebird::IMessageMetadata> description(statement->getOutputMetadata(&status));
        firebird::RowReader reader(*attachment_, *description);
        Handle<Firebird::IResultSet> cursor(
            statement->openCursor(&status, &transaction(), nullptr, nullptr, description.get(), 0));
        TextRows sink;
        while (cursor->fetchNext(&status, reader.message()) == Firebird::IStatus::RESULT_OK)
            reader.give(transaction(), sink);
        EndWith(cursor, [&](auto* open) { open->close(&status); });
        return sink.rows;
    });
}

qint64 Loader::number(const QString& query) {
    const std::vector<QStringList> all = rows(query);
    return all.empty() ? 0 : all.front().value(0).toLongLong();
}

RowLoader::RowLoader(Loader& loader, const Table& table, const QStringList& columns)
    : loader_(loader), dropped_(loader.part_ && !loader.part_(table)) {
    QStringList names = columns;
    if (names.isEmpty())
        for (const Column& column : table.columns)
            names << column.name;
    const QString text = u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(table.name, names.join(u", "_s),
                                                                  QStringList(names.size(), u"?"_s).join(u','));
    Translated(text, [&] {
        Status status;
        const QByteArray bytes = text.toUtf8();
        statement_.reset(loader.attachment_->prepare(&status, &loader.transaction(),
                                                     static_cast<unsigned>(bytes.size()), bytes.constData(),
                                                     SQL_DIALECT_V6, Firebird::IStatement::PREPARE_PREFETCH_METADATA));
        const Handle<Firebird::IMessageMetadata> described(statement_->getInputMetadata(&status));
        const Handle<Firebird::IMetadataBuilder> builder(described->getBuilder(&status));
        for (unsigned i = 0; i < static_cast<unsigned>(names.size()); ++i) {
            const Column* column = table.column(names[i]);
            if (!column)
                throw RuntimeError(errorNumber::NoSuchColumn,
                                   u"A tabela %1 não tem a coluna %2"_s.arg(table.name, names[i]));
            const NativeForm form = nativeForm(*column);
            builder->setType(&status, i, form.type | 1u);
            builder->setLength(&status, i, form.length);
            builder->setScale(&status, i, form.scale);
            if (column->kind == Kind::Text)
                builder->setCharSet(&status, i, windows1252);
            slots_.push_back({*column, 0, 0});
        }
        form_.reset(builder->getMetadata(&status));
        for (unsigned i = 0; i < slots_.size(); ++i) {
            slots_[i].offset = form_->getOffset(&status, i);
            slots_[i].nullOffset = form_->getNullOffset(&status, i);
        }
        message_.resize(form_->getMessageLength(&status));
    });
}

RowLoader::~RowLoader() = default;

void RowLoader::setNull(const Slot& slot, bool null) {
    const ISC_SHORT mark = null ? -1 : 0;
    std::memcpy(&message_[slot.nullOffset], &mark, sizeof(mark));
}

RowLoader::Slot& RowLoader::next(Kind kind) {
    if (position_ >= slots_.size())
        throw RuntimeError(errorNumber::TypeMismatch, u"Há mais valores do que colunas"_s);
    Slot& slot = slots_[position_++];
    const Kind own = slot.column.kind == Kind::Key ? Kind::Integer : slot.column.kind;
    if (own != kind)
        throw RuntimeError(errorNumber::TypeMismatch,
                           u"A coluna %1 recebe um valor de outro tipo"_s.arg(slot.column.name));
    setNull(slot, false);
    return slot;
}

RowLoader& RowLoader::operator<<(qint64 value) {
    const qint32 narrow = static_cast<qint32>(value);
    std::memcpy(&message_[next(Kind::Integer).offset], &narrow, sizeof(narrow));
    return *this;
}

RowLoader& RowLoader::operator<<(Hundredths value) {
    std::memcpy(&message_[next(Kind::Amount).offset], &value.value, sizeof(value.value));
    return *this;
}

RowLoader& RowLoader::operator<<(QDate value) {
    Slot& slot = next(Kind::Date);
    const ISC_DATE day = static_cast<ISC_DATE>(value.isValid() ? value.toJulianDay() - firstEngineDay : 0);
    std::memcpy(&message_[slot.offset], &day, sizeof(day));
    setNull(slot, !value.isValid());
    return *this;
}

RowLoader& RowLoader::operator<<(QByteArrayView latin) {
    if (latin.isNull())
        return *this << nullptr;
    Slot& slot = next(Kind::Text);
    const auto length = static_cast<ISC_USHORT>(std::min<qsizetype>(latin.size(), slot.column.length));
    std::memcpy(&message_[slot.offset], &length, sizeof(length));
    std::memcpy(&message_[slot.offset + sizeof(length)], latin.data(), length);
    return *this;
}

RowLoader& RowLoader::operator<<(const QString& text) {
    return *this << QByteArrayView(ToWindows1252(text));
}

RowLoader& RowLoader::operator<<(std::nullptr_t) {
    if (position_ >= slots_.size())
        throw RuntimeError(errorNumber::TypeMismatch, u"Há mais valores do que colunas"_s);
    setNull(slots_[position_++], true);
    return *this;
}

void RowLoader::send() {
    if (position_ != slots_.size())
        throw RuntimeError(errorNumber::TypeMismatch, u"Faltam valores para a linha"_s);
    position_ = 0;
    if (dropped_) {
        ++sent_;
        return;
    }
    try {
        Status status;
        statement_->execute(&status, &loader_.transaction(), form_.get(), message_.data(), nullptr, nullptr);
        ++sent_;
    } catch (const Firebird::FbException& failure) {
        throw firebird::ToRuntimeError(failure, {});
    }
}

} // namespace vorta::kit

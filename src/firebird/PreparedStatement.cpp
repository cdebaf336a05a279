#include "firebird/PreparedStatement.h"

#include "base/EngineWatch.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace vorta::firebird {

namespace {

Answer answerOf(unsigned type, unsigned flags) {
    if (flags & Firebird::IStatement::FLAG_HAS_CURSOR)
        return Answer::Rows;
    if (type == isc_info_sql_stmt_exec_procedure)
        return Answer::OneRow;
    return type == isc_info_sql_stmt_ddl ? Answer::Tables : Answer::Nothing;
}

/// A longer text goes as a literal; what screens take is shorter.
constexpr int longestText = 256;
/// The engine's number of the character set in which statements are sent.
constexpr unsigned utf8 = 4;

template <typename Integer>
bool put(unsigned char* place, qint64 value) {
    if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
        return false;
    const auto fitting = static_cast<Integer>(value);
    std::memcpy(place, &fitting, sizeof fitting);
    return true;
}

} // namespace

PreparedStatement::PreparedStatement(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction,
                                     const QString& text) {
    Status status;
    const QByteArray bytes = text.toUtf8();
    statement_.reset(attachment.prepare(&status, &transaction, static_cast<unsigned>(bytes.size()), bytes.constData(),
                                        SQL_DIALECT_V6, Firebird::IStatement::PREPARE_PREFETCH_METADATA));
    answer_ = answerOf(statement_->getType(&status), statement_->getFlags(&status));
    if (text.contains(u'?')) // else it has no parameters, and asking costs as much as a row
        describeParameters();
    if (answer_ == Answer::Rows || answer_ == Answer::OneRow) {
        output_.reset(statement_->getOutputMetadata(&status));
        reader_ = std::make_unique<RowReader>(attachment, *output_);
    }
}

void PreparedStatement::describeParameters() {
    Status status;
    Handle<Firebird::IMessageMetadata>& described = asDescribed_.description;
    described.reset(statement_->getInputMetadata(&status));
    const unsigned count = described->getCount(&status);
    for (unsigned i = 0; i < count; ++i) {
        const unsigned type = described->getType(&status, i) & ~1u;
        const bool integer =
            (type == SQL_SHORT || type == SQL_LONG || type == SQL_INT64) && described->getScale(&status, i) == 0;
        onlyIntegers_ = onlyIntegers_ && integer;
        parameters_.push_back({type, described->getOffset(&status, i)});
    }
    asDescribed_.message.assign(described->getMessageLength(&status), 0);
}

void PreparedStatement::describeTexts() {
    Status status;
    const auto count = static_cast<unsigned>(parameters_.size());
    const Handle<Firebird::IMetadataBuilder> builder(asDescribed_.description->getBuilder(&status));
    for (unsigned i = 0; i < count; ++i) {
        builder->setType(&status, i, SQL_VARYING);
        builder->setSubType(&status, i, 0);
        builder->setScale(&status, i, 0);
        builder->setLength(&status, i, longestText);
        builder->setCharSet(&status, i, utf8);
    }
    asTexts_.description.reset(builder->getMetadata(&status));
    for (unsigned i = 0; i < count; ++i)
        textOffsets_.push_back(asTexts_.description->getOffset(&status, i));
    asTexts_.message.assign(asTexts_.description->getMessageLength(&status), 0);
}

std::vector<bool> PreparedStatement::datesAmongParameters() const {
    std::vector<bool> dates;
    for (const Parameter& parameter : parameters_)
        dates.push_back(parameter.type == SQL_TYPE_DATE || parameter.type == SQL_TIMESTAMP);
    return dates;
}

bool PreparedStatement::bind(std::span<const qint64> integers) {
    if (!onlyIntegers_ || integers.size() != parameters_.size())
        return false;
    input_ = &asDescribed_;
    for (std::size_t i = 0; i < integers.size(); ++i) {
        unsigned char* const place = input_->message.data() + parameters_[i].offset;
        const unsigned type = parameters_[i].type;
        const bool fits = type == SQL_SHORT  ? put<qint16>(place, integers[i])
                          : type == SQL_LONG ? put<qint32>(place, integers[i])
                                             : put<qint64>(place, integers[i]);
        if (!fits)
            return false;
    }
    return true;
}

bool PreparedStatement::bind(std::span<const QString> texts) {
    const auto isBlob = [](const Parameter& parameter) { return parameter.type == SQL_BLOB; };
    if (texts.size() != parameters_.size() || std::ranges::any_of(parameters_, isBlob))
        return false;
    if (!asTexts_.description)
        describeTexts();
    input_ = &asTexts_;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QByteArray bytes = texts[i].toUtf8();
        if (bytes.size() > longestText)
            return false;
        const auto length = static_cast<quint16>(bytes.size());
        unsigned char* const place = input_->message.data() + textOffsets_[i];
        std::memcpy(place, &length, sizeof length);
        std::memcpy(place + sizeof length, bytes.constData(), length);
    }
    return true;
}

void PreparedStatement::fetch(Firebird::ITransaction& transaction, data::RowSink* rows) {
    Status status;
    Handle<Firebird::IResultSet> cursor(statement_->openCursor(&status, &transaction, input_->description.get(),
                                                               input_->message.data(), output_.get(), 0));
    if (rows)
        rows->columns(reader_->names());
    while (cursor->fetchNext(&status, reader_->message()) == Firebird::IStatus::RESULT_OK) {
        EngineCall::Goes();
        if (rows)
            reader_->give(transaction, *rows);
    }
    EndWith(cursor, [&](auto* open) { open->close(&status); });
}

std::optional<qint64> PreparedStatement::execute(Firebird::ITransaction& transaction, data::RowSink* rows) {
    Status status;
    statement_->execute(&status, &transaction, input_->description.get(), input_->message.data(), output_.get(),
                        reader_ ? reader_->message() : nullptr);
    if (rows)
        rows->columns(reader_ ? reader_->names() : QStringList());
    if (rows && reader_)
        reader_->give(transaction, *rows);
    return reader_ ? reader_->single() : std::nullopt;
}

} // namespace vorta::firebird

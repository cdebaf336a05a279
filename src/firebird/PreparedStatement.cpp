#include "firebird/PreparedStatement.h"

#include "base/EngineWatch.h"

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
    input_.reset(statement_->getInputMetadata(&status));
    const unsigned count = input_->getCount(&status);
    for (unsigned i = 0; i < count; ++i) {
        const unsigned type = input_->getType(&status, i) & ~1u;
        const bool integer =
            (type == SQL_SHORT || type == SQL_LONG || type == SQL_INT64) && input_->getScale(&status, i) == 0;
        onlyIntegers_ = onlyIntegers_ && integer;
        parameters_.push_back({type, input_->getOffset(&status, i)});
    }
    inputMessage_.assign(input_->getMessageLength(&status), 0);
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
    for (std::size_t i = 0; i < integers.size(); ++i) {
        unsigned char* const place = inputMessage_.data() + parameters_[i].offset;
        const unsigned type = parameters_[i].type;
        const bool fits = type == SQL_SHORT  ? put<qint16>(place, integers[i])
                          : type == SQL_LONG ? put<qint32>(place, integers[i])
                                             : put<qint64>(place, integers[i]);
        if (!fits)
            return false;
    }
    return true;
}

void PreparedStatement::fetch(Firebird::ITransaction& transaction, data::RowSink* rows) {
    Status status;
    Handle<Firebird::IResultSet> cursor(
        statement_->openCursor(&status, &transaction, input_.get(), inputMessage_.data(), output_.get(), 0));
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
    statement_->execute(&status, &transaction, input_.get(), inputMessage_.data(), output_.get(),
                        reader_ ? reader_->message() : nullptr);
    if (rows)
        rows->columns(reader_ ? reader_->names() : QStringList());
    if (rows && reader_)
        reader_->give(transaction, *rows);
    return reader_ ? reader_->single() : std::nullopt;
}

} // namespace vorta::firebird

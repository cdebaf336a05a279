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
/// Its number of what is no text but bytes.
constexpr unsigned octets = 1;

template <typename Integer>
bool putFitting(unsigned char* place, qint64 value) {
    if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
        return false;
    const auto fitting = static_cast<Integer>(value);
    std::memcpy(place, &fitting, sizeof fitting);
    return true;
}

/// The whole number that a text spells as a number is printed: "5", neither "05" nor "5.4", which the engine compares
/// otherwise than it takes them for a parameter.
std::optional<qint64> spelledInteger(const QString& text) {
    bool whole = false;
    const qint64 integer = text.toLongLong(&whole);
    return whole && QString::number(integer) == text ? std::optional(integer) : std::nullopt;
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
    parametersAsDescribed_.reset(statement_->getInputMetadata(&status));
    Firebird::IMessageMetadata& described = *parametersAsDescribed_;
    const unsigned count = described.getCount(&status);
    for (unsigned i = 0; i < count; ++i) {
        const unsigned type = described.getType(&status, i) & ~1u;
        const bool isInteger =
            (type == SQL_SHORT || type == SQL_LONG || type == SQL_INT64) && described.getScale(&status, i) == 0;
        const bool isText = (type == SQL_TEXT || type == SQL_VARYING) && described.getCharSet(&status, i) != octets;
        parameters_.push_back({type, isInteger, isText});
    }
    asOperands_ = describe(std::mem_fn(&Parameter::isText));
}

PreparedStatement::Input PreparedStatement::describe(const std::function<bool(const Parameter&)>& asText) const {
    Status status;
    Input input;
    const Handle<Firebird::IMetadataBuilder> builder(parametersAsDescribed_->getBuilder(&status));
    for (unsigned i = 0; i < parameters_.size(); ++i) {
        if (!asText(parameters_[i]))
            continue;
        builder->setType(&status, i, SQL_VARYING);
        builder->setSubType(&status, i, 0);
        builder->setScale(&status, i, 0);
        builder->setLength(&status, i, longestText);
        builder->setCharSet(&status, i, utf8);
    }
    input.description.reset(builder->getMetadata(&status));
    for (unsigned i = 0; i < parameters_.size(); ++i)
        input.offsets.push_back(input.description->getOffset(&status, i));
    input.message.assign(input.description->getMessageLength(&status), 0);
    return input;
}

std::vector<bool> PreparedStatement::datesAmongParameters() const {
    std::vector<bool> dates;
    for (const Parameter& parameter : parameters_)
        dates.push_back(parameter.type == SQL_TYPE_DATE || parameter.type == SQL_TIMESTAMP);
    return dates;
}

bool PreparedStatement::put(std::size_t parameter, qint64 integer) {
    unsigned char* const place = input_->message.data() + input_->offsets[parameter];
    switch (parameters_[parameter].type) {
    case SQL_SHORT:
        return putFitting<qint16>(place, integer);
    case SQL_LONG:
        return putFitting<qint32>(place, integer);
    default:
        return putFitting<qint64>(place, integer);
    }
}

bool PreparedStatement::put(std::size_t parameter, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    if (bytes.size() > longestText)
        return false;
    const auto length = static_cast<quint16>(bytes.size());
    unsigned char* const place = input_->message.data() + input_->offsets[parameter];
    std::memcpy(place, &length, sizeof length);
    std::memcpy(place + sizeof length, bytes.constData(), length);
    return true;
}

bool PreparedStatement::bind(std::span<const Operand> operands) {
    if (operands.size() != parameters_.size())
        return false;
    input_ = &asOperands_;
    for (std::size_t i = 0; i < operands.size(); ++i) {
        const QString* const text = std::get_if<QString>(&operands[i]);
        if (text && parameters_[i].isText) {
            if (!put(i, *text))
                return false;
            continue;
        }
        const std::optional<qint64> integer = text ? spelledInteger(*text) : std::get<qint64>(operands[i]);
        if (!integer || !parameters_[i].isInteger || !put(i, *integer))
            return false;
    }
    return true;
}

bool PreparedStatement::bind(std::span<const QString> texts) {
    const auto isBlob = [](const Parameter& parameter) { return parameter.type == SQL_BLOB; };
    if (texts.size() != parameters_.size() || std::ranges::any_of(parameters_, isBlob))
        return false;
    if (!asTexts_.description)
        asTexts_ = describe([](const Parameter&) { return true; });
    input_ = &asTexts_;
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (!put(i, texts[i]))
            return false;
    return true;
}

bool PreparedStatement::fetchRow(Firebird::IResultSet& cursor) {
    Status status;
    const bool fetched = cursor.fetchNext(&status, reader_->message()) == Firebird::IStatus::RESULT_OK;
    EngineCall::Goes();
    return fetched;
}

PreparedStatement::Result PreparedStatement::open(Firebird::ITransaction& transaction) {
    Status status;
    Result result;
    result.cursor.reset(statement_->openCursor(&status, &transaction, input_->description.get(), input_->message.data(),
                                               output_.get(), 0));
    result.hasRow = fetchRow(*result.cursor);
    return result;
}

void PreparedStatement::fetch(Result result, Firebird::ITransaction& transaction, data::RowSink* rows) {
    if (rows)
        rows->columns(reader_->names());
    while (result.hasRow) {
        if (rows)
            reader_->give(transaction, *rows);
        result.hasRow = fetchRow(*result.cursor);
    }
    EndWith(result.cursor, [](auto* open) {
        Status status;
        open->close(&status);
    });
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

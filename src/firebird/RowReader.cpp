#include "firebird/RowReader.h"

#include "base/Literals.h"
#include "base/Moment.h"

#include <cstring>

namespace vorta::firebird {

namespace {

constexpr unsigned nullableBit = 1;
constexpr unsigned utf8 = 4;             // the engine's number of the character set
constexpr unsigned utf8BytesPerChar = 4; // a fixed-length text is described by its greatest length
constexpr int textBlob = 1;

/// Day 0 of the engine's calendar, 17 November 1858.
constexpr qint64 dayZero = 2400001;
/// The engine counts the time of day in tenths of milliseconds.
constexpr unsigned ticksPerMillisecond = ISC_TIME_SECONDS_PRECISION / 1000;

QDate dayOf(ISC_DATE date) {
    return QDate::fromJulianDay(dayZero + date);
}
QTime timeOf(ISC_TIME time) {
    return QTime::fromMSecsSinceStartOfDay(static_cast<int>(time / ticksPerMillisecond));
}

/// A fixed-length text arrives padded to its greatest number of bytes; its own length counts characters.
std::string_view fixedText(std::string_view padded, unsigned characterSet) {
    if (characterSet != utf8)
        return padded;
    std::size_t characters = padded.size() / utf8BytesPerChar;
    std::size_t bytes = 0;
    while (bytes < padded.size() && characters > 0) {
        ++bytes;
        while (bytes < padded.size() && (static_cast<unsigned char>(padded[bytes]) & 0xc0) == 0x80)
            ++bytes;
        --characters;
    }
    return padded.substr(0, bytes);
}

/// The shortest decimal that reads as the same binary number; a number too long for that goes as text.
void giveBinary(double value, int digits, data::RowSink& rows) {
    const QString text = QString::number(value, 'g', digits);
    const qsizetype point = text.indexOf(u'.');
    bool whole = false;
    const qint64 unscaled = QString(text).remove(u'.').toLongLong(&whole);
    if (whole)
        rows.decimal({unscaled, point < 0 ? 0 : static_cast<int>(text.size() - point - 1)});
    else
        rows.text(text.toStdString());
}

void giveScaled(qint64 value, int scale, data::RowSink& rows) {
    if (scale == 0)
        rows.integer(value);
    else
        rows.decimal({value, -scale});
}

} // namespace

RowReader::RowReader(Firebird::IAttachment& attachment, Firebird::IMessageMetadata& description)
    : attachment_(attachment) {
    Status status;
    const unsigned count = description.getCount(&status);
    for (unsigned i = 0; i < count; ++i) {
        names_ += QString::fromUtf8(description.getAlias(&status, i));
        columns_.push_back({description.getType(&status, i) & ~nullableBit, description.getSubType(&status, i),
                            description.getScale(&status, i), description.getLength(&status, i),
                            description.getCharSet(&status, i), description.getOffset(&status, i),
                            description.getNullOffset(&status, i)});
    }
    message_.resize(description.getMessageLength(&status));
}

template <typename Number>
Number RowReader::read(const Column& column) const {
    Number number;
    std::memcpy(&number, message_.data() + column.offset, sizeof number);
    return number;
}

bool RowReader::isNull(const Column& column) const {
    short flag = 0;
    std::memcpy(&flag, message_.data() + column.nullOffset, sizeof flag);
    return flag != 0;
}

void RowReader::give(Firebird::ITransaction& transaction, data::RowSink& rows) {
    rows.beginRow();
    for (const Column& column : columns_) {
        if (isNull(column))
            rows.null();
        else
            give(column, transaction, rows);
    }
    rows.endRow();
}

void RowReader::give(const Column& column, Firebird::ITransaction& transaction, data::RowSink& rows) {
    const char* const bytes = reinterpret_cast<const char*>(message_.data()) + column.offset;
    switch (column.type) {
    case SQL_VARYING:
        return rows.text({bytes + sizeof(short), read<unsigned short>(column)});
    case SQL_TEXT:
        return rows.text(fixedText({bytes, column.length}, column.characterSet));
    case SQL_SHORT:
        return giveScaled(read<qint16>(column), column.scale, rows);
    case SQL_LONG:
        return giveScaled(read<qint32>(column), column.scale, rows);
    case SQL_INT64:
        return giveScaled(read<qint64>(column), column.scale, rows);
    case SQL_FLOAT:
        return giveBinary(static_cast<double>(read<float>(column)), 7, rows);
    case SQL_DOUBLE:
    case SQL_D_FLOAT:
        return giveBinary(read<double>(column), 15, rows);
    case SQL_TYPE_DATE:
        return rows.date(Moment(dayOf(read<ISC_DATE>(column))));
    case SQL_TIMESTAMP: {
        const auto stamp = read<ISC_TIMESTAMP>(column);
        return rows.date(Moment(dayOf(stamp.timestamp_date), timeOf(stamp.timestamp_time)));
    }
    case SQL_TYPE_TIME:
        return rows.text(timeOf(read<ISC_TIME>(column)).toString(u"hh:mm:ss"_s).toStdString());
    case SQL_BOOLEAN:
        return rows.integer(read<unsigned char>(column) != 0 ? 1 : 0);
    case SQL_BLOB:
        return giveBlob(column, transaction, rows);
    default:
        return rows.null();
    }
}

void RowReader::giveBlob(const Column& column, Firebird::ITransaction& transaction, data::RowSink& rows) {
    Status status;
    auto id = read<ISC_QUAD>(column);
    // Asks the engine to turn the text from the column's character set into that of the connection.
    const unsigned char inUtf8[] = {isc_bpb_version1,
                                    isc_bpb_source_type,
                                    1,
                                    textBlob,
                                    isc_bpb_target_type,
                                    1,
                                    textBlob,
                                    isc_bpb_source_interp,
                                    1,
                                    static_cast<unsigned char>(column.characterSet),
                                    isc_bpb_target_interp,
                                    1,
                                    utf8};
    const bool isText = column.subType == textBlob;
    Handle<Firebird::IBlob> blob(
        attachment_.openBlob(&status, &transaction, &id, isText ? sizeof inUtf8 : 0, isText ? inUtf8 : nullptr));
    std::string content;
    std::array<char, 8192> segment;
    while (true) {
        unsigned length = 0;
        const int result = blob->getSegment(&status, segment.size(), segment.data(), &length);
        if (result != Firebird::IStatus::RESULT_OK && result != Firebird::IStatus::RESULT_SEGMENT)
            break;
        content.append(segment.data(), length);
    }
    EndWith(blob, [&](auto* open) { open->close(&status); });
    rows.text(content);
}

std::optional<qint64> RowReader::single() const {
    if (columns_.size() != 1 || isNull(columns_.front()))
        return std::nullopt;
    const Column& column = columns_.front();
    switch (column.type) {
    case SQL_SHORT:
        return read<qint16>(column);
    case SQL_LONG:
        return read<qint32>(column);
    case SQL_INT64:
        return read<qint64>(column);
    default:
        return std::nullopt;
    }
}

} // namespace vorta::firebird

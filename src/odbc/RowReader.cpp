#include "odbc/RowReader.h"

#include "base/Moment.h"
#include "base/RuntimeError.h"

#include <QLocale>
#include <algorithm>
#include <array>
#include <charconv>

#include <sql.h>
#include <sqlext.h>

namespace vorta::odbc {

namespace {

using data::Decimal;
using data::RowSink;

/// Longer than any column but those without a limit, so that one call gets a text.
constexpr size_t usualText = 32768;

struct TypeKind {
    SQLSMALLINT type;
    ValueKind kind;
};
/// How the types of columns are read; every other type is a text.
constexpr std::array kinds{
    TypeKind{SQL_BIT, ValueKind::Integer},      TypeKind{SQL_TINYINT, ValueKind::Integer},
    TypeKind{SQL_SMALLINT, ValueKind::Integer}, TypeKind{SQL_INTEGER, ValueKind::Integer},
    TypeKind{SQL_BIGINT, ValueKind::Integer},   TypeKind{SQL_DECIMAL, ValueKind::Exact},
    TypeKind{SQL_NUMERIC, ValueKind::Exact},    TypeKind{SQL_REAL, ValueKind::Float},
    TypeKind{SQL_FLOAT, ValueKind::Float},      TypeKind{SQL_DOUBLE, ValueKind::Float},
    TypeKind{SQL_TYPE_DATE, ValueKind::Date},   TypeKind{SQL_TYPE_TIMESTAMP, ValueKind::Moment},
};

/// The exact value of the driver's text "-1234.50"; a number too long for 64 bits overflows.
Decimal toDecimal(std::string_view text) {
    const size_t point = std::min(text.find('.'), text.size());
    std::string digits(text.substr(0, point));
    digits += text.substr(std::min(point + 1, text.size()));
    qint64 unscaled = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), unscaled);
    if (error != std::errc() || end != digits.data() + digits.size())
        throw RuntimeError(errorNumber::Overflow);
    return {unscaled, point == text.size() ? 0 : static_cast<int>(text.size() - point - 1)};
}

} // namespace

RowReader::RowReader(void* statement, const DriverForm& driver)
    : statement_(statement), utf8_(driver.utf8), buffer_(usualText, '\0'), wide_(utf8_ ? 0 : usualText, u'\0') {
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement_, &count);
    for (SQLSMALLINT column = 1; column <= count; ++column) {
        std::array<SQLWCHAR, 256> name{};
        SQLSMALLINT type = SQL_UNKNOWN_TYPE;
        SQLDescribeColW(statement_, static_cast<SQLUSMALLINT>(column), name.data(),
                        static_cast<SQLSMALLINT>(name.size()), nullptr, &type, nullptr, nullptr, nullptr);
        names_ << QString::fromUtf16(reinterpret_cast<const char16_t*>(name.data()));
        const auto known =
            std::find_if(kinds.begin(), kinds.end(), [&](const TypeKind& row) { return row.type == type; });
        kinds_.push_back(known == kinds.end() ? ValueKind::Text : known->kind);
    }
}

bool RowReader::send(RowSink& rows) {
    SQLRETURN answer = SQL_NO_DATA;
    while (SQL_SUCCEEDED(answer = SQLFetch(statement_)))
        if (!sendRow(rows))
            return false;
    return answer == SQL_NO_DATA;
}

bool RowReader::sendRow(RowSink& rows) {
    rows.beginRow();
    for (size_t index = 0; index < kinds_.size(); ++index) {
        const auto column = static_cast<quint16>(index + 1);
        bool sent = false;
        switch (kinds_[index]) {
        case ValueKind::Integer:
            sent = sendInteger(column, rows);
            break;
        case ValueKind::Exact:
            sent = sendExact(column, rows);
            break;
        case ValueKind::Float:
            sent = sendFloat(column, rows);
            break;
        case ValueKind::Date:
        case ValueKind::Moment:
            sent = sendDate(column, kinds_[index], rows);
            break;
        case ValueKind::Text:
            sent = sendText(column, rows);
            break;
        }
        if (!sent)
            return false;
    }
    rows.endRow();
    return true;
}

bool RowReader::sendInteger(quint16 column, RowSink& rows) {
    SQLBIGINT value = 0;
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(statement_, column, SQL_C_SBIGINT, &value, sizeof(value), &length)))
        return false;
    length == SQL_NULL_DATA ? rows.null() : rows.integer(value);
    return true;
}

bool RowReader::sendExact(quint16 column, RowSink& rows) {
    if (!readText(column))
        return false;
    text_.data() ? rows.decimal(toDecimal(text_)) : rows.null();
    return true;
}

bool RowReader::sendFloat(quint16 column, RowSink& rows) {
    double value = 0;
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(statement_, column, SQL_C_DOUBLE, &value, sizeof(value), &length)))
        return false;
    if (length == SQL_NULL_DATA)
        rows.null();
    else
        rows.decimal(toDecimal(QString::number(value, 'f', QLocale::FloatingPointShortest).toStdString()));
    return true;
}

bool RowReader::sendDate(quint16 column, ValueKind kind, RowSink& rows) {
    SQL_TIMESTAMP_STRUCT value{};
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(statement_, column, SQL_C_TYPE_TIMESTAMP, &value, sizeof(value), &length)))
        return false;
    if (length == SQL_NULL_DATA) {
        rows.null();
        return true;
    }
    constexpr SQLUINTEGER nanosecondsPerMillisecond = 1000000;
    const QTime time = kind == ValueKind::Date ? QTime(0, 0)
                                               : QTime(value.hour, value.minute, value.second,
                                                       static_cast<int>(value.fraction / nanosecondsPerMillisecond));
    rows.date(Moment(QDate(value.year, value.month, value.day), time));
    return true;
}

bool RowReader::sendText(quint16 column, RowSink& rows) {
    if (!readText(column))
        return false;
    text_.data() ? rows.text(text_) : rows.null();
    return true;
}

bool RowReader::readText(quint16 column) {
    std::size_t length = 0;
    bool null = false;
    if (!(utf8_ ? readLetters(column, SQL_C_CHAR, buffer_, length, null)
                : readLetters(column, SQL_C_WCHAR, wide_, length, null)))
        return false;
    if (!utf8_)
        buffer_ = QStringView(wide_.data(), static_cast<qsizetype>(length)).toUtf8().toStdString();
    text_ = null ? std::string_view() : std::string_view(buffer_.data(), utf8_ ? length : buffer_.size());
    return true;
}

template <typename Letter>
bool RowReader::readLetters(quint16 column, qint16 type, std::basic_string<Letter>& buffer, std::size_t& length,
                            bool& null) {
    std::size_t have = 0;
    while (true) {
        SQLLEN bytes = 0;
        const SQLRETURN answer = SQLGetData(statement_, column, type, buffer.data() + have,
                                            static_cast<SQLLEN>((buffer.size() - have) * sizeof(Letter)), &bytes);
        if (!SQL_SUCCEEDED(answer))
            return false;
        null = bytes == SQL_NULL_DATA;
        if (null)
            return true;
        const std::size_t room = buffer.size() - have - 1; // the driver closes each piece with a zero
        if (bytes >= 0 && static_cast<std::size_t>(bytes) <= room * sizeof(Letter)) {
            length = have + static_cast<std::size_t>(bytes) / sizeof(Letter);
            return true;
        }
        have += std::char_traits<Letter>::length(buffer.data() + have);
        buffer.resize(buffer.size() * 2);
    }
}

} // namespace vorta::odbc

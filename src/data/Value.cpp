#include "data/Value.h"

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <cmath>

namespace vorta::data {

namespace {

template <typename... Branch>
struct Overloaded : Branch... {
    using Branch::operator()...;
};
template <typename... Branch>
Overloaded(Branch...) -> Overloaded<Branch...>;

[[noreturn]] void raise(int number) {
    throw RuntimeError(number);
}

/// The digits themselves, so that an amount shows exactly what the database holds.
QString decimalText(const Decimal& decimal) {
    const bool negative = decimal.unscaled < 0;
    QString digits = QString::number(decimal.unscaled).mid(negative ? 1 : 0);
    if (decimal.scale > 0) {
        digits = digits.rightJustified(decimal.scale + 1, u'0');
        digits.insert(digits.size() - decimal.scale, u',');
        while (digits.endsWith(u'0'))
            digits.chop(1);
        if (digits.endsWith(u','))
            digits.chop(1);
    }
    return negative && digits != u"0" ? u'-' + digits : digits;
}

} // namespace

double Decimal::number() const {
    return static_cast<double>(unscaled) / std::pow(10.0, scale);
}

QString Value::text() const {
    return std::visit(Overloaded{[](std::monostate) -> QString { raise(errorNumber::InvalidNull); },
                                 [](qint64 integer) { return QString::number(integer); },
                                 [](const Decimal& decimal) { return decimalText(decimal); },
                                 [](const QString& text) { return text; },
                                 [](const QDateTime& date) { return FormatDate(date.date()); }},
                      value_);
}

QString Value::textOr(const QString& fallback) const {
    return isNull() ? fallback : text();
}

double Value::number() const {
    return std::visit(Overloaded{[](std::monostate) -> double { raise(errorNumber::InvalidNull); },
                                 [](qint64 integer) { return static_cast<double>(integer); },
                                 [](const Decimal& decimal) { return decimal.number(); },
                                 [](const QString& text) { return ToNumber(text); },
                                 [](const QDateTime&) -> double { raise(errorNumber::TypeMismatch); }},
                      value_);
}

qint16 Value::toInt16() const {
    return ToInt16(number());
}
qint32 Value::toInt32() const {
    return ToInt32(number());
}

QDateTime Value::date() const {
    if (isNull())
        raise(errorNumber::InvalidNull);
    if (const QDateTime* date = std::get_if<QDateTime>(&value_))
        return *date;
    const QString* text = std::get_if<QString>(&value_);
    const std::optional<QDateTime> parsed = text ? ParseDate(*text) : std::nullopt;
    if (!parsed)
        raise(errorNumber::TypeMismatch);
    return *parsed;
}

} // namespace vorta::data

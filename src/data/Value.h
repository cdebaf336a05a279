#pragma once

#include <QDateTime>
#include <QString>
#include <variant>

namespace vorta::data {

/// An exact decimal: `unscaled` divided by ten to the power `scale`.
struct Decimal {
    qint64 unscaled = 0;
    int scale = 0;
    double number() const;
    friend bool operator==(const Decimal&, const Decimal&) = default;
};

/// A value read from a row: null, integer, decimal, text or date. Reading a null as text or number raises 94; a text
/// that is no number raises 13 when a number is asked; a number outside its target's range raises 6.
class Value {
  public:
    Value() = default; // null
    Value(qint64 integer) : value_(integer) {}
    Value(Decimal decimal) : value_(decimal) {}
    Value(QString text) : value_(std::move(text)) {}
    Value(QDateTime date) : value_(std::move(date)) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(value_); }
    bool isInteger() const { return std::holds_alternative<qint64>(value_); }
    bool isDecimal() const { return std::holds_alternative<Decimal>(value_); }
    bool isText() const { return std::holds_alternative<QString>(value_); }
    bool isDate() const { return std::holds_alternative<QDateTime>(value_); }

    /// The value as the screens show it: numbers in the Brazilian form without trailing zeros, dates "dd/mm/yyyy".
    QString text() const;
    /// `text()`, or `fallback` for a null.
    QString textOr(const QString& fallback) const;
    /// As number; a text is read by its Brazilian form.
    double number() const;
    qint16 toInt16() const;
    qint32 toInt32() const;
    /// As date; a text is read as "dd/mm/yyyy"; raises 13 when it is none.
    QDateTime date() const;

    friend bool operator==(const Value&, const Value&) = default;

  private:
    std::variant<std::monostate, qint64, Decimal, QString, QDateTime> value_;
};

} // namespace vorta::data

#include "base/Format.h"

#include "base/Literals.h"
#include "base/Moment.h"
#include "base/Text.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace vorta {

namespace {

QString withComma(QString number) {
    return number.replace(u'.', u',');
}

} // namespace

QString FormatAmount(double value) {
    // A half cent may stand a hair below itself; no more than that is added, whatever the size of the amount.
    const double exact = std::abs(value) * 100;
    const double cents = std::round(exact + std::min(exact * 1e-15, 0.1));
    const QString text = QString::number(cents / 100, 'f', 2);
    return withComma(value < 0 && cents > 0 ? u'-' + text : text);
}

QString FormatAmountText(const QString& text) {
    // A lone point that parts no thousands stands for the comma: "2.5" is no 25.
    static const QRegularExpression pointed(u"^\\s*[+-]?\\d*\\.\\d*\\s*$"_s);
    static const QRegularExpression thousands(u"^\\s*[+-]?\\d{1,3}\\.\\d{3}\\s*$"_s);
    QString number = text;
    if (pointed.match(text).hasMatch() && !thousands.match(text).hasMatch())
        number.replace(u'.', u',');
    return IsNumeric(number) ? FormatAmount(ToNumber(number)) : text;
}

QString FormatNumber(double value) {
    return withComma(QString::number(value, 'g', 15));
}

QString FormatDate(const QDate& date) {
    return date.toString(u"dd/MM/yyyy"_s);
}

QString FormatDateTime(const QDateTime& moment) {
    return moment.toString(u"dd/MM/yyyy HH:mm"_s);
}

QString FormatDayMonthText(const QString& text) {
    std::optional<QDateTime> day = ParseDate(text);
    if (!day)
        day = ParseDate(text + u"/2000"_s);
    return day ? day->toString(u"dd/MM"_s) : text;
}

QString FormatDateSql(const QDate& date) {
    return date.toString(u"yyyyMMdd"_s);
}

QString FormatDateSqlSlashes(const QDate& date) {
    return date.toString(u"yyyy/MM/dd"_s);
}

std::optional<QDateTime> ParseDate(const QString& text) {
    static const QRegularExpression form(
        u"^(\\d{1,2})[/.-](\\d{1,2})[/.-](\\d{4}|\\d{2})(?: +(\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?$"_s);
    const QRegularExpressionMatch match = form.match(Trim(text));
    if (!match.hasMatch())
        return std::nullopt;
    int year = match.captured(3).toInt();
    if (match.capturedLength(3) == 2)
        year += year < 30 ? 2000 : 1900;
    const QDate date(year, match.captured(2).toInt(), match.captured(1).toInt());
    const QTime time = match.captured(4).isEmpty()
                           ? QTime(0, 0)
                           : QTime(match.captured(4).toInt(), match.captured(5).toInt(), match.captured(6).toInt());
    if (!date.isValid() || !time.isValid() || year < 100)
        return std::nullopt;
    return Moment(date, time);
}

bool IsDate(const QString& text) {
    return ParseDate(text).has_value();
}

} // namespace vorta

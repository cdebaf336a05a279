#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <optional>

/// The forms in which the register shows and sends numbers and dates, the same on every machine whatever its locale.
namespace vorta {

/// "###0.00" in the Brazilian form: two decimals, a comma, no thousands mark. 1234.5 gives "1234,50". Halves go away
/// from zero.
QString FormatAmount(double value);
/// The same for a text: a text that is a number in the Brazilian form is reshaped, any other stays as it is.
QString FormatAmountText(const QString& text);
/// A number in its shortest Brazilian form: 2.5 gives "2,5", 5.0 gives "5".
QString FormatNumber(double value);

QString FormatDate(const QDate& date);           ///< "dd/mm/yyyy", as screens show it
QString FormatDateTime(const QDateTime& moment); ///< "dd/mm/yyyy hh:mm"
/// "dd/mm" of a stored birthday, whether it holds a year or not and however short; any other text stays as it is.
QString FormatDayMonthText(const QString& text);
QString FormatDateSql(const QDate& date);        ///< "yyyymmdd", as most statements carry it
QString FormatDateSqlSlashes(const QDate& date); ///< "yyyy/mm/dd", as the architect and decorator statements carry it

/// The date of a text "d/m/yyyy" or "d/m/yy" (with an optional time "hh:mm" or "hh:mm:ss"), day first as in Brazil;
/// nothing when the text is no date of the calendar. As `Moment` holds it: a birthday may lie in the hour that a summer
/// time left out. Two-digit years: 00-29 are 2000s, 30-99 are 1900s.
std::optional<QDateTime> ParseDate(const QString& text);
bool IsDate(const QString& text);

} // namespace vorta

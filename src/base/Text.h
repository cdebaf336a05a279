#pragma once

#include <QString>

/// Text rules that every screen shares: blanks, prefixes and numeric readings as the office staff know them.
namespace vorta {

/// The blank (character 32) is the only thing that these three cut; a tab or a line break is content.
QString Trim(const QString& text);
QString RTrim(const QString& text);
QString LTrim(const QString& text);

/// Upper case character by character: the length never changes, so "ß" stays "ß". A letter whose capital the data
/// cannot hold ("µ", "ƒ") stays as well.
QString UCase(const QString& text);
QString LCase(const QString& text);

/// `count` characters from the 1-based position `start`; what lies past the end is simply missing.
QString Mid(const QString& text, int start, int count = -1);
QString Left(const QString& text, int count);

/// Numeric prefix of a text, with a point as decimal mark; blanks inside the number do not end it; 0 without digits,
/// infinite beyond what a double holds. One pass, however long the text.
double Val(const QString& text);

/// True for a text that reads as a number in the Brazilian form ("1.234,56", "12,5", "-3"), false for blank text.
bool IsNumeric(const QString& text);
/// The number of a text in the Brazilian form; raises 13 when the text is no number.
double ToNumber(const QString& text);

/// The whole number of a numeric value as 16 or 32 bits, halves rounded to even; raises 6 outside the range.
qint16 ToInt16(double value);
qint32 ToInt32(double value);

/// "True", "False" (any case) or a number (0 false, any other true); raises 13 for any other text.
bool ToBoolean(const QString& text);

} // namespace vorta

#include "base/Text.h"

#include "base/RuntimeError.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vorta {

namespace {

constexpr QChar blank = u' ';

double rounded(double value, double lowest, double highest) {
    const double whole = std::nearbyint(value);
    if (!(whole >= lowest && whole <= highest))
        throw RuntimeError(errorNumber::Overflow);
    return whole;
}

} // namespace

QString LTrim(const QString& text) {
    qsizetype start = 0;
    while (start < text.size() && text[start] == blank)
        ++start;
    return text.mid(start);
}

QString RTrim(const QString& text) {
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == blank)
        --end;
    return text.left(end);
}

QString Trim(const QString& text) {
    return RTrim(LTrim(text));
}

QString UCase(const QString& text) {
    QString upper = text;
    for (QChar& character : upper)
        if (const QChar capital = character.toUpper(); InRepertoire(capital))
            character = capital;
    return upper;
}

QString LCase(const QString& text) {
    QString lower = text;
    for (QChar& character : lower)
        character = character.toLower();
    return lower;
}

QString Mid(const QString& text, int start, int count) {
    if (start < 1 || start > text.size())
        return {};
    return text.mid(start - 1, count);
}

QString Left(const QString& text, int count) {
    return text.left(std::max(count, 0));
}

double Val(const QString& text) {
    QString number;
    qsizetype complete = 0; // length of the longest beginning that is a number by itself
    bool point = false;
    bool exponent = false;
    for (const QChar character : text) {
        if (character == blank || character == u'\t' || character == u'\n' || character == u'\r')
            continue;
        const bool digit = character >= u'0' && character <= u'9';
        const bool sign = (character == u'-' || character == u'+') && (number.isEmpty() || number.back() == u'e');
        if (digit || sign) {
            number += character;
        } else if (character == u'.' && !point && !exponent) {
            point = true;
            number += character;
        } else if ((character == u'e' || character == u'E' || character == u'd' || character == u'D') && !exponent &&
                   !number.isEmpty() && number.back().isDigit()) {
            exponent = true;
            number += u'e';
        } else {
            break;
        }
        if (digit)
            complete = number.size();
    }
    return number.first(complete).toDouble();
}

bool IsNumeric(const QString& text) {
    const QString trimmed = Trim(text);
    qsizetype at = 0;
    if (at < trimmed.size() && (trimmed[at] == u'-' || trimmed[at] == u'+'))
        ++at;
    bool digits = false;
    bool comma = false;
    for (; at < trimmed.size(); ++at) {
        const QChar character = trimmed[at];
        if (character >= u'0' && character <= u'9')
            digits = true;
        else if (character == u',' && !comma)
            comma = true;
        else if (character == u'.' && digits && !comma)
            continue;
        else
            return false;
    }
    return digits;
}

double ToNumber(const QString& text) {
    if (!IsNumeric(text))
        throw RuntimeError(errorNumber::TypeMismatch);
    QString plain = Trim(text);
    plain.remove(u'.');
    plain.replace(u',', u'.');
    return plain.toDouble();
}

qint16 ToInt16(double value) {
    return static_cast<qint16>(rounded(value, std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max()));
}

qint32 ToInt32(double value) {
    return static_cast<qint32>(rounded(value, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()));
}

bool ToBoolean(const QString& text) {
    const QString word = LCase(Trim(text));
    if (word == u"true" || word == u"verdadeiro")
        return true;
    if (word == u"false" || word == u"falso")
        return false;
    return ToNumber(word) != 0;
}

} // namespace vorta

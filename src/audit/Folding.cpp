#include "audit/Folding.h"

#include "base/Literals.h"

#include <algorithm>

namespace vorta::audit {

namespace {

/// The letters from "À" to "ÿ" without what they bear; a blank for what is no letter.
constexpr QStringView plainLetters = u"AAAAAAACEEEEIIIIDNOOOOO OUUUUYTSAAAAAAACEEEEIIIIDNOOOOO OUUUUYTY";
constexpr QChar firstAccented = u'À';

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// A letter or digit as its plain capital; a blank for anything else.
QChar plain(QChar character) {
    if (character >= u'a' && character <= u'z')
        return QChar(char16_t(character.unicode() - u'a' + u'A'));
    if (isDigit(character) || (character >= u'A' && character <= u'Z'))
        return character;
    const int place = character.unicode() - firstAccented.unicode();
    return place >= 0 && place < plainLetters.size() ? plainLetters[place] : QChar(u' ');
}

QString withoutZeros(QString digits) {
    while (digits.startsWith(u'0'))
        digits.remove(0, 1);
    return digits;
}

} // namespace

QString Folded(const QString& text) {
    QString folded;
    folded.reserve(text.size());
    for (const QChar character : text) {
        const QChar one = plain(character);
        if (one != u' ' || (!folded.isEmpty() && folded.back() != u' '))
            folded += one;
    }
    if (folded.endsWith(u' '))
        folded.chop(1);
    return folded;
}

QString Bare(const QString& document) {
    QString bare;
    bare.reserve(document.size());
    for (const QChar character : document)
        if (const QChar one = plain(character); one != u' ')
            bare += one;
    return bare;
}

QString Digits(const QString& text) {
    QString digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), isDigit);
    return digits;
}

QString Phone(const QString& text) {
    constexpr qsizetype shortest = 8, withCountry = 12;
    QString digits = withoutZeros(Digits(text));
    if (digits.size() >= withCountry && digits.startsWith(u"55"_s))
        digits = withoutZeros(digits.sliced(2));
    const bool same = std::ranges::all_of(digits, [&](QChar digit) { return digit == digits.front(); });
    return digits.size() < shortest || same ? QString() : digits;
}

quint64 HashOf(const QString& text) {
    quint64 hash = 0xcbf29ce484222325U;
    for (const QChar character : text)
        hash = (hash ^ character.unicode()) * 0x100000001b3U;
    // The last characters have met few multiplications yet.
    hash ^= hash >> 32;
    hash *= 0xd6e8feb86659fd93U;
    return hash ^ (hash >> 32);
}

} // namespace vorta::audit

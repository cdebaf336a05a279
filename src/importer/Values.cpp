#include "importer/Values.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"

#include <algorithm>

namespace vorta::importer {

namespace {

const QString natural = u"Física"_s;
const QString legal = u"Jurídica"_s;
constexpr qsizetype naturalLength = 11;
constexpr qsizetype legalLength = 14;

/// A text without what stands between the places of a mask.
QString bare(const QString& text) {
    QString kept;
    for (const QChar character : text)
        if (character.isLetterOrNumber())
            kept += character;
    return kept;
}

bool isDigits(const QString& text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar character) { return character >= u'0' && character <= u'9'; });
}

/// A date in the day-first form of the screens, from that form with short numbers or from "yyyy-mm-dd".
QString dayFirst(const QString& text) {
    if (const QDate iso = QDate::fromString(text.left(10), Qt::ISODate); iso.isValid())
        return FormatDate(iso);
    QStringList parts = text.split(u'/');
    for (QString& part : parts)
        part = part.rightJustified(2, u'0');
    return parts.join(u'/');
}

} // namespace

QString KindOf(const PersonRow& row) {
    const QString told = row.field(u"cboFisJur"_s);
    const QString folded = Folded(told);
    if (folded == u"F" || folded == u"FISICA")
        return natural;
    if (folded == u"J" || folded == u"JURIDICA")
        return legal;
    if (!told.isEmpty())
        return told;
    return bare(row.field(u"mskCodigo"_s)).size() <= naturalLength ? natural : legal;
}

QString DocumentOf(const PersonRow& row) {
    const QString told = row.field(u"mskCodigo"_s);
    const bool isNatural = KindOf(row) == natural;
    const qsizetype length = isNatural ? naturalLength : legalLength;
    QString places = UCase(bare(told));
    if (places.isEmpty())
        return {};
    if (isDigits(places))
        places = places.rightJustified(length, u'0');
    if (places.size() != length)
        return told;
    const auto part = [&](int from, int count) { return places.mid(from, count); };
    return isNatural ? part(0, 3) + u'.' + part(3, 3) + u'.' + part(6, 3) + u'-' + part(9, 2)
                     : part(0, 2) + u'.' + part(2, 3) + u'.' + part(5, 3) + u'/' + part(8, 4) + u'-' + part(12, 2);
}

bool IsNoDocument(const QString& document) {
    return std::none_of(document.begin(), document.end(),
                        [](QChar character) { return character.isLetterOrNumber() && character != u'0'; });
}

QString TypedInto(const QString& mask, const QString& text) {
    constexpr qsizetype postalCodeLength = 8;
    if (mask.startsWith(u"##/##"_s))
        return dayFirst(text).left(mask.size());
    const QString places = bare(text);
    if (mask == u"#####-###" && places.size() == postalCodeLength - 1 && isDigits(places))
        return u'0' + places;
    return places;
}

QString Folded(const QString& text) {
    QString plain;
    for (const QChar character : text.normalized(QString::NormalizationForm_D))
        if (character.category() != QChar::Mark_NonSpacing)
            plain += character;
    return UCase(plain).replace(u'\'', QChar(u'\u00b4')).simplified();
}

} // namespace vorta::importer

#include "base/Windows1252.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace vorta {

namespace {

/// What the bytes 0x80 to 0x9F mean; the other bytes are their own code points, and so are the five that are not taken.
constexpr std::array<char16_t, 32> special{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                           0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char16_t firstSpecial = 0x80;
constexpr char16_t behindSpecial = firstSpecial + special.size();
constexpr char16_t last = 0xFF;

/// Characters that no decomposition brings into the set, and below each what is nearest to it there.
constexpr std::u16string_view strange = u"ĐđĦħıŁłŦŧ‐‒―−⁄∕";
constexpr std::u16string_view nearest = u"DdHhiLlTt----//";
static_assert(strange.size() == nearest.size());
constexpr QChar apostrophe = u'\'';

/// The byte of a character beyond the single bytes; none for one that the set does not have.
std::size_t specialPlace(char16_t code) {
    return static_cast<std::size_t>(std::find(special.begin(), special.end(), code) - special.begin());
}

QChar nearestTo(QChar character) {
    const std::size_t place = strange.find(character.unicode());
    return place == std::u16string_view::npos ? character : QChar(nearest[place]);
}

/// True for a character of the set that means what it shows.
bool isKept(char32_t character) {
    return character <= std::numeric_limits<char16_t>::max() && character != QChar::Nbsp &&
           character != QChar::SoftHyphen && InRepertoire(QChar(static_cast<char16_t>(character)));
}

/// What the set has for a character that it does not have: the letter without its accent, the letters of a ligature, a
/// blank for one of another kind. No apostrophe, which ends the texts of statements, and nothing for a mere mark.
QString inPlaceOf(char32_t character) {
    QString kept;
    if (QChar::category(character) == QChar::Symbol_Modifier)
        return kept;
    for (const QChar part : QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_KD))
        if (const QChar near = nearestTo(part); isKept(near.unicode()) && near != apostrophe)
            kept += near;
    return kept;
}

} // namespace

bool InRepertoire(QChar character) {
    const char16_t code = character.unicode();
    return code < firstSpecial || (code >= behindSpecial && code <= last) ||
           (code > last && specialPlace(code) < special.size());
}

bool InRepertoire(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar character) { return InRepertoire(character); });
}

/// A letter and an accent that came apart are one; then what is outside becomes what is nearest to it.
QString OnlyRepertoire(const QString& text) {
    QString kept;
    for (const char32_t character : text.normalized(QString::NormalizationForm_C).toStdU32String())
        if (isKept(character))
            kept += QChar(static_cast<char16_t>(character));
        else
            kept += inPlaceOf(character);
    return kept;
}

QByteArray ToWindows1252(const QString& text) {
    if (!InRepertoire(text))
        throw RuntimeError(errorNumber::TypeMismatch, u"O texto [%1] tem caracteres fora do Windows-1252"_s.arg(text));
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t code = text[i].unicode();
        bytes[i] = static_cast<char>(code > last ? firstSpecial + specialPlace(code) : code);
    }
    return bytes;
}

QString FromWindows1252(QByteArrayView bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto place = static_cast<unsigned char>(bytes[i]);
        const bool isSpecial = place >= firstSpecial && place < behindSpecial;
        text[i] = QChar(isSpecial ? special[place - firstSpecial] : char16_t(place));
    }
    return text;
}

QString DecodedText(QByteArrayView bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(bytes);
    return utf8.hasError() ? FromWindows1252(bytes) : text;
}

} // namespace vorta

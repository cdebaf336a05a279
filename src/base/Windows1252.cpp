#include "base/Windows1252.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>

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

/// The byte of a character beyond the single bytes; none for one that the set does not have.
std::size_t specialPlace(char16_t code) {
    return static_cast<std::size_t>(std::find(special.begin(), special.end(), code) - special.begin());
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

QString OnlyRepertoire(const QString& text) {
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](QChar character) { return InRepertoire(character); });
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

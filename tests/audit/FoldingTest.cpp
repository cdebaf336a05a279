#include "audit/Folding.h"
#include "base/Literals.h"

#include <QSet>
#include <gtest/gtest.h>

using namespace vorta;

TEST(Folding, NamesAreTheSameWhateverTheirAccentsAndMarks) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"Santa Bárbara d´Oeste", "SANTA BARBARA D OESTE"},
        {"SANTA BARBARA D'OESTE", "SANTA BARBARA D OESTE"},
        {"  São   João-del-Rei ", "SAO JOAO DEL REI"},
        {"ÀÁÂÃÄÅ Ç ÈÉÊË ÌÍÎÏ Ñ ÒÓÔÕÖØ ÙÚÛÜ Ý", "AAAAAA C EEEE IIII N OOOOOO UUUU Y"},
        {"àáâãäå ç èéêë ìíîï ñ òóôõöø ùúûü ýÿ", "AAAAAA C EEEE IIII N OOOOOO UUUU YY"},
        {"A × B ÷ C", "A B C"},
        {"1ª LOJA 24h", "1 LOJA 24H"},
        {"...", ""},
        {"", ""},
    };
    for (const auto& [text, folded] : cases)
        EXPECT_EQ(audit::Folded(QString::fromUtf8(text)), QString::fromUtf8(folded)) << text;
}

TEST(Folding, DocumentsLoseTheirMarks) {
    EXPECT_EQ(audit::Bare(u"12.abc.345/01DE-35"_s), u"12ABC34501DE35"_s);
    EXPECT_EQ(audit::Bare(u"___.___.___-__"_s), QString());
    EXPECT_EQ(audit::Digits(u"CEP 06.010-000"_s), u"06010000"_s);
}

TEST(Folding, PhonesAreTheirDigits) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"(11) 3333-4444", "1133334444"},
        {"011 3333 4444", "1133334444"},
        {"+55 11 3333-4444", "1133334444"},
        {"5511999998888", "11999998888"},
        {"5533334444", "5533334444"},
        {"3333-4444", "33334444"},
        {"333-4444", ""},
        {"0000-0000", ""},
        {"99999-9999", ""},
        {"", ""},
        {"ramal", ""},
    };
    for (const auto& [text, phone] : cases)
        EXPECT_EQ(audit::Phone(QString::fromUtf8(text)), QString::fromUtf8(phone)) << text;
}

TEST(Folding, HashesOfNearTextsDiffer) {
    QSet<quint64> seen;
    constexpr int texts = 300'000;
    for (int at = 0; at < texts; ++at)
        seen << audit::HashOf(QString::number(at));
    EXPECT_EQ(seen.size(), texts);
}

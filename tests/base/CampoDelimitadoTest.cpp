#include "base/CampoDelimitado.h"
#include "base/Literals.h"

#include <gtest/gtest.h>
#include <vector>

using namespace vorta;

namespace {

struct Caso {
    qint16 indice;
    const char* texto;
    const char* campo;
    const char* depois;
};

} // namespace

TEST(CampoDelimitado, FieldsMissingFieldsAndTheCallersText) {
    const std::vector<Caso> casos{
        {1, "12^3^PRD^False^", "12", "12^3^PRD^False^"},
        {4, "12^3^PRD^False^", "False", "12^3^PRD^False^"},
        {5, "12^3^PRD^False^", ".", "12^3^PRD^False^"},
        {3, "a^b", ".", "a^b^"},
        {2, "a^b", "b", "a^b^"},
        {2, "a^^c^", "", "a^^c^"},
        {0, "a^b^", "", "a^b^"},
        {-1, "a^b^", "", "a^b^"},
        {1, "", "", ""},
        {3, "", "", ""},
        {1, "   ", "", "^"},
        {2, "   ", ".", "^"},
        {1, "  a ^ b ", "a ", "a ^ b^"},
        {2, "  a ^ b ^", " b ", "  a ^ b ^"},
        {2, " a^b^ ", "b", " a^b^ "},
    };
    for (const Caso& caso : casos) {
        QString texto = QString::fromUtf8(caso.texto);
        EXPECT_EQ(CampoDelimitado(caso.indice, texto), QString::fromUtf8(caso.campo))
            << caso.indice << " of " << caso.texto;
        EXPECT_EQ(texto, QString::fromUtf8(caso.depois)) << caso.texto;
    }
}

TEST(CampoDelimitado, BySeparatorTheTextBehindTheLastIsOutOfReach) {
    EXPECT_EQ(CampoDelimitadoPor(1, u"a|b|c"_s, u'|'), u"a"_s);
    EXPECT_EQ(CampoDelimitadoPor(2, u"a|b|c"_s, u'|'), u"b"_s);
    EXPECT_EQ(CampoDelimitadoPor(3, u"a|b|c"_s, u'|'), QString());
    EXPECT_EQ(CampoDelimitadoPor(2, u"a||c"_s, u'|'), QString());
    EXPECT_EQ(CampoDelimitadoPor(1, QString(), u'|'), QString());
    EXPECT_EQ(CampoDelimitadoPor(0, u"a|b"_s, u'|'), QString());
}

TEST(CampoDelimitado, FieldsOfALine) {
    EXPECT_EQ(CampoDaLinha(u"a^ b"_s, 2), u" b"_s);
    EXPECT_EQ(CampoDaLinha(u"a^b^"_s, 2), u"b"_s);
    EXPECT_EQ(CampoDaLinha(u"a^b^"_s, 3), QString());
    EXPECT_EQ(CampoDaLinha(u"a^b"_s, 3), u"."_s);
    EXPECT_EQ(CamposNaLinha(u"a^b"_s), 2);
    EXPECT_EQ(CamposNaLinha(u"a^b^"_s), 2);
    EXPECT_EQ(CamposNaLinha(u"^^"_s), 2);
}

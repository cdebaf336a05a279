#include "shared/ValidaDocumentos.h"
#include "base/Literals.h"

#include <gtest/gtest.h>

using namespace vorta;

namespace {

struct Documento {
    const char* texto;
    bool valido;
    const char* depois;
};

template <typename Valida>
void confere(Valida valida, const std::vector<Documento>& casos) {
    for (const auto& [texto, valido, depois] : casos) {
        QString numero = QString::fromUtf8(texto);
        EXPECT_EQ(valida(numero), valido) << texto;
        EXPECT_EQ(numero, QString::fromUtf8(depois)) << texto;
    }
}

} // namespace

TEST(ValidaDocumentos, CompanyNumbers) {
    confere(ValidaCNPJ, {
                            {"11.222.333/0001-81", true, "11222333000181"},
                            {"11222333000181", true, "11222333000181"},
                            {"11x222x333x0001x81", true, "11222333000181"},
                            {"11222333000182", false, "11222333000182"},
                            {"11222333000191", false, "11222333000191"},
                            {"00000000000000", true, "00000000000000"},
                            {"", true, ""},
                            {"AB.CDE.FGH/IJKL-MN", true, "ABCDEFGHIJKLMN"},
                            {"1122233300018", false, "1122233300018"},
                        });
}

TEST(ValidaDocumentos, PersonNumbers) {
    confere(ValidaCPF, {
                           {"111.444.777-35", true, "11144477735"},
                           {"11144477735", true, "11144477735"},
                           {"111x444x777x35", true, "11144477735"},
                           {"11144477736", false, "11144477736"},
                           {"11144477745", false, "11144477745"},
                           {"00000000000", true, "00000000000"},
                           {"11111111111", true, "11111111111"},
                           {"99999999999", true, "99999999999"},
                           {"", true, ""},
                           // The mask is taken by the length alone, so a bare company number is cut as a person's.
                           {"11222333000181", false, "11223300081"},
                       });
}

TEST(ValidaDocumentos, StateRegistrationLosesItsMarks) {
    QString inscricao = u"110.042.490.114"_s;
    EXPECT_TRUE(ValidaInscricaoEstadual(inscricao, u" SP "_s));
    EXPECT_EQ(inscricao, u"110042490114"_s);
    inscricao = u" 062.307.904/0081-1 "_s;
    EXPECT_FALSE(ValidaInscricaoEstadual(inscricao, u"MG"_s));
    EXPECT_EQ(inscricao, u" 06230790400811 "_s);
    inscricao = u"ISENTO"_s;
    EXPECT_TRUE(ValidaInscricaoEstadual(inscricao, u"RJ"_s));
}

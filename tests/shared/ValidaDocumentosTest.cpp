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

TEST(ValidaDocumentos, CompanyNumbersWithLetters) {
    struct Numero {
        const char* texto;
        bool comLetras; ///< what the check that takes letters says
        bool soAlgarismos;
    };
    const std::vector<Numero> casos{
        {"12.ABC.345/01DE-35", true, false},
        {"12ABC34501DE35", true, false},
        {"12abc34501de35", true, false},
        {"12.ABC.345/01DE-36", false, false},
        {"12.ABC.345/01DE-53", false, false},
        {"12.ABC.354/01DE-35", false, false},
        {"12.ABD.345/01DE-35", false, false},
        {"12.ABC.345/0002-69", true, false},
        {"IOUQF000000114", true, false},
        {"A0000000000032", true, false},
        {"00000000000A04", true, false},
        {"9Z9Z9Z9Z9Z9Z62", true, false},
        {"ABCDEFGHIJKL80", true, false},
        {"AAAAAAAAAAAA45", true, false},
        {"IIIIIIIIIIII28", true, false},
        {"QQQQQQQQQQQQ00", true, true},
        {"ZZZZZZZZZZZZ62", true, false},
        // Letters where the check digits should stand equal no digit.
        {"QQQQQQQQQQQQQQ", false, true},
        {"AB.CDE.FGH/IJKL-MN", false, true},
        // Without letters both say the same.
        {"11.222.333/0001-81", true, true},
        {"11222333000182", false, false},
        {"00000000000191", true, true},
        {"00000000000000", true, true},
        {"11111111111111", false, false},
        {"__.___.___/____-__", true, true},
        {"", true, true},
        {"1122233300018", false, false},
        // A letter of another alphabet, or with an accent, counts as nothing.
        {"11222333000181Á", true, true},
        {"Á1222333000181", false, false},
    };
    for (const auto& [texto, comLetras, soAlgarismos] : casos) {
        QString numero = QString::fromUtf8(texto), outro = numero;
        EXPECT_EQ(ValidaCNPJAlfanumerico(numero), comLetras) << texto;
        EXPECT_EQ(ValidaCNPJ(outro), soAlgarismos) << texto;
        EXPECT_EQ(numero, outro) << texto;
    }
}

/// The rule told another way: weights 2 to 9 from the right over and over, eleven minus the remainder.
QChar digitoPeloResto(const QString& corpo) {
    int soma = 0;
    for (qsizetype i = 0; i < corpo.size(); ++i)
        soma += (corpo[corpo.size() - 1 - i].unicode() - 48) * (2 + int(i % 8));
    return QChar(u'0' + (soma % 11 < 2 ? 0 : 11 - soma % 11));
}

TEST(ValidaDocumentos, EveryCharacterAtEveryPlaceOfACompanyNumber) {
    const QString signos = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s;
    for (int lugar = 0; lugar < 12; ++lugar)
        for (const QChar signo : signos) {
            QString numero = u"12ABC34501DE"_s;
            numero[lugar] = signo;
            numero += digitoPeloResto(numero);
            numero += digitoPeloResto(numero);
            EXPECT_TRUE(ValidaCNPJAlfanumerico(numero)) << numero;
            for (const int digito : {12, 13}) {
                QString errado = numero;
                errado[digito] = QChar(u'0' + (errado[digito].digitValue() + 1) % 10);
                EXPECT_FALSE(ValidaCNPJAlfanumerico(errado)) << errado;
            }
        }
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

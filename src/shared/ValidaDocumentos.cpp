#include "shared/ValidaDocumentos.h"

#include "base/Text.h"
#include "shared/inscricao/ConsisteInscricaoEstadual.h"

namespace vorta {

namespace {

/// Value of the 1-based character: a digit gives itself, anything else and a place past the end give 0.
int algarismo(const QString& numero, int posicao) {
    const QString letra = Mid(numero, posicao, 1);
    return letra >= u"0" && letra <= u"9" ? letra.toInt() : 0;
}

int digitoDaSoma(int soma) {
    const int digito = soma * 10 % 11;
    return digito == 10 ? 0 : digito;
}

int somaCNPJ(const QString& numero, QStringView pesos) {
    int soma = 0;
    for (int posicao = 1; posicao <= pesos.size(); ++posicao)
        soma += algarismo(numero, posicao) * pesos[posicao - 1].digitValue();
    return soma;
}

int somaCPF(const QString& numero, int primeiroPeso) {
    int soma = 0;
    for (int posicao = 1; posicao < primeiroPeso; ++posicao)
        soma += algarismo(numero, posicao) * (primeiroPeso + 1 - posicao);
    return soma;
}

} // namespace

bool ValidaCNPJ(QString& numero) {
    if (numero.size() == 18)
        numero = Mid(numero, 1, 2) + Mid(numero, 4, 3) + Mid(numero, 8, 3) + Mid(numero, 12, 4) + Mid(numero, 17, 2);
    return algarismo(numero, 13) == digitoDaSoma(somaCNPJ(numero, u"543298765432")) &&
           algarismo(numero, 14) == digitoDaSoma(somaCNPJ(numero, u"6543298765432"));
}

bool ValidaCPF(QString& numero) {
    if (numero.size() == 14)
        numero = Mid(numero, 1, 3) + Mid(numero, 5, 3) + Mid(numero, 9, 3) + Mid(numero, 13, 2);
    return algarismo(numero, 10) == digitoDaSoma(somaCPF(numero, 10)) &&
           algarismo(numero, 11) == digitoDaSoma(somaCPF(numero, 11));
}

bool ValidaInscricaoEstadual(QString& inscricao, const QString& uf) {
    inscricao.remove(u'.').remove(u'-').remove(u'/');
    return ConsisteInscricaoEstadual(Trim(inscricao), Trim(uf)) == 0;
}

} // namespace vorta

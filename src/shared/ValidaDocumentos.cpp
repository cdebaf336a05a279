#include "shared/ValidaDocumentos.h"

#include "base/Text.h"
#include "shared/inscricao/ConsisteInscricaoEstadual.h"

namespace vorta {

namespace {

/// What a character of a number is worth.
using Valor = int (*)(QChar letra);

/// A digit gives itself, anything else 0.
int algarismo(QChar letra) {
    return letra >= u'0' && letra <= u'9' ? letra.unicode() - u'0' : 0;
}

int algarismoOuLetra(QChar letra) {
    if (letra >= u'a' && letra <= u'z')
        return letra.unicode() - u'a' + u'A' - u'0';
    return letra >= u'A' && letra <= u'Z' ? letra.unicode() - u'0' : algarismo(letra);
}

/// The 1-based character; a place past the end is no digit.
QChar caractere(const QString& numero, int posicao) {
    return posicao <= numero.size() ? numero[posicao - 1] : QChar();
}

int digitoDaSoma(int soma) {
    const int digito = soma * 10 % 11;
    return digito == 10 ? 0 : digito;
}

int somaCNPJ(const QString& numero, QStringView pesos, Valor valor) {
    int soma = 0;
    for (int posicao = 1; posicao <= pesos.size(); ++posicao)
        soma += valor(caractere(numero, posicao)) * pesos[posicao - 1].digitValue();
    return soma;
}

int somaCPF(const QString& numero, int primeiroPeso) {
    int soma = 0;
    for (int posicao = 1; posicao < primeiroPeso; ++posicao)
        soma += algarismo(caractere(numero, posicao)) * (primeiroPeso + 1 - posicao);
    return soma;
}

bool confereCNPJ(QString& numero, Valor valor) {
    if (numero.size() == 18)
        numero = Mid(numero, 1, 2) + Mid(numero, 4, 3) + Mid(numero, 8, 3) + Mid(numero, 12, 4) + Mid(numero, 17, 2);
    return valor(caractere(numero, 13)) == digitoDaSoma(somaCNPJ(numero, u"543298765432", valor)) &&
           valor(caractere(numero, 14)) == digitoDaSoma(somaCNPJ(numero, u"6543298765432", valor));
}

} // namespace

bool ValidaCNPJ(QString& numero) {
    return confereCNPJ(numero, algarismo);
}

bool ValidaCNPJAlfanumerico(QString& numero) {
    return confereCNPJ(numero, algarismoOuLetra);
}

bool ValidaCPF(QString& numero) {
    if (numero.size() == 14)
        numero = Mid(numero, 1, 3) + Mid(numero, 5, 3) + Mid(numero, 9, 3) + Mid(numero, 13, 2);
    return algarismo(caractere(numero, 10)) == digitoDaSoma(somaCPF(numero, 10)) &&
           algarismo(caractere(numero, 11)) == digitoDaSoma(somaCPF(numero, 11));
}

bool ValidaInscricaoEstadual(QString& inscricao, const QString& uf) {
    inscricao.remove(u'.').remove(u'-').remove(u'/');
    return ConsisteInscricaoEstadual(Trim(inscricao), Trim(uf)) == 0;
}

} // namespace vorta

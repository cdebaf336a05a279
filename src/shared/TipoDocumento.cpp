#include "shared/TipoDocumento.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "shared/ValidaDocumentos.h"

#include <QRegularExpression>

namespace vorta {

namespace {

constexpr const char* cnpjIncorreto = "CGC Incorreto!\nContinua Verificação?";
constexpr std::initializer_list<std::pair<int, int>> gruposCNPJ{{1, 2}, {4, 3}, {8, 3}, {12, 4}, {17, 2}};
constexpr std::initializer_list<std::pair<int, int>> gruposCPF{{1, 3}, {5, 3}, {9, 3}, {13, 2}};

constexpr TipoDocumento cnpj{"##.###.###/####-##", gruposCNPJ, ValidaCNPJ, cnpjIncorreto};
constexpr TipoDocumento cnpjComLetras{"AA.AAA.AAA/AAAA-##", gruposCNPJ, ValidaCNPJAlfanumerico, cnpjIncorreto};
constexpr TipoDocumento cpf{"###.###.###-##", gruposCPF, ValidaCPF, "CPF Incorreto!\nContinua Verificação?"};

} // namespace

QString TipoDocumento::SemMarcas(const QString& texto) const {
    QString conteudo;
    for (const auto& [inicio, tamanho] : grupos)
        conteudo += Mid(texto, inicio, tamanho);
    return conteudo;
}

bool CNPJAlfanumerico(ContextoExecucao& contexto) {
    return InterruptorLigado(contexto, u"PESS_CNPJ_ALFANUMERICO"_s);
}

const TipoDocumento* TipoDocumentoDe(ContextoExecucao& contexto, const QString& pessoa) {
    if (pessoa == u"Jurídica")
        return CNPJAlfanumerico(contexto) ? &cnpjComLetras : &cnpj;
    return pessoa == u"Física" ? &cpf : nullptr;
}

bool ComecaComoCNPJ(ContextoExecucao& contexto, const QString& texto) {
    static const QRegularExpression comeco(
        u"^[0-9A-Z]{2}\\.(?:[0-9A-Z]{1,3}$|[0-9A-Z]{3}\\.(?:[0-9A-Z]{0,3}$|[0-9A-Z]{3}/))"_s,
        QRegularExpression::CaseInsensitiveOption);
    return comeco.match(texto).hasMatch() && CNPJAlfanumerico(contexto);
}

} // namespace vorta

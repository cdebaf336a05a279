#pragma once

#include "launch/ContextoExecucao.h"

#include <initializer_list>
#include <utility>

namespace vorta {

/// A kind of tax document as the screens ask for it.
struct TipoDocumento {
    const char* mascara;
    std::initializer_list<std::pair<int, int>> grupos; ///< where the masked text has its content: 1-based start, length
    bool (*valida)(QString& numero);
    const char* incorreto; ///< the question about a wrong one

    QString Mascara() const { return QString::fromLatin1(mascara); }
    /// The document without its marks, which are dropped by their places.
    QString SemMarcas(const QString& texto) const;
};

/// True when the company takes numbers of companies with letters: switch PESS_CNPJ_ALFANUMERICO is "S".
bool CNPJAlfanumerico(ContextoExecucao& contexto);
/// The kind of document of a kind of person, "Jurídica" or "Física"; null for any other text. Asks the company's switch
/// for the first.
const TipoDocumento* TipoDocumentoDe(ContextoExecucao& contexto, const QString& pessoa);

/// True when a text can be nothing but the beginning of a company's number with letters as its mask shows it, first
/// mark and a character behind it included. Asks the company's switch for such a text only.
bool ComecaComoCNPJ(ContextoExecucao& contexto, const QString& texto);

} // namespace vorta

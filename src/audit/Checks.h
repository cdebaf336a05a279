#pragma once

#include <QString>

#include <array>
#include <cstddef>

/// What may be wrong in a register, and how it is told.
namespace vorta::audit {

/// In the order of the report.
enum class Check {
    DocumentMissing,
    DocumentWrong,
    DocumentOfOtherKind,
    DocumentWithLetters,
    DocumentUnmasked,
    Registration,
    SameDocument,
    SameNameAndTown,
    SamePhone,
    SameMail,
    UnknownTown,
    CodeOfOtherTown,
    CodeMissing,
    PostalCode,
    Mail,
    ContactWithoutPerson,
    BranchWithoutPerson,
    RoleWithoutPerson,
    ContactWithoutRole,
    ReferenceToNothing,
    LinkUnreferenced,
};

struct CheckRow {
    Check check;
    const char* name; ///< in the table for spreadsheets
    const char* title;
};

inline constexpr std::array checks{
    CheckRow{Check::DocumentMissing, "documento-ausente", "Sem documento"},
    CheckRow{Check::DocumentWrong, "documento-errado", "Documento errado"},
    CheckRow{Check::DocumentOfOtherKind, "documento-de-outro-tipo", "Documento certo, mas do outro tipo de pessoa"},
    CheckRow{Check::DocumentWithLetters, "documento-com-letras", "CNPJ com letras, que a empresa não usa"},
    CheckRow{Check::DocumentUnmasked, "documento-sem-mascara", "Documento certo, gravado sem a máscara"},
    CheckRow{Check::Registration, "inscricao-estadual", "Inscrição estadual errada"},
    CheckRow{Check::SameDocument, "mesmo-documento", "Mesmo documento"},
    CheckRow{Check::SameNameAndTown, "mesmo-nome-e-cidade", "Mesmo nome na mesma cidade"},
    CheckRow{Check::SamePhone, "mesmo-telefone", "Mesmo telefone"},
    CheckRow{Check::SameMail, "mesmo-email", "Mesmo e-mail"},
    CheckRow{Check::UnknownTown, "cidade-desconhecida", "Cidade que o estado não tem"},
    CheckRow{Check::CodeOfOtherTown, "codigo-de-outra-cidade", "Código de município que não é o da cidade"},
    CheckRow{Check::CodeMissing, "codigo-vazio", "Código de município vazio, com cidade e estado conhecidos"},
    CheckRow{Check::PostalCode, "cep-fora-do-estado", "CEP incompleto ou fora do estado"},
    CheckRow{Check::Mail, "email-errado", "E-mail errado"},
    CheckRow{Check::ContactWithoutPerson, "contato-sem-pessoa", "Contato sem pessoa"},
    CheckRow{Check::BranchWithoutPerson, "ramo-sem-pessoa", "Ramo de atividade sem pessoa"},
    CheckRow{Check::RoleWithoutPerson, "vinculo-sem-pessoa", "Vínculo sem pessoa"},
    CheckRow{Check::ContactWithoutRole, "contato-sem-vinculo", "Contato de um vínculo que não existe"},
    CheckRow{Check::ReferenceToNothing, "referencia-errada", "Referência da pessoa a um vínculo que não é dela"},
    CheckRow{Check::LinkUnreferenced, "vinculo-sem-referencia", "Vínculo ativo que a pessoa não refere"},
};

constexpr const CheckRow& RowOf(Check check) {
    return checks.at(static_cast<std::size_t>(check));
}

/// The rows stand in the order of their numbers, which is how `RowOf` finds them.
static_assert([] {
    for (std::size_t row = 0; row < checks.size(); ++row)
        if (checks[row].check != static_cast<Check>(row))
            return false;
    return true;
}());

/// One thing that is wrong.
struct Finding {
    Check check = Check::DocumentMissing;
    qint64 person = 0; ///< IDPESS; 0 for none
    QString name = {}, document = {};
    bool deactivated = false;
    QString field = {}; ///< the column, or the table and key of a row that is no person's
    QString value = {};
    QString words = {}; ///< what is wrong with it
    qint64 group = 0;   ///< of those who are the same; 0 for none
};

/// Hears what an audit finds.
class Findings {
  public:
    virtual ~Findings() = default;
    virtual void found(const Finding& finding) = 0;
    /// So many more of a large group, which are counted and not listed.
    virtual void further(Check check, qint64 count) = 0;
};

} // namespace vorta::audit

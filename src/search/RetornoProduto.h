#pragma once

#include <QString>
#include <span>

/// What the product search hands to each screen that may have opened it: a contract towards the other programs of the
/// ERP.
namespace vorta {

struct EscritaProduto {
    int coluna;        ///< column of the grid
    bool aparado;      ///< blanks cut on both sides
    const char* campo; ///< field of the caller
};

struct RetornoProduto {
    const char* chamadora;
    const char* tipoConsulta; ///< null: any
    std::span<const EscritaProduto> escritas;
    const char* foco; ///< null: none
    bool fecha = true;
};

/// The first row that fits; null for a caller that the contract does not name.
const RetornoProduto* RetornoDe(const QString& chamadora, const QString& tipoConsulta);

} // namespace vorta

#pragma once

#include "data/Statement.h"
#include "shared/Capacidade.h"

#include <optional>
#include <span>

/// The fields of the person screen as one table: a row says everything about its field, and the statements of `PESS`
/// are orders of rows.
namespace vorta {

/// When the column of a field takes its value; else it takes what stands for nothing.
enum class Gravacao {
    Nunca,             ///< the field is only shown
    SeTemTexto,        ///< the text has at least one character
    SeTemTextoAparado, ///< the trimmed text has at least one character
    SeTemMascara,      ///< the masked field has at least one character, which its blank form has too
    SeTemData,         ///< the text is a date
    Sempre
};

/// In which form the value of a field stands in its column.
enum class Forma {
    Texto,
    TextoExigido,     ///< the text; a null is a fault of the row
    Aparado,          ///< written trimmed
    CodigoMunicipio,  ///< written trimmed at inclusion, as it stands at alteration
    FisicaOuJuridica, ///< "F" or "J"
    Documento,        ///< the text; shown without a mask
    DiaMes,           ///< the text; nothing is shown as the blank mask
    Data,             ///< "yyyymmdd"
    CepComercial,     ///< the text; the three blocks show short or dirty values differently
    CepEntrega,
    CepCobranca,
    Vendedor, ///< the key behind a name, shown as the name
    TipoCliente,
    Transportadora
};

/// What a statement says of a field without a value.
struct Vazio {
    const char* inserido = nullptr; ///< none: the insert leaves the column out
    data::Piece alterado = "null";
    std::optional<data::Piece> colunaAlterada = {}; ///< where the update then spells the column in its own way
};

/// Rules that a field shares with others, to be joined by "|".
enum Familia : unsigned {
    SoNaEdicao = 1,    ///< locked, a button disabled, but during inclusion and alteration
    SempreTravado = 2, ///< filled by the program alone
    Limpa = 4,         ///< emptied when the screen is cleared
    SemEnter = 8,      ///< Enter does not move on, as it does on every other input field
    Acento = 16,       ///< a typed apostrophe becomes an acute accent
    Seleciona = 32     ///< its text is selected when it is entered
};

struct CampoPessoa {
    const char* nome;
    std::optional<data::Piece> coluna = {};       ///< of `PESS`; none for a field that no statement names
    std::optional<data::Piece> colunaInsert = {}; ///< where the insert spells it in its own way
    int tamanho = 0;                              ///< most characters; 0 for no limit
    const char* dica = "";
    int capacidade = capacidade::texto; ///< what its column holds where there is no such limit
    Gravacao grava = Gravacao::Nunca;
    Forma forma = Forma::Texto;
    Vazio vazio = {};
    unsigned familias = 0;

    constexpr bool e(Familia familia) const { return (familias & familia) != 0; }
};

/// All rows, in the order of the table `PESS`.
std::span<const CampoPessoa> CamposPessoa();

// The fields of the three statements, in the order in which each names or reads their columns.
std::span<const CampoPessoa* const> OrdemInsert();
std::span<const CampoPessoa* const> OrdemUpdate();
std::span<const CampoPessoa* const> OrdemCarga();

} // namespace vorta

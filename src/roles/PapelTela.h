#pragma once

#include "data/Statement.h"

#include <QDate>
#include <optional>

namespace vorta {

/// How a role screen knows that a record stands on it.
enum class Selecao {
    PelaPessoa,  ///< `txtRowID` is filled, so that a person without a role row passes too
    PeloRegistro ///< the id label holds a number
};

/// How a save learns the key of the row that it has just inserted.
enum class ChaveNova {
    PorGerador, ///< from the generator on Firebird, by asking the connection elsewhere
    Perguntada, ///< by asking the connection on every engine
    Dispensada  ///< nothing needs it
};

/// What a click on "Visualiza os Desativados" does.
enum class GradeAntiga {
    Nenhuma,
    SemGrade,   ///< the old list of salespeople is read, but there is no grid to take its rows
    NosContatos ///< its rows take the place of the contacts
};

/// A contact table of a role. Its columns are named after the table.
struct TabelaContatos {
    data::Piece tabela;
    data::Piece chavePapel;             ///< key of the role row that owns the contacts
    std::optional<data::Piece> gerador; ///< none where the database fills the key
};

/// One role screen for the frame that all seven share.
struct PapelTela {
    const char* tela;
    const char* sufixo;   ///< behind the register's title in the title bar
    const char* rotuloId; ///< label with the id of the role row
    const char* primeiroCampo;
    data::Piece tabela;
    data::Piece chave;
    data::Piece chaveBusca;  ///< the key as the search for a person's row names it
    const char* colunaBusca; ///< the key in the search's result
    Selecao selecao = Selecao::PeloRegistro;
    std::optional<data::Piece> gerador = {};
    ChaveNova chaveNova = ChaveNova::PorGerador;
    std::optional<data::Piece> colunaPess = {}; ///< back-reference in `PESS` that the screen keeps by itself
    std::optional<TabelaContatos> contatos = {};
    bool conferePessoaAtiva = true;  ///< a deactivated person must be reactivated before its role
    bool exigePessoa = true;         ///< the save refuses a screen without a person
    bool confereCodigo = false;      ///< an inclusion looks the person's id up among the customers
    bool preencheCredencial = false; ///< an inclusion starts with today as the date of credential
    bool limpaDesativacao = true;    ///< clearing the screen takes the date of deactivation with it
    bool limpaAposGravar = true;
    bool entradaConferida = false; ///< contact names go to capitals and birthdays are checked on leaving
    bool armadilhaIncluir = false; ///< an error in the inclusion shows its box and the program goes on
    bool armadilhaSalvar = false;  ///< an error in the save goes through the operation "Rollback"
    bool atualizaPessoas = true;   ///< closing refreshes the role buttons of the person screen
    GradeAntiga gradeAntiga = GradeAntiga::Nenhuma;
    QString (*dataComando)(const QDate&) = nullptr; ///< form of dates in the inserts and updates of the save
};

const PapelTela& PapelCliente();
const PapelTela& PapelFornecedor();
const PapelTela& PapelTransportadora();
const PapelTela& PapelMotorista();
const PapelTela& PapelVendedor();
const PapelTela& PapelArquiteto();
const PapelTela& PapelDecorador();

} // namespace vorta

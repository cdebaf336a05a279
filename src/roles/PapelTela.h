#pragma once

#include "base/Format.h"
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

/// What an error in the save does.
enum class ErroNoSalvar {
    Encerra,     ///< ends the program as any run-time error
    PedeRollback ///< asks the connection for the operation "Rollback" first
};

/// A contact table of a role. Its columns are named after the table.
struct TabelaContatos {
    data::Piece tabela;
    data::Piece chavePapel;             ///< key of the role row that owns the contacts
    std::optional<data::Piece> gerador; ///< none where the database fills the key
};

/// What a role screen does; screens of one kin do the same.
struct RegrasPapel {
    Selecao selecao = Selecao::PeloRegistro;
    bool conferePessoaAtiva = true;  ///< a deactivated person must be reactivated before its role
    bool exigePessoa = true;         ///< the save refuses a screen without a person
    bool confereCodigo = false;      ///< an inclusion looks the person's id up among the customers
    bool preencheCredencial = false; ///< an inclusion starts with today as the date of credential
    bool limpaDesativacao = true;    ///< clearing the screen takes the date of deactivation with it
    bool limpaAposGravar = true;
    bool entradaConferida = false; ///< contact names go to capitals and birthdays are checked on leaving
    bool armadilhaIncluir = false; ///< an error in the inclusion shows its box and the program goes on
    bool atualizaPessoas = true;   ///< closing refreshes the role buttons of the person screen
    GradeAntiga gradeAntiga = GradeAntiga::Nenhuma;
    QString (*dataComando)(const QDate&) = FormatDateSql; ///< form of dates in the inserts and updates of the save
};

/// What a role screen and its parts are called.
struct NomesTela {
    const char* tela;
    const char* sufixo;   ///< behind the register's title in the title bar
    const char* rotuloId; ///< label with the id of the role row
    const char* primeiroCampo;
};

/// The table of a role and the names of its key.
struct TabelaPapel {
    data::Piece tabela;
    data::Piece chave;
    data::Piece chaveBusca;  ///< the key as the search for a person's row names it
    const char* colunaBusca; ///< the key in the search's result
};

/// What becomes of the key of a new row.
struct ChavePapel {
    std::optional<data::Piece> gerador;
    ChaveNova chaveNova;
    std::optional<data::Piece> colunaPess = {}; ///< back-reference in `PESS` that the screen keeps by itself
};

/// One role screen for the frame that all seven share.
struct PapelTela : RegrasPapel, NomesTela, TabelaPapel, ChavePapel {
    ErroNoSalvar erroNoSalvar;
    std::optional<TabelaContatos> contatos = {};
};

extern const PapelTela papelCliente;
extern const PapelTela papelFornecedor;
extern const PapelTela papelTransportadora;
extern const PapelTela papelMotorista;
extern const PapelTela papelVendedor;
extern const PapelTela papelArquiteto;
extern const PapelTela papelDecorador;

} // namespace vorta

#pragma once

#include "base/Format.h"

#include <QDate>

/// The differences between the role screens, as data: each screen tells its own to the frame that all of them share.
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

/// What the screens of one kin do.
struct RegrasGrupo {
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

/// Customer, supplier and carrier have a credential.
inline constexpr RegrasGrupo credenciado{.selecao = Selecao::PelaPessoa,
                                         .confereCodigo = true,
                                         .preencheCredencial = true,
                                         .limpaDesativacao = false,
                                         .limpaAposGravar = false,
                                         .entradaConferida = true};

/// Driver and salesperson work for the company.
inline constexpr RegrasGrupo empregado{
    .exigePessoa = false, .armadilhaIncluir = true, .gradeAntiga = GradeAntiga::SemGrade};

/// Architect and decorator earn commissions.
inline constexpr RegrasGrupo comissionado{.conferePessoaAtiva = false,
                                          .armadilhaIncluir = true,
                                          .atualizaPessoas = false,
                                          .gradeAntiga = GradeAntiga::NosContatos,
                                          .dataComando = FormatDateSqlSlashes};

/// What one role screen tells the frame: the rules of its kin, its names, and what is its own.
struct RegrasTelaPapel {
    RegrasGrupo grupo;
    const char* sufixo;   ///< behind the register's title in the title bar
    const char* rotuloId; ///< label with the id of the role row
    const char* primeiroCampo;
    ChaveNova chaveNova;
    ErroNoSalvar erroNoSalvar;
    bool buscaQualificada = false; ///< the search for the person's row names the key with its table
    bool guardaVinculo = false;    ///< the screen keeps the person's back-reference by itself
};

} // namespace vorta

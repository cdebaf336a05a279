#pragma once

#include "base/Format.h"
#include "shared/Papeis.h"
#include "shared/TelaEdicao.h"

namespace vorta {

/// When the birthday of a contact is checked.
enum class ConfereAniversario {
    Nunca,
    NaInclusao, ///< when the contact goes into the grid, in the current year
    AoSair      ///< on leaving the field, in a fixed year, so that 29 February is never one
};

/// What a screen tells of its contacts.
struct RegrasContatos {
    TabelaContatos tabela;
    data::Piece chaveDono; ///< key of the record that owns the contacts
    const char* campoAniversario;
    ConfereAniversario aniversario = ConfereAniversario::Nunca;
    bool nomeEmMaiusculas = false;
    /// It takes a double click to fetch a contact out of the grid, and outside an operation that writes to him.
    bool duploClique = false;
    QString (*dataComando)(const QDate&) = FormatDateSql; ///< form of the day of inclusion
};

/// The mark on the line of an entry that is not in its list; empty for an entry without a text.
QString MarcaForaDaLista(const QString& tipo, const QString& digitado);

/// The contact people of a record: entry fields and a grid that is the working copy of the table between load and save.
/// A save deletes all contacts of the record and inserts the rows of the grid anew.
class BlocoContatos {
  public:
    BlocoContatos(TelaEdicao& tela, const RegrasContatos& regras);

    /// Rebuilds the grid empty.
    void PreparaGridContatos();
    /// Empties the entry fields.
    void LimpaEntrada();
    void Bloqueia();
    void Libera();

    /// For the beginning of a save: a contact that stands in the entry fields alone is named on its line, as only the
    /// grid is written.
    void MarcaForaDaLista();
    void ApagaMarca();

    /// Fills the grid with the stored contacts of a record.
    void Carrega(const QString& idDono);
    /// The deletion of a record's contacts. An empty id leaves a statement that the engine refuses.
    data::Statement MontaDeleteContatos(const QString& idDono) const;
    /// The insertion of a row of the grid, from 1. Reads the contact table's generator first, where it has one.
    data::Statement MontaInsertContato(const QString& idDono, int linha) const;

    screen::ListField cboTipoContato;
    screen::TextField txtNomeContato;
    screen::TextField txtFoneContato;
    screen::TextField txtEmailContato;
    screen::MaskedField mskDtNasc; ///< each screen names it its own way
    screen::Button cmdIncluirContato;
    screen::Grid Flex;
    screen::Label lblContatoFora; ///< empty, or the name of a contact that is in no list

  private:
    bool AniversarioAceito();
    void RetiraDaGrade(int linha);
    void cmdIncluirContato_Click();
    void Flex_Toque();
    void mskDtNasc_LostFocus();

    TelaEdicao& tela_;
    ContextoExecucao& contexto_;
    RegrasContatos regras_;
};

} // namespace vorta

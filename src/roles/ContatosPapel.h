#pragma once

#include "launch/ContextoExecucao.h"
#include "roles/RegrasTelaPapel.h"
#include "shared/Papeis.h"

namespace vorta {

/// The contact block of a role screen: entry fields and a grid that is the working copy of the role's contact table
/// between load and save. A save deletes all contacts of the role row and inserts the rows of the grid anew.
class ContatosPapel {
  public:
    /// For a role with a table of contacts.
    ContatosPapel(ContextoExecucao& contexto, screen::Screen& tela, const Papel& papel, const RegrasTelaPapel& regras);

    /// Rebuilds the grid empty.
    void PreparaGridContatos();
    /// Empties the entry fields.
    void LimpaEntrada();
    void Bloqueia();
    void Libera();

    /// Fills the grid with the stored contacts of a role row.
    void Carrega(const QString& idPapel);
    /// The deletion of a role row's contacts. An empty id leaves a statement that the engine refuses.
    data::Statement MontaDeleteContatos(const QString& idPapel) const;
    /// The insertion of a row of the grid, from 1. Reads the contact table's generator first, where it has one.
    data::Statement MontaInsertContato(const QString& idPapel, int linha) const;

    screen::ListField cboTipoContato;
    screen::TextField txtNomeContato;
    screen::TextField txtFoneContato;
    screen::TextField txtEmailContato;
    screen::MaskedField mskDtNasc;
    screen::Button cmdIncluirContato;
    screen::Grid Flex;

  private:
    void cmdIncluirContato_Click();
    void Flex_Click();
    void txtEmailContato_LostFocus();
    void mskDtNasc_LostFocus();

    ContextoExecucao& contexto_;
    screen::Screen& tela_;
    const Papel& papel_;
    const RegrasTelaPapel& regras_;
    const TabelaContatos& tabela_;
};

} // namespace vorta

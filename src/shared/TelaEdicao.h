#pragma once

#include "screen/Program.h"
#include "shared/Modo.h"

namespace vorta {

/// What a screen tells of its edit operation.
struct RegrasEdicao {
    data::Piece tabela; ///< of the record
    data::Piece chave;
    const char* primeiroCampo;                          ///< where an alteration begins
    bool semSelecaoVaiParaGrade = true;                 ///< an alteration without a record gives the grid the focus
    bool obedeceSomenteConsulta = false;                ///< a launch for looking only takes the writing buttons away
    screen::Icon iconeErro = screen::Icon::Information; ///< of the box of an error that is held back
    bool fechaRecordsetNoErro = false;                  ///< such an error closes the shared recordset
};

/// The columns of a deactivation: who did it, and on which day.
data::Statement ColunasDesativacao(const ContextoExecucao& contexto);

/// A screen that keeps one record: includes, alters, deactivates and reactivates it. Everything that such screens do
/// alike stands here; each tells its `RegrasEdicao` and the steps that are its own. It works on fields that every such
/// screen has under the same names, wherever they stand in its tab order: `txtRowID`, `txtDTDesativa`, the operations'
/// buttons and, where there are contacts, the grid `Flex`.
class TelaEdicao : public screen::Screen {
  public:
    TelaEdicao(ContextoExecucao& contexto, const QString& nome, const RegrasEdicao& regras);

    ContextoExecucao& contexto() const { return contexto_; }
    Modo modo() const { return ModoAtual(contexto_); }
    /// True during inclusion and alteration.
    bool EmEdicao() const { return modo() != Modo::Ocioso; }

    /// The frame does what the way out does: during an operation it asks.
    void CloseByFrame() override { cmdSAIR_Click(); }

    /// For leaving a date with a text that is none: tells so and holds the user in the field.
    void RecusaData(screen::Field& campo);
    /// For leaving a field with an e-mail address: a doubtful one is asked about, and "Sim" goes back to the field.
    void ConfereEmail(screen::Field& campo);

  protected:
    // The steps of a screen of its own.
    virtual void LimpaCampos() = 0;
    virtual void BloqueiaCampos() = 0; ///< locks the fields of the record
    virtual void LiberaCampos() = 0;   ///< frees them for inclusion or alteration
    virtual void cmdINCLUIR_Click() = 0;
    virtual void cmdSALVAR_Click() = 0;
    virtual bool Selecionado() const; ///< a record stands on the screen
    virtual QString IdRegistro() const;
    virtual void MostraModo(Modo) {}
    virtual void ApagaMarcas() {} ///< takes away what a save has left on the screen about entries that it did not write
    /// False, after its own message, keeps the record as it is.
    virtual bool PodeDesativar() { return true; }
    virtual bool PodeReativar() { return true; }
    virtual void AoDesativar() {} ///< behind the statement
    virtual void AoReativar() {}
    virtual void Recarrega() {} ///< behind a reactivation, also one that was given up

    /// Gives the operations' buttons their handlers; for the constructor of a screen.
    void LigaOperacoes();
    void BotoesOcioso();
    void BotoesEdicao();

    /// Begins an operation: the mode, and the fields free but for the record's code.
    void Inicia(Modo modo);
    /// The same, with the focus on the first field.
    void Edita(Modo modo);
    /// Tells that the record has been written, and ends the operation.
    void ConcluiOperacao();
    /// Ends the operation without writing and leaves the screen cleared.
    void AbandonaOperacao();
    /// Runs the steps; a run-time error in them shows its box, and the program goes on.
    void ComArmadilha(const QString& mensagem, const std::function<void()>& passos);

    /// From the time when codes were typed by hand: an inclusion looks the code up among the customers.
    void txtRowID_LostFocus();

    ContextoExecucao& contexto_;

  private:
    bool FaltaSelecao();
    bool Desativado() const;
    void Recusa(const QString& motivo);
    bool Confirma(const QString& pergunta);
    void VaiParaGrade();
    void MudaSituacao(const data::Statement& colunas);
    void Habilita(std::initializer_list<const char*> botoes, bool ligados);

    void cmdALTERAR_Click();
    void cmdEXCLUIR_Click();
    void cmdReativar_Click();
    void cmdSAIR_Click();

    RegrasEdicao regras_;
};

} // namespace vorta

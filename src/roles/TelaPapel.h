#pragma once

#include "base/Literals.h"
#include "roles/RegrasTelaPapel.h"
#include "shared/BlocoContatos.h"
#include "shared/Insercao.h"
#include "shared/Papeis.h"

namespace vorta {

/// The frame of the seven role screens. Each is opened for exactly one person, whose id stands in `IdPessoaVinculo`,
/// and edits at most one row of its role's table. What differs between them is in their `Papel` and their
/// `RegrasTelaPapel`; a screen of its own adds its fields and the statements that carry them. The operations stand in
/// front of the record's fields, so that behind the last field the keyboard comes back to them.
class TelaPapel : public TelaEdicao {
  public:
    TelaPapel(ContextoExecucao& contexto, TipoPapel papel, const RegrasTelaPapel& regras);

    void Load() override;
    void QueryUnload() override;

    screen::TextField txtRowID{this, "txtRowID"}; ///< the person
    screen::Label lblRowId;                       ///< the role row; each screen names it its own way
    screen::Label lblPessoa{this, "lblPessoa"};
    screen::TextField txtDTDesativa{this, "txtDTDesativa"};
    screen::Label lblAviso{this, "lblAviso"};

    screen::Button cmdPESQUISAR{this, "cmdPESQUISAR", u"Pesquisar"_s};
    screen::Button cmdINCLUIR{this, "cmdINCLUIR", u"&Incluir"_s};
    screen::Button cmdALTERAR{this, "cmdALTERAR", u"&Alterar"_s};
    screen::Button cmdEXCLUIR{this, "cmdEXCLUIR", u"&Desativar"_s};
    screen::Button cmdReativar{this, "cmdReativar", u"Reati&var"_s};
    screen::Button cmdSALVAR{this, "cmdSALVAR", u"&Salvar"_s};
    screen::Button cmdIMPRIMIR{this, "cmdIMPRIMIR", u"Imprimir"_s};
    screen::Button cmdSAIR{this, "cmdSAIR", u"Sai&r"_s};
    screen::Check chkVisualiza{this, "chkVisualiza", u"Visualiza os Desativados"_s};

  protected:
    // What a screen of its own gives.
    /// Turns the fields into the insert of a new role row; `id` is its key where a generator gave one.
    virtual data::Statement MontaInsert(std::optional<qint32> id) = 0;
    /// The update of the role row `id`.
    virtual data::Statement MontaUpdate(qint32 id) = 0;
    /// Shows a role row in the screen's fields.
    virtual void CarregaCampos(const data::Recordset& registro) = 0;
    /// Before anything else of a save: fills amounts left empty.
    virtual void CompletaCampos() {}
    /// The screen's own checks of a save; false stops it.
    virtual bool ConfereCampos() { return true; }
    void BloqueiaCampos() override;
    void LiberaCampos() override;
    void LimpaCampos() override;

    /// Tells the frame the record's fields, which it locks, frees and clears; `numericos` are cleared to "0".
    void Registro(std::initializer_list<screen::Field*> campos, std::initializer_list<screen::Field*> numericos = {});
    void Contatos(BlocoContatos& contatos) { contatos_ = &contatos; }
    /// For the contacts of a role that has a table of them.
    RegrasContatos regrasContatos() const;
    /// An amount: entering selects it, Enter moves on, leaving reshapes it.
    void CampoValor(screen::Field& campo);
    /// Amounts left empty become zero.
    static void ZeraVazios(std::initializer_list<screen::Field*> valores);
    /// A credential date: leaving with a text that is no date holds the user in the field.
    void DataCredencial(screen::MaskedField& campo);

    /// An insert with the columns that every role begins with, and those that close it.
    Insercao IniciaInsert(std::optional<qint32> id) const;
    data::Statement EncerraInsert(Insercao insercao) const;
    data::Statement IniciaUpdate() const;
    data::Statement EncerraUpdate(data::Statement comando, qint32 id) const;

    /// The date of a field in the form of this screen's statements; nothing when the field holds no date.
    std::optional<QString> DataDoCampo(const screen::Field& campo) const;

    const Papel& papel() const { return papel_; }
    const RegrasTelaPapel& regras() const { return regras_; }

  private:
    bool Selecionado() const override;
    QString IdRegistro() const override;
    void MostraModo(Modo modo) override;
    void ApagaMarcas() override;
    bool PodeReativar() override;
    void AoDesativar() override;
    void AoReativar() override;
    void Recarrega() override { cmdPESQUISAR_Click(); }
    void CarregaRegistro();
    void Grava(const std::function<void()>& passos);
    void GravaAlteracao();
    void GravaInclusao();
    void GravaContatos(const QString& idPapel);
    void Envia(const data::Statement& comando);

    void cmdPESQUISAR_Click();
    void cmdINCLUIR_Click() override;
    void cmdSALVAR_Click() override;
    void chkVisualiza_Click();

    const Papel& papel_;
    const RegrasTelaPapel& regras_;
    std::vector<screen::Field*> registro_;
    std::vector<screen::Field*> numericos_;
    BlocoContatos* contatos_ = nullptr;
};

/// A value between apostrophes, or null when it is empty.
data::Statement OuNulo(const std::optional<QString>& valor);
/// The trimmed text of a field decides whether it has a value; the value is the text as it stands.
std::optional<QString> TextoDoCampo(const screen::Field& campo);
/// An amount as statements carry it, with a point.
QString ValorDoCampo(const screen::Field& campo);

// A column in its field; a null gives `nulo`.
void Mostra(screen::Field& campo, const data::Value& valor, const QString& nulo = {});
void MostraValor(screen::Field& campo, const data::Value& valor, const QString& nulo = {}); ///< with two decimals
void MostraData(screen::MaskedField& campo, const data::Value& valor);

} // namespace vorta

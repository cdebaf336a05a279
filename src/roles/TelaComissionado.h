#pragma once

#include "base/Literals.h"
#include "roles/TelaPapel.h"

namespace vorta {

/// The text that an architect has and a decorator names otherwise: the registration with the professional body.
struct RegistroProfissional {
    const char* campo;
    data::Piece coluna;
};

/// Commission terms and bank details of a person who brings sales: one screen for architects and decorators. No
/// generator gives their keys on any engine, and their saves write dates with slashes.
class TelaComissionado : public TelaPapel {
  public:
    TelaComissionado(ContextoExecucao& contexto, TipoPapel papel, const RegrasTelaPapel& regras,
                     const RegistroProfissional& registro);

    screen::MaskedField mskDtAdmissao{this, "mskDtAdmissao", u"##/##/####"_s};
    screen::TextField txtSalFixo{this, "txtSalFixo"};
    screen::TextField txtPercPool{this, "txtPercPool"};
    screen::TextField txtPercIndi{this, "txtPercIndi"};
    screen::TextField txtRegistro; ///< `txtCREA` or `txtADD`
    screen::ListField cboBancoCartao{this, "cboBancoCartao"};
    screen::TextField txtBancAgen{this, "txtBancAgen"};
    screen::TextField txtBancCont{this, "txtBancCont"};
    BlocoContatos contatos{*this, regrasContatos()};

  protected:
    data::Statement MontaInsert(std::optional<qint32> id) override;
    data::Statement MontaUpdate(qint32 id) override;
    void CarregaCampos(const data::Recordset& registro) override;
    void CompletaCampos() override;
    bool ConfereCampos() override;

  private:
    void cboBancoCartao_DropDown();
    QString Banco() const;

    RegistroProfissional registroProfissional_;
};

} // namespace vorta

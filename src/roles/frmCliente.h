#pragma once

#include "base/Literals.h"
#include "roles/TelaPapel.h"

namespace vorta {

/// The commercial conditions of a person as a customer. Its fields take input in every mode; what is typed outside a
/// mode is simply not saved.
class frmCliente : public TelaPapel {
  public:
    explicit frmCliente(ContextoExecucao& contexto);

    screen::ListField cboRevenda{this, "cboRevenda"};
    screen::TextField txtLimiCred{this, "txtLimiCred"};
    screen::ListField cboTipoCli{this, "cboTipoCli"};
    screen::ListField cboTransportadora{this, "cboTransportadora"};
    screen::MaskedField mskDtCredencial{this, "mskDtCredencial", u"##/##/####"_s};
    screen::ListField cboVendedor{this, "cboVendedor"};
    screen::TextField txtLimeMaxiConh{this, "txtLimeMaxiConh"};
    screen::ListField cboRegimeEspecialICMS{this, "cboRegimeEspecialICMS"};
    screen::Label lblValoTroc{this, "lblValoTroc"};
    screen::Label lblUltimoPed{this, "lblUltimoPed"};
    BlocoContatos contatos{*this, regrasContatos()};

  protected:
    data::Statement MontaInsert(std::optional<qint32> id) override;
    data::Statement MontaUpdate(qint32 id) override;
    void CarregaCampos(const data::Recordset& registro) override;
    void BloqueiaCampos() override;
    void LiberaCampos() override;
    void LimpaCampos() override {}
    void CompletaCampos() override;

  private:
    void MostraLimite();
    /// The credit limit on the screen; nothing for an empty field.
    std::optional<QString> Limite() const;
    QString Revenda() const;
    QString LimiteConhecimentos() const;
    /// The key of the name that a list shows; nothing for an empty list.
    std::optional<QString> ChaveDe(const screen::ListField& lista,
                                   qint32 (*procura)(ContextoExecucao&, const QString&)) const;
    std::optional<QString> ChaveRegime() const;
};

} // namespace vorta

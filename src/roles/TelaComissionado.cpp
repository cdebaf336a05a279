#include "roles/TelaComissionado.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "shared/Consultas.h"
#include "shared/Preenchimento.h"

namespace vorta {

TelaComissionado::TelaComissionado(ContextoExecucao& contexto, TipoPapel papel, const RegrasTelaPapel& regras,
                                   const RegistroProfissional& registro)
    : TelaPapel(contexto, papel, regras), txtRegistro(this, registro.campo), registroProfissional_(registro) {
    Registro({&mskDtAdmissao, &txtRegistro, &cboBancoCartao, &txtBancAgen, &txtBancCont},
             {&txtSalFixo, &txtPercPool, &txtPercIndi});
    Contatos(contatos);
    mskDtAdmissao.selectsOnFocus = true;
    for (screen::Field* valor : {&txtSalFixo, &txtPercPool, &txtPercIndi})
        CampoValor(*valor);
    cboBancoCartao.DropDown = [this] { cboBancoCartao_DropDown(); };
}

void TelaComissionado::cboBancoCartao_DropDown() {
    PreencheBancosOuCartoes(contexto(), Trim(cboBancoCartao.text()), u"CHEQUE"_s, cboBancoCartao);
    if (cboBancoCartao.items().size() == 1)
        cboBancoCartao.setListIndex(0);
}

void TelaComissionado::CompletaCampos() {
    ZeraVazios({&txtSalFixo, &txtPercPool, &txtPercIndi});
}

bool TelaComissionado::ConfereCampos() {
    if (Trim(cboBancoCartao.text()).isEmpty() || IdBanco(contexto(), cboBancoCartao.text()) != 0)
        return true;
    program().MsgBox(u"Banco Inválido"_s);
    SetFocus(cboBancoCartao);
    return false;
}

/// Without a bank the lookup is asked for the empty name, which gives 0.
QString TelaComissionado::Banco() const {
    return QString::number(IdBanco(contexto(), cboBancoCartao.text()));
}

data::Statement TelaComissionado::MontaInsert(std::optional<qint32> id) {
    Insercao insercao = IniciaInsert(id);
    if (const std::optional<QString> admissao = DataDoCampo(mskDtAdmissao))
        insercao.inclui("data_cred", *admissao);
    insercao.inclui("valo_sala", ValorDoCampo(txtSalFixo));
    insercao.inclui("perc_pool", ValorDoCampo(txtPercPool));
    insercao.inclui("perc_coms", ValorDoCampo(txtPercIndi));
    insercao.inclui(registroProfissional_.coluna, Trim(txtRegistro.text()));
    insercao.inclui("idbanc", Banco());
    insercao.inclui("banc_agen", Trim(txtBancAgen.text()));
    insercao.inclui("banc_cont", Trim(txtBancCont.text()));
    return EncerraInsert(std::move(insercao));
}

data::Statement TelaComissionado::MontaUpdate(qint32 id) {
    data::Statement comando = IniciaUpdate();
    comando << "data_cred=" << OuNulo(DataDoCampo(mskDtAdmissao)) << ", "
            << "valo_sala='" << ValorDoCampo(txtSalFixo) << "', "
            << "perc_pool='" << ValorDoCampo(txtPercPool) << "', " << registroProfissional_.coluna << "="
            << OuNulo(TextoDoCampo(txtRegistro)) << ", "
            << "idBanc='" << Banco() << "', "
            << "banc_agen=" << OuNulo(TextoDoCampo(txtBancAgen)) << ", "
            << "banc_cont=" << OuNulo(TextoDoCampo(txtBancCont)) << ", "
            << "perc_coms='" << ValorDoCampo(txtPercIndi) << "' ";
    return EncerraUpdate(comando, id);
}

void TelaComissionado::CarregaCampos(const data::Recordset& registro) {
    MostraValor(txtSalFixo, registro.Fields("valo_sala"), u"0"_s);
    MostraValor(txtPercPool, registro.Fields("perc_pool"), u"0"_s);
    MostraValor(txtPercIndi, registro.Fields("perc_coms"), u"0"_s);
    MostraData(mskDtAdmissao, registro.Fields("data_cred"));
    Mostra(txtRegistro, registro.Fields(registroProfissional_.coluna.toString()));
    Mostra(txtBancAgen, registro.Fields("banc_agen"));
    Mostra(txtBancCont, registro.Fields("banc_cont"));
    const data::Value banco = registro.Fields("idbanc");
    cboBancoCartao.setText(banco.isNull() ? QString() : NomeBanco(contexto(), banco.text()));
}

} // namespace vorta

#include "roles/frmFornecedor.h"

#include "base/Literals.h"
#include "shared/ValidaCampos.h"

namespace vorta {

namespace {

constexpr RegrasTelaPapel regrasFornecedor{.grupo = credenciado,
                                           .sufixo = " - Cadastro de Fornecedor ",
                                           .rotuloId = "lblRowIdFornecedor",
                                           .primeiroCampo = "mskDtCredencial",
                                           .chaveNova = ChaveNova::PorGerador,
                                           .erroNoSalvar = ErroNoSalvar::Encerra,
                                           .buscaQualificada = true};

constexpr int enter = 13;

/// Digits, comma, percent and minus pass; a typed point becomes a comma. Enter stays the key that moves on.
void TeclaNumerica(int& tecla) {
    if (tecla == enter)
        return;
    if (tecla == '.')
        tecla = ',';
    tecla = FiltraTeclaNumerica(static_cast<qint16>(tecla)).toInt();
}

} // namespace

frmFornecedor::frmFornecedor(ContextoExecucao& contexto)
    : TelaPapel(contexto, TipoPapel::Fornecedor, regrasFornecedor) {
    Registro({&mskDtCredencial}, {&txtLimiCred, &txtDescontoFornecedor});
    Contatos(contatos);
    DataCredencial(mskDtCredencial);
    CampoValor(txtLimiCred);
    txtDescontoFornecedor.selectsOnFocus = true;
    txtLimiCred.KeyPress = TeclaNumerica;
    txtDescontoFornecedor.KeyPress = TeclaNumerica;
}

QString frmFornecedor::Desconto() {
    if (txtDescontoFornecedor.text().isEmpty())
        txtDescontoFornecedor.setText(u"0.00"_s);
    return ValorDoCampo(txtDescontoFornecedor);
}

data::Statement frmFornecedor::MontaInsert(std::optional<qint32> id) {
    Insercao insercao = IniciaInsert(id);
    if (const std::optional<QString> credencial = DataDoCampo(mskDtCredencial))
        insercao.inclui("data_cred", *credencial);
    insercao.inclui("limi_copr", ValorDoCampo(txtLimiCred));
    insercao.inclui("desconto_forn", Desconto());
    return EncerraInsert(std::move(insercao));
}

data::Statement frmFornecedor::MontaUpdate(qint32 id) {
    data::Statement comando = IniciaUpdate();
    comando << "data_cred=" << OuNulo(DataDoCampo(mskDtCredencial)) << ",  "
            << "limi_copr='" << ValorDoCampo(txtLimiCred) << "', "
            << "desconto_forn='" << Desconto() << "' ";
    return EncerraUpdate(comando, id);
}

void frmFornecedor::CarregaCampos(const data::Recordset& registro) {
    MostraData(mskDtCredencial, registro.Fields("data_cred"));
    MostraValor(txtLimiCred, registro.Fields("limi_copr"));
    MostraValor(txtDescontoFornecedor, registro.Fields("desconto_forn"));
}

} // namespace vorta

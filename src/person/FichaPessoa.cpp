#include "person/FichaPessoa.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "person/frmPessoas.h"
#include "shared/Vinculos.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace vorta {

namespace {

/// A line of the sheet: what it is called, and the field that holds it.
struct LinhaFicha {
    const char* rotulo;
    const char* campo;
};

struct SecaoFicha {
    const char* titulo;
    std::span<const LinhaFicha> linhas;
};

constexpr LinhaFicha identificacao[]{
    {"Código interno", "txtRowID"}, {"Código externo", "txtCodPessExterno"},
    {"Pessoa", "cboFisJur"},        {"CPF/CNPJ", "mskCodigo"},
    {"Nome", "txtDescricao"},       {"Nome conhecido", "txtNomeFantasia"},
    {"Incluída em", "lblDataIncl"}, {"Desativada em", "lblDataDesa"},
};
constexpr LinhaFicha fiscal[]{
    {"RG/Inscrição estadual", "txtIEstadual"},
    {"Inscrição municipal", "txtIMunicipal"},
    {"Suframa", "txtSuframa"},
    {"Substituto tributário", "txtSubsTributario"},
    {"Integração NF-e", "cboStatusIntegraFISCO"},
};
constexpr LinhaFicha comercial[]{
    {"Rua", "txtEndereco"},  {"Número", "txtNumero"},  {"Complemento", "txtComplemento"},
    {"Bairro", "txtBairro"}, {"Cidade", "cboCidade"},  {"Estado", "cboUF"},
    {"CEP", "mskCEP"},       {"País", "cboPais_Coml"}, {"Código do município", "lblCodMunIBGE"},
};
constexpr LinhaFicha entrega[]{
    {"Rua", "txtEnt_Endereco"},  {"Número", "txtEnt_Numero"}, {"Complemento", "txtEnt_Complemento"},
    {"Bairro", "txtEnt_Bairro"}, {"Cidade", "cboEnt_Cidade"}, {"Estado", "cboEnt_UF"},
    {"CEP", "mskEnt_CEP"},       {"País", "cboPais_Entg"},    {"Código do município", "lblEnt_CodMunIBGE"},
};
constexpr LinhaFicha cobranca[]{
    {"Rua", "txtCob_Endereco"},  {"Número", "txtCob_Numero"}, {"Complemento", "txtCob_Complemento"},
    {"Bairro", "txtCob_Bairro"}, {"Cidade", "cboCob_Cidade"}, {"Estado", "cboCob_UF"},
    {"CEP", "mskCob_CEP"},       {"País", "cboPais_Cobr"},    {"Código do município", "lblCob_CodMunIBGE"},
};
constexpr LinhaFicha negocio[]{
    {"Telefone 1", "txtFone1"},
    {"Telefone 2", "txtFone2"},
    {"Fax", "txtFax1"},
    {"Celular", "txtFax2"},
    {"E-mail", "txtEmail1"},
    {"Página", "txtHomePage"},
    {"Contato", "txtContatoPrincipal"},
    {"Contato de cobrança", "txtPrinNomeContato"},
    {"Fone da cobrança", "txtPrinFoneContato"},
    {"E-mail da cobrança", "txtPrinEmailContato"},
    {"Aniversário", "mskDtNasc"},
    {"Aniversário do relacionamento", "mskDtAnivRel"},
    {"Vendedor", "cboVendedor"},
    {"Transportadora", "cboTransportadora"},
    {"Tipo/classificação", "cboTipoCli"},
    {"Tabela de preços", "cboTabelaPrecos"},
};
constexpr LinhaFicha observacoes[]{
    {"Observação 1", "txtOBSE_PESS_0001"},
    {"Observação 2", "txtOBSE_PESS_0002"},
    {"Observação 3", "txtOBSE_PESS_0003"},
};

constexpr SecaoFicha secoes[]{
    {"Identificação", identificacao},   {"Endereço", comercial},          {"Endereço de entrega", entrega},
    {"Endereço de cobrança", cobranca}, {"Contato e comercial", negocio}, {"Fiscal", fiscal},
    {"Observações", observacoes},
};

/// The text of a field; a mask without anything in it is nothing.
QString textoDe(const screen::Field& campo) {
    const bool mascara = campo.kind() == screen::FieldKind::Masked;
    const bool vazia = mascara && std::ranges::none_of(campo.text(), [](QChar c) { return c.isLetterOrNumber(); });
    return vazia ? QString() : campo.text().toHtmlEscaped().replace(u'\n', u"<br>"_s);
}

QString titulo(const char* texto) {
    return u"<h3>%1</h3>"_s.arg(QString::fromUtf8(texto));
}

QString secao(const frmPessoas& tela, const SecaoFicha& secao) {
    QString html = titulo(secao.titulo) + u"<table width=\"100%\" cellpadding=\"2\">"_s;
    for (const LinhaFicha& linha : secao.linhas)
        html += u"<tr><td width=\"32%\"><b>%1</b></td><td>%2</td></tr>"_s.arg(
            QString::fromUtf8(linha.rotulo), textoDe(tela.field(QString::fromLatin1(linha.campo))));
    return html + u"</table>"_s;
}

/// The rows of a grid as a table, without its hidden columns.
QString grade(const char* nome, const screen::Grid& grade) {
    QString html = titulo(nome) + u"<table width=\"100%\" cellpadding=\"2\">"_s;
    for (int linha = 0; linha < grade.Rows(); ++linha) {
        html += u"<tr>"_s;
        for (int coluna = 0; coluna < grade.Cols(); ++coluna)
            if (grade.columns()[static_cast<size_t>(coluna)].width != 0)
                html += (linha == 0 ? u"<td><b>%1</b></td>"_s : u"<td>%1</td>"_s)
                            .arg(grade.cell(linha, coluna).toHtmlEscaped());
        html += u"</tr>"_s;
    }
    return html + u"</table>"_s;
}

QString vinculos(ContextoExecucao& contexto, const QString& idpess) {
    QString html = titulo("Papéis") + u"<table width=\"100%\" cellpadding=\"2\">"_s;
    for (const Papel& papel : papeis)
        if (const QString id = Vinculo(contexto, papel, idpess); Val(id) > 0)
            html += u"<tr><td width=\"32%\"><b>%1</b></td><td>código %2</td></tr>"_s.arg(QString::fromUtf8(papel.nome),
                                                                                         id.toHtmlEscaped());
    return html + u"</table>"_s;
}

} // namespace

QString FichaPessoa(ContextoExecucao& contexto, const QString& idpess) {
    // The load goes on as if nothing were chosen; what the search has left is there again behind it.
    const QScopedValueRollback<QString> vinculo(contexto.VinculoAtual);
    frmPessoas tela(contexto);
    tela.txtRowID.setText(idpess);
    tela.CarregaPessoa();
    if (tela.txtDescricao.text().isEmpty())
        return {};
    QString html = u"<html><head><title>Ficha</title></head><body><h2>%1</h2><p>Ficha de %2</p>"_s.arg(
        textoDe(tela.txtDescricao), FormatDateTime(contexto.platform().now()));
    for (const SecaoFicha& cada : secoes)
        html += secao(tela, cada);
    html += grade("Contatos", tela.contatos.Flex) + grade("Ramos de atividade", tela.FlexAtividades) +
            vinculos(contexto, idpess);
    return html + u"</body></html>"_s;
}

} // namespace vorta

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/frmPessoas.h"
#include "shared/TipoDocumento.h"
#include "shared/ValidaCampos.h"
#include "shared/ValidaDocumentos.h"

namespace vorta {

namespace {

using screen::Answer;
using screen::Buttons;
using screen::Icon;

/// A field of the addresses that must hold something; the delivery and billing blocks only when the company's switch
/// asks for it.
struct CampoObrigatorio {
    const char* parametro; ///< null: always
    const char* campo;
    const char* mensagem;
};

constexpr const char* entrega = "OBRIG_ENDE_ENTG";
constexpr const char* cobranca = "OBRIG_ENDE_COBR";

constexpr CampoObrigatorio obrigatorios[]{
    {nullptr, "txtEndereco", "Endereço Comercial Inválido!"},
    {entrega, "txtEnt_Endereco", "Endereço de Entrega Inválido!"},
    {cobranca, "txtCob_Endereco", "Endereço de Cobrança Inválido!"},
    {nullptr, "txtBairro", "Bairro Inválido!"},
    {entrega, "txtEnt_Bairro", "Bairro Inválido!"},
    {cobranca, "txtCob_Bairro", "Bairro Inválido!"},
    {nullptr, "cboCidade", "Cidade Inválida!"},
    {entrega, "cboEnt_Cidade", "Cidade Inválida!"},
    {cobranca, "cboCob_Cidade", "Cidade Inválida!"},
    {nullptr, "cboUF", "Estado Inválido!"},
    {entrega, "cboEnt_UF", "Estado Inválido!"},
    {cobranca, "cboCob_UF", "Estado Inválido!"},
    {nullptr, "mskCEP", "CEP inválido!"},
    {entrega, "mskEnt_CEP", "CEP inválido!"},
    {cobranca, "mskCob_CEP", "CEP inválido!"},
};

bool vazio(const screen::Field& campo) {
    return campo.text().isEmpty() || (campo.kind() == screen::FieldKind::Masked && campo.text() == u"_____-___");
}

} // namespace

void frmPessoas::mskCodigo_LostFocus() {
    const TipoDocumento* tipo = EmEdicao() ? TipoDocumentoDe(contexto_, cboFisJur.text()) : nullptr;
    if (!tipo)
        return;
    const QString digitado = mskCodigo.text();
    mskCodigo.setMask({});
    QString numero = tipo->SemMarcas(digitado);
    mskCodigo.setText(numero);

    const bool valido = tipo->valida(numero);
    const bool corrige =
        !valido &&
        program().MsgBox({QString::fromUtf8(tipo->incorreto), {}, Icon::None, Buttons::YesNo}) == Answer::Yes;
    if (!valido && !corrige) {
        AbandonaOperacao();
        return;
    }
    mskCodigo.setMask(tipo->Mascara());
    mskCodigo.setText(digitado);
    if (corrige)
        SetFocus(mskCodigo);
}

void frmPessoas::txtFone1_LostFocus() {
    constexpr int menorTelefone = 6;
    if (txtFone1.text().size() >= menorTelefone)
        return;
    program().MsgBox(u"Obrigatório Informar um Telefone!"_s);
    SetFocus(txtFone1);
}

bool frmPessoas::DocumentoInformado() {
    const QString mascara = mskCodigo.mask();
    mskCodigo.setMask({});
    const QString documento = RTrim(mskCodigo.text());
    const bool informado = !documento.isEmpty() && documento != u"___.___.___-__" && documento != u"__.___.___/____-__";
    if (!informado) {
        program().MsgBox(u"CNPJ/CPF Obrigatório!!!"_s);
        mskCodigo.setText({});
    }
    mskCodigo.setMask(mascara);
    if (!informado)
        SetFocus(cboFisJur);
    return informado;
}

bool frmPessoas::ValidaSalvar() {
    const auto recusa = [this](const screen::Box& aviso, screen::Field& campo) {
        program().MsgBox(aviso);
        SetFocus(campo);
        return false;
    };
    if (RTrim(txtDescricao.text()).isEmpty())
        return recusa({u"Nome Inválido!!!"_s, ContextoExecucao::Titulo(), Icon::Information, Buttons::OK},
                      txtDescricao);
    if (RTrim(txtNomeFantasia.text()).isEmpty())
        return recusa({u"Nome Conhecido Inválido!!!"_s, ContextoExecucao::Titulo(), Icon::Information, Buttons::OK},
                      txtNomeFantasia);
    if (!DocumentoInformado())
        return false;
    for (const CampoObrigatorio& linha : obrigatorios) {
        if (linha.parametro && LeParametroEmpresa(contexto_, QString::fromLatin1(linha.parametro)) != u"S")
            continue;
        screen::Field& campo = field(QString::fromLatin1(linha.campo));
        if (vazio(campo))
            return recusa({QString::fromUtf8(linha.mensagem), {}, Icon::None, Buttons::OK}, campo);
    }
    QString aniversario = mskDtNasc.text();
    if (!ValidaDiaMes(contexto_, aniversario))
        return recusa(
            {u"Formato de Data de Aniversário Inválida!"_s, u"Data de Aniversário"_s, Icon::Information, Buttons::OK},
            mskDtNasc);
    QString inscricao = txtIEstadual.text();
    if (UCase(Trim(cboFisJur.text())) == u"JURÍDICA" && !Trim(inscricao).isEmpty() &&
        !ValidaInscricaoEstadual(inscricao, cboUF.text()))
        return recusa({u"Inscrição Estadual Inválida!"_s, u"Inscrição Estadual"_s, Icon::Information, Buttons::OK},
                      txtIEstadual);
    return true;
}

} // namespace vorta

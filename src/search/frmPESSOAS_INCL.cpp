#include "search/frmPESSOAS_INCL.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/Lancamento.h"
#include "shared/Capacidade.h"
#include "shared/Consultas.h"
#include "shared/Preenchimento.h"
#include "shared/TextoEntrada.h"
#include "shared/TipoDocumento.h"
#include "shared/Vinculos.h"

#include <algorithm>
#include <array>

namespace vorta {

namespace {

const QString juridica = u"Jurídica"_s;
const QString fisica = u"Física"_s;
const QString brancoCNPJ = u"__.___.___/____-__"_s;
const QString brancoCPF = u"___.___.___-__"_s;
const QString zerosCNPJ = u"00.000.000/0000-00"_s;
const QString zerosCPF = u"000.000.000-00"_s;

/// Texts that count as no document. The zeros of a company's number lack a digit here, so that the full zeros count as
/// a document.
const std::array<QString, 5> semDocumento{QString(), brancoCPF, brancoCNPJ, u"00.000.000/000-00"_s, zerosCPF};

const QString achada = u"[ID]"_s;

/// The screens that take over an accepted inclusion, with what they have besides kind and document.
struct TelaInclusao {
    QStringView nome;
    bool temFantasia;
};

constexpr std::array telasInclusao{TelaInclusao{u"frmPessoas", true}, TelaInclusao{u"frmClienteExpress", false}};

} // namespace

frmPESSOAS_INCL::frmPESSOAS_INCL(ContextoExecucao& contexto)
    : Screen(contexto.program(), u"frmPESSOAS_INCL"_s), contexto_(contexto) {
    cboCod.enterMovesOn = true;
    cmdPesquisa.enterMovesOn = true;
    cboCod.selectsOnFocus = true;
    cboCod.capacity = capacidade::texto; // it becomes a person's name
    mskCodigo.capacity = capacidade::codigo;
    cboCod.LostFocus = [this] { cboCod.setText(UCase(cboCod.text())); };
    cboCod.DropDown = [this] { cboCod_DropDown(); };
    Option1.Click = [this] { AjustaMascaraDocumento(); };
    Option2.Click = [this] { AjustaMascaraDocumento(); };
    mskCodigo.LostFocus = [this] { mskCodigo_LostFocus(); };
    cmdPesquisa.Click = [this] { cmdPesquisa_Click(); };
    Command1.Click = [this] { Unload(); };
}

void frmPESSOAS_INCL::Load() {
    CentralizaForm(*this);
    setCaption(ContextoExecucao::Titulo());
    Option2.setValue(true);
}

const QString& frmPESSOAS_INCL::TipoPessoa() const {
    return Option1.value() ? juridica : fisica;
}

void frmPESSOAS_INCL::AjustaMascaraDocumento() {
    LimpaMascara(mskCodigo);
    mskCodigo.setMask(TipoDocumentoDe(contexto_, TipoPessoa())->Mascara());
}

void frmPESSOAS_INCL::mskCodigo_LostFocus() {
    // A check may have left the field without its mask.
    if (Trim(mskCodigo.mask()).isEmpty())
        Option1.setValue(true);
}

void frmPESSOAS_INCL::cboCod_DropDown() {
    constexpr qint32 largura = 580;
    AjustaLarguraLista(cboCod, largura);
    PreencheListaClientes(contexto_, Trim(cboCod.text()), cboCod);
}

void frmPESSOAS_INCL::cmdPesquisa_Click() {
    lstLog.clear();
    if (DocumentoInformado())
        VerificaDocumento();
    VerificaNome();
    LimpaLog();
    if (!lstLog.items().isEmpty() || Trim(cboCod.text()).isEmpty())
        return;
    if (ConfirmaInclusao())
        TransportaDados();
}

/// Without a document the field stays without its mask until it loses the focus.
bool frmPESSOAS_INCL::DocumentoInformado() {
    const QString mascara = mskCodigo.mask();
    mskCodigo.setMask({});
    const QString texto = mskCodigo.text();
    if (RTrim(texto).isEmpty() || std::find(semDocumento.begin(), semDocumento.end(), texto) != semDocumento.end())
        return false;
    mskCodigo.setMask(mascara);
    return true;
}

void frmPESSOAS_INCL::VerificaDocumento() {
    QString documento = mskCodigo.text();
    RetornaPessoaPorDocumento(contexto_, documento, {});
    const QString& retorno = contexto_.RetornoPesquisa;
    if (retorno.startsWith(achada)) {
        lstLog.addItem(u"Já Existe Cadastro com este CNPJ/CPF"_s);
        cboCod.setText(retorno.mid(achada.size()));
        lstLog.addItem(cboCod.text());
    } else {
        lstLog.addItem(retorno == u"CNPJ/CPF não localizado!" ? QString() : retorno);
    }
}

void frmPESSOAS_INCL::VerificaNome() {
    const QString nome = Trim(cboCod.text());
    if (RetornaIdPessoaPorNome(contexto_, nome) > 0) {
        lstLog.addItem(u"Já Existe Cadastro Com Esta Razão Social"_s);
        // Shows the document of the namesake, as it is stored.
        mskCodigo.setMask({});
        mskCodigo.setText(RetornaDocumentoPessoa(contexto_, {}, cboCod.text()));
    }
    if (RetornaIdPessoaPorFantasia(contexto_, nome) > 0)
        lstLog.addItem(u"Já Existe Cadastro Com Este Nome Fantasia"_s);
}

/// A document that was not found leaves an empty line, which can only be the first.
void frmPESSOAS_INCL::LimpaLog() {
    if (lstLog.items().isEmpty())
        return;
    lstLog.setListIndex(0);
    if (Trim(lstLog.items().first()).isEmpty())
        lstLog.removeItem(0);
}

bool frmPESSOAS_INCL::ConfirmaInclusao() {
    const QString pergunta = u"Cadastro não localizado, A Inclusão Poderá ser Realizada.\n"
                             "Deseja Iniciar o Cadastramento?\n"
                             "os dados [nome] e [cnpj/cpf] serão transportados para a próxima tela."_s;
    return program().MsgBox({pergunta, ContextoExecucao::Titulo(), screen::Icon::None, screen::Buttons::YesNo}) ==
           screen::Answer::Yes;
}

void frmPESSOAS_INCL::TransportaDados() {
    const auto* linha = std::find_if(telasInclusao.begin(), telasInclusao.end(),
                                     [this](const TelaInclusao& tela) { return contexto_.TelaChamadora == tela.nome; });
    if (linha == telasInclusao.end())
        return;
    Screen& destino = contexto_.Tela(contexto_.TelaChamadora);
    destino.field(u"txtDescricao"_s).setText(cboCod.text());
    if (linha->temFantasia)
        destino.field(u"txtNomeFantasia"_s).setText(cboCod.text());
    destino.field(u"cboFisJur"_s).setText(TipoPessoa());
    if (mskCodigo.text() == (Option1.value() ? brancoCNPJ : brancoCPF))
        mskCodigo.setText(Option1.value() ? zerosCNPJ : zerosCPF);
    destino.field(u"mskCodigo"_s).setText(mskCodigo.text());
    contexto_.RetornoPesquisa = u"[OK]"_s;
    Unload();
}

} // namespace vorta

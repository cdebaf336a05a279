#include "search/frmBROWSE_CEPS.h"

#include "base/CampoDelimitado.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/ConectaServidor.h"
#include "launch/Lancamento.h"
#include "search/ModuleCEP.h"
#include "shared/Capacidade.h"

#include <algorithm>
#include <array>

namespace vorta {

namespace {

/// Fields of one street in the result text of a search.
constexpr int camposPorLinha = 6;

/// The fields of an address block of the person screen.
struct BlocoAlvo {
    QStringView alvo;
    const char* cep;
    const char* endereco;
    const char* bairro;
    const char* cidade;
    const char* uf;
    const char* pais;
};

constexpr std::array blocos{
    BlocoAlvo{u"COML", "mskCEP", "txtEndereco", "txtBairro", "cboCidade", "cboUF", "cboPais_Coml"},
    BlocoAlvo{u"COBR", "mskCob_CEP", "txtCob_Endereco", "txtCob_Bairro", "cboCob_Cidade", "cboCob_UF", "cboPais_Cobr"},
    BlocoAlvo{u"ENTG", "mskEnt_CEP", "txtEnt_Endereco", "txtEnt_Bairro", "cboEnt_Cidade", "cboEnt_UF", "cboPais_Entg"},
};

} // namespace

frmBROWSE_CEPS::frmBROWSE_CEPS(ContextoExecucao& contexto)
    : Screen(contexto.program(), u"frmBROWSE_CEPS"_s), contexto_(contexto) {
    for (screen::Field* campo : std::initializer_list<screen::Field*>{&txtCEP, &txtEndereco, &cmdPesquisa})
        campo->enterMovesOn = true;
    // No engine compares a text of any length with a key, and the person behind this screen may be half typed.
    for (screen::Field* campo : {&txtCEP, &txtEndereco})
        campo->capacity = capacidade::texto;
    cmdPesquisa.Click = [this] { cmdPesquisa_Click(); };
    Flex.keysChoose = true;
    Flex.DblClick = [this] { Flex_DblClick(); };
}

void frmBROWSE_CEPS::Load() {
    MontaGridCeps();
    CentralizaForm(*this);
    setCaption(ContextoExecucao::Titulo());
}

void frmBROWSE_CEPS::MontaGridCeps() {
    Flex.reset({{{}, 0}, {u"CEP"_s}, {u"Tipo"_s}, {u"Endereço"_s}, {u"Bairro"_s}, {u"Cidade"_s}, {u"UF"_s}});
}

void frmBROWSE_CEPS::Recusa(const QString& mensagem) {
    program().MsgBox({mensagem, ContextoExecucao::Titulo(), screen::Icon::Information, screen::Buttons::OK});
    SetFocus(txtCEP);
}

bool frmBROWSE_CEPS::PodePesquisar() {
    if (Trim(txtEndereco.text()).isEmpty() && Trim(txtCEP.text()).isEmpty()) {
        Recusa(u"É obrigatório Informar o CEP ou Parte do Endereço Para Realizar a Pesquisa!"_s);
        return false;
    }
    if (txtCEP.text().contains(u'-')) {
        Recusa(u"O CEP deve ser digitado sem o hífen!"_s);
        return false;
    }
    return true;
}

void frmBROWSE_CEPS::cmdPesquisa_Click() {
    if (!PodePesquisar())
        return;
    setPointer(screen::Pointer::Hourglass);
    MontaGridCeps();
    ConectaServidorCEP(contexto_);
    const QString endereco = Trim(txtEndereco.text());
    PreencheGrid(endereco.isEmpty() ? RetornaLogradouros(contexto_, u"CEP"_s, Trim(txtCEP.text()))
                                    : RetornaLogradouros(contexto_, u"END"_s, endereco));
    FechaServidorCEP(contexto_);
    setPointer(screen::Pointer::Default);
    // With several rows the user has to pick one before a double click reaches any.
    if (Flex.Rows() > 2)
        Flex.setRow(0);
}

void frmBROWSE_CEPS::PreencheGrid(const QString& logradouros) {
    const QStringList campos = logradouros.split(u'^');
    const double linhas = Val(campos.first());
    if (linhas <= 0)
        return;
    // The number of a field is a 16-bit value: a result with more fields ends in an overflow.
    const int ultimo = ToInt16(linhas * camposPorLinha);
    for (int campo = 1; campo <= ultimo; campo += camposPorLinha)
        Flex.AddRow(QStringList{QString()} + campos.mid(campo, camposPorLinha));
}

void frmBROWSE_CEPS::Flex_DblClick() {
    if (Flex.Row() == 0)
        return;
    contexto_.ListaCamposCep.clear();
    for (int coluna = 0; coluna < Flex.Cols(); ++coluna) {
        Flex.setCol(coluna);
        contexto_.ListaCamposCep += Flex.currentText() + u'^';
    }
    TransfereEndereco();
    program().MsgBox({u"Os Dados Estão sendo Transferidos!\nNão Esquecer de Complementar o Endereço com o [Número]!"_s,
                      ContextoExecucao::Titulo(), screen::Icon::Information, screen::Buttons::OK});
    Unload();
}

void frmBROWSE_CEPS::TransfereEndereco() {
    const auto* bloco = std::find_if(blocos.begin(), blocos.end(), [this](const BlocoAlvo& linha) {
        return contexto_.EnderecoAlvoCep == linha.alvo;
    });
    if (contexto_.TelaChamadora != u"frmPessoas" || bloco == blocos.end())
        return;
    Screen& destino = contexto_.Tela(contexto_.TelaChamadora);
    const auto escolhido = [this](qint16 indice) { return CampoDelimitado(indice, contexto_.ListaCamposCep); };
    // Type and name of a street may be longer than a column together, which would end the save.
    const auto escreve = [&](const char* campo, const QString& texto) {
        destino.field(QString::fromLatin1(campo)).setText(texto.left(capacidade::texto));
    };
    const QString cep = escolhido(2);
    escreve(bloco->cep, Left(cep, 5) + u'-' + Mid(cep, 6));
    escreve(bloco->endereco, escolhido(3) + u' ' + escolhido(4));
    escreve(bloco->bairro, escolhido(5));
    escreve(bloco->cidade, escolhido(6));
    escreve(bloco->uf, escolhido(7));
    escreve(bloco->pais, u"Brasil"_s);
}

} // namespace vorta

#include "search/frmBROWSE_PESSOAS.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "launch/Lancamento.h"
#include "search/ConsultaPessoas.h"
#include "search/RetornoPessoas.h"
#include "shared/Preenchimento.h"
#include "shared/TextoEntrada.h"

#include <algorithm>
#include <array>
#include <span>

namespace vorta {

namespace {

using screen::Align;
using Tela = frmBROWSE_PESSOAS;
using Opcao = screen::Option Tela::*;

/// The role words with which a search may be called, and the one option that stays free then.
struct PapelPedido {
    QStringView palavra;
    Opcao opcao;
};

constexpr std::array papeisPedidos{
    PapelPedido{u"FORNECEDOR", &Tela::opFornecedor},
    PapelPedido{u"FORNECEDOREXPRESS", &Tela::opFornecedor},
    PapelPedido{u"CLIENTE", &Tela::opCliente},
    PapelPedido{u"VENDEDOR", &Tela::opVendedor},
    PapelPedido{u"VENDEDOREXPRESS", &Tela::opVendedor},
    PapelPedido{u"ARQUITETO", &Tela::opArquiteto},
    PapelPedido{u"ARQUITETOEXPRESS", &Tela::opArquiteto},
    PapelPedido{u"DECORADOR", &Tela::opDecorador},
    PapelPedido{u"DECORADOREXPRESS", &Tela::opDecorador},
    PapelPedido{u"TRANSPORTADORA", &Tela::opTransportadora},
    PapelPedido{u"CLIENTETRELOGA", &Tela::opCliente},
    PapelPedido{u"CLIENTEEXPRESS", &Tela::opCliente},
    PapelPedido{u"PROSPECTEXPRESS", &Tela::opProspect},
    PapelPedido{u"MOTORISTATRELOGA", &Tela::opMotorista},
};

constexpr std::array<Opcao, 9> opcoesPapel{&Tela::opTodos,          &Tela::opFornecedor, &Tela::opCliente,
                                           &Tela::opTransportadora, &Tela::opVendedor,   &Tela::opMotorista,
                                           &Tela::opArquiteto,      &Tela::opDecorador,  &Tela::opProspect};

// What the memory knows. Other ways of searching fall back to the presets at the next opening; the architect is known
// when read but is never written.
constexpr std::array<Opcao, 7> formasLembradas{&Tela::opCPFCNPJ, &Tela::opNome, &Tela::opFantasia,
                                               &Tela::opCidade,  &Tela::opUF,   &Tela::opRamoAtividade,
                                               &Tela::opTelefone};
constexpr std::array<Opcao, 2> conteudosLembrados{&Tela::opCampoInteiro, &Tela::opQualquerParte};
constexpr std::array<Opcao, 6> papeisGuardados{&Tela::opTodos,          &Tela::opCliente,  &Tela::opFornecedor,
                                               &Tela::opTransportadora, &Tela::opVendedor, &Tela::opMotorista};
constexpr std::array<Opcao, 7> papeisLembrados{&Tela::opTodos,          &Tela::opCliente,  &Tela::opFornecedor,
                                               &Tela::opTransportadora, &Tela::opVendedor, &Tela::opMotorista,
                                               &Tela::opArquiteto};

/// The name of the chosen option, empty when none of these is.
QString nomeEscolhido(const Tela& tela, std::span<const Opcao> opcoes) {
    for (const Opcao opcao : opcoes)
        if ((tela.*opcao).value())
            return (tela.*opcao).name();
    return {};
}

void escolhePorNome(Tela& tela, std::span<const Opcao> opcoes, const QString& nome) {
    for (const Opcao opcao : opcoes)
        if ((tela.*opcao).name() == nome)
            (tela.*opcao).setValue(true);
}

bool lembrado(const QString& texto) {
    return !Trim(texto).isEmpty();
}

/// How many rows pass between two reports of progress.
constexpr int passoProgresso = 1000;

} // namespace

frmBROWSE_PESSOAS::frmBROWSE_PESSOAS(ContextoExecucao& contexto)
    : Screen(contexto.program(), u"frmBROWSE_PESSOAS"_s), contexto_(contexto) {
    cboCod.enterMovesOn = true;
    cmdPesquisa.enterMovesOn = true;
    cboCod.GotFocus = [this] { SelecionaTexto(*this); };
    cboCod.LostFocus = [this] { cboCod.setText(UCase(cboCod.text())); };
    cboCod.DropDown = [this] { cboCod_DropDown(); };
    cmdPesquisa.Click = [this] { cmdPesquisa_Click(); };
    cmdLimpar.Click = [this] { cmdLimpar_Click(); };
    chkVisualiza.Click = [this] { cmdPesquisa_Click(); };
    Flex.DblClick = [this] { Flex_DblClick(); };
}

void frmBROWSE_PESSOAS::Load() {
    LeCoresSistema(contexto_, LeParametroEmpresa(contexto_, u"COR_PADRAO"_s));
    AplicaCoresForm(contexto_, *this);
    MontaGridPessoas();
    CentralizaForm(*this);
    setCaption(ContextoExecucao::Titulo());
    opNome.setValue(true);
    opTodos.setValue(true);
    PresetaPapel();
    if (!RestauraBusca())
        return;
    cmdPesquisa_Click();
    Flex.setTopRow(contexto_.TopoGridBusca);
}

void frmBROWSE_PESSOAS::MontaGridPessoas() {
    Flex.reset({{u"IDPESSOA"_s, -1, Align::Left},
                {u"CGC/CPF"_s, -1, Align::Left},
                {u"Razão Social"_s, -1, Align::Left},
                {u"Nome Fantasia"_s, -1, Align::Left},
                {u"Fone"_s, -1, Align::Left},
                {u"DT Desativa"_s, -1, Align::Left},
                {u"ID DO PAPEL"_s, 0, Align::Left},
                {u"Cod. Externo"_s, -1, Align::Left},
                {u"idClie"_s, -1, Align::Left},
                {u"idForn"_s, -1, Align::Left}});
}

void frmBROWSE_PESSOAS::DesabilitaPapeis() {
    for (const Opcao opcao : opcoesPapel)
        (this->*opcao).setEnabled(false);
}

void frmBROWSE_PESSOAS::PresetaPapel() {
    const auto* pedido = std::find_if(papeisPedidos.begin(), papeisPedidos.end(), [this](const PapelPedido& linha) {
        return contexto_.TipoConsulta == linha.palavra;
    });
    if (pedido == papeisPedidos.end())
        return;
    DesabilitaPapeis();
    (this->*pedido->opcao).setEnabled(true);
    (this->*pedido->opcao).setValue(true);
}

bool frmBROWSE_PESSOAS::RestauraBusca() {
    bool restaurou = false;
    const auto restaura = [&](const QString& memoria, const auto& aplica) {
        if (!lembrado(memoria))
            return;
        aplica(memoria);
        restaurou = true;
    };
    restaura(contexto_.UltimaFormaBusca, [this](const QString& nome) { escolhePorNome(*this, formasLembradas, nome); });
    restaura(contexto_.UltimoConteudoBusca,
             [this](const QString& nome) { escolhePorNome(*this, conteudosLembrados, nome); });
    restaura(contexto_.UltimoTextoBusca, [this](const QString& texto) { cboCod.setText(texto); });
    restaura(contexto_.UltimoVisualiza, [this](const QString& resposta) {
        if (resposta == u"Sim" || resposta == u"Não")
            chkVisualiza.setChecked(resposta == u"Sim");
    });
    restaura(contexto_.UltimoPapelBusca, [this](const QString& nome) { escolhePorNome(*this, papeisLembrados, nome); });
    return restaurou;
}

void frmBROWSE_PESSOAS::GuardaBusca() {
    contexto_.TopoGridBusca = Flex.TopRow();
    contexto_.UltimaFormaBusca = nomeEscolhido(*this, formasLembradas);
    contexto_.UltimoConteudoBusca = nomeEscolhido(*this, conteudosLembrados);
    contexto_.UltimoTextoBusca = cboCod.text();
    contexto_.UltimoVisualiza = chkVisualiza.checked() ? u"Sim"_s : u"Não"_s;
    contexto_.UltimoPapelBusca = nomeEscolhido(*this, papeisGuardados);
}

void frmBROWSE_PESSOAS::cmdPesquisa_Click() {
    MontaGridPessoas();
    contexto_.SqlConsulta = MontaConsultaPessoas(contexto_, *this);
    setPointer(screen::Pointer::Hourglass);
    data::Recordset registros = AbreLeitura(contexto_, contexto_.SqlConsulta);
    if (registros.Eof()) {
        program().MsgBox(u"Nenhum Registro Localizado com esses parâmetros..."_s);
        SetFocus(cboCod);
    } else {
        PreencheGrid(registros);
    }
    setPointer(screen::Pointer::Default);
    // With several rows the user has to pick one before a double click reaches any.
    if (Flex.Rows() > 2)
        Flex.setRow(0);
}

void frmBROWSE_PESSOAS::PreencheGrid(data::Recordset& registros) {
    const FiltroPapel& filtro = FiltroEscolhido(*this);
    const int total = registros.RecordCount();
    for (int lidos = 0; !registros.Eof(); registros.MoveNext(), ++lidos) {
        if (lidos % passoProgresso == 0)
            program().platform().progress(lidos, total);
        if (const std::optional<QString> linha = LinhaPessoa(contexto_, registros, filtro))
            Flex.AddItem(*linha);
    }
    program().platform().progress(0, 0);
}

void frmBROWSE_PESSOAS::cmdLimpar_Click() {
    MontaGridPessoas();
    CentralizaForm(*this);
    setCaption(ContextoExecucao::Titulo());
    opNome.setValue(true);
    opTodos.setValue(true);
    cboCod.clear();
    SetFocus(cboCod);
}

void frmBROWSE_PESSOAS::cboCod_DropDown() {
    if (opRamoAtividade.value())
        PreencheAtividades(contexto_, Trim(cboCod.text()), cboCod);
}

void frmBROWSE_PESSOAS::Flex_DblClick() {
    if (Flex.Row() == 0)
        return;
    GuardaBusca();
    // Blank lets the person screen reach a deactivated person that was chosen here.
    contexto_.VinculoAtual = u" "_s;
    RetornaPessoa(contexto_, *this);
}

} // namespace vorta

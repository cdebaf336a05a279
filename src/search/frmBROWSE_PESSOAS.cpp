#include "search/frmBROWSE_PESSOAS.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "launch/Lancamento.h"
#include "screen/AskAndWrite.h"
#include "search/ConsultaPessoas.h"
#include "search/RetornoPessoas.h"
#include "shared/Preenchimento.h"
#include "shared/TextoEntrada.h"

#include <algorithm>
#include <vector>

namespace vorta {

namespace {

using screen::Align;
using screen::Option;
using Tela = frmBROWSE_PESSOAS;
using Opcoes = std::vector<Option*>;

// What the memory knows. Other ways of searching fall back to the presets at the next opening.
Opcoes formasLembradas(Tela& tela) {
    return {&tela.opCPFCNPJ, &tela.opNome,          &tela.opFantasia, &tela.opCidade,
            &tela.opUF,      &tela.opRamoAtividade, &tela.opTelefone};
}

Opcoes conteudosLembrados(Tela& tela) {
    return {&tela.opCampoInteiro, &tela.opQualquerParte};
}

/// "Todos" and the roles that the memory keeps at least that well.
Opcoes papeisLembrados(Tela& tela, MemoriaBusca memoria) {
    Opcoes opcoes{&tela.opTodos};
    for (const Papel& papel : papeis)
        if (papel.memoria >= memoria)
            opcoes.push_back(&tela.opcaoDe(papel));
    return opcoes;
}

/// The option with which another screen asks for one role alone; none when the word is no role's.
Option* opcaoPedida(Tela& tela, const QString& palavra) {
    if (palavra == u"PROSPECTEXPRESS")
        return &tela.opProspect;
    for (const Papel& papel : papeis)
        if (std::ranges::any_of(papel.pedidos, [&](QStringView pedido) { return palavra == pedido; }))
            return &tela.opcaoDe(papel);
    return nullptr;
}

/// The name of the chosen option, empty when none of these is.
QString nomeEscolhido(const Opcoes& opcoes) {
    for (const Option* opcao : opcoes)
        if (opcao->value())
            return opcao->name();
    return {};
}

void escolhePorNome(const Opcoes& opcoes, const QString& nome) {
    for (Option* opcao : opcoes)
        if (opcao->name() == nome)
            opcao->setValue(true);
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
    cboCod.selectsOnFocus = true;
    cboCod.LostFocus = [this] { cboCod.setText(UCase(cboCod.text())); };
    cboCod.DropDown = [this] { cboCod_DropDown(); };
    cmdPesquisa.Click = [this] { cmdPesquisa_Click(); };
    cmdLimpar.Click = [this] { cmdLimpar_Click(); };
    chkVisualiza.Click = [this] { cmdPesquisa_Click(); };
    Flex.keysChoose = true;
    Flex.DblClick = [this] { Flex_DblClick(); };
    Flex.commands = {{u"&Ficha da pessoa (PDF)..."_s, [this] { GravaFicha(); }}};
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

screen::Option& frmBROWSE_PESSOAS::opcaoDe(const Papel& papel) const {
    return dynamic_cast<Option&>(field(QString::fromLatin1(papel.opcao)));
}

void frmBROWSE_PESSOAS::DesabilitaPapeis() {
    opTodos.setEnabled(false);
    for (const Papel& papel : papeis)
        opcaoDe(papel).setEnabled(false);
    opProspect.setEnabled(false);
}

void frmBROWSE_PESSOAS::PresetaPapel() {
    Option* pedida = opcaoPedida(*this, contexto_.TipoConsulta);
    if (!pedida)
        return;
    DesabilitaPapeis();
    pedida->setEnabled(true);
    pedida->setValue(true);
}

bool frmBROWSE_PESSOAS::RestauraBusca() {
    bool restaurou = false;
    const auto restaura = [&](const QString& memoria, const auto& aplica) {
        if (!lembrado(memoria))
            return;
        aplica(memoria);
        restaurou = true;
    };
    restaura(contexto_.UltimaFormaBusca, [this](const QString& nome) { escolhePorNome(formasLembradas(*this), nome); });
    restaura(contexto_.UltimoConteudoBusca,
             [this](const QString& nome) { escolhePorNome(conteudosLembrados(*this), nome); });
    restaura(contexto_.UltimoTextoBusca, [this](const QString& texto) { cboCod.setText(texto); });
    restaura(contexto_.UltimoVisualiza, [this](const QString& resposta) {
        if (resposta == u"Sim" || resposta == u"Não")
            chkVisualiza.setChecked(resposta == u"Sim");
    });
    restaura(contexto_.UltimoPapelBusca,
             [this](const QString& nome) { escolhePorNome(papeisLembrados(*this, MemoriaBusca::SoLembra), nome); });
    return restaurou;
}

void frmBROWSE_PESSOAS::GuardaBusca() {
    contexto_.TopoGridBusca = Flex.TopRow();
    contexto_.UltimaFormaBusca = nomeEscolhido(formasLembradas(*this));
    contexto_.UltimoConteudoBusca = nomeEscolhido(conteudosLembrados(*this));
    contexto_.UltimoTextoBusca = cboCod.text();
    contexto_.UltimoVisualiza = chkVisualiza.checked() ? u"Sim"_s : u"Não"_s;
    contexto_.UltimoPapelBusca = nomeEscolhido(papeisLembrados(*this, MemoriaBusca::Guarda));
}

void frmBROWSE_PESSOAS::cmdPesquisa_Click() {
    MontaGridPessoas();
    contexto_.SqlConsulta = MontaConsultaPessoas(contexto_, *this);
    setPointer(screen::Pointer::Hourglass);
    const FiltroPapel filtro = FiltroEscolhido(*this);
    data::Recordset registros = AbreLeituraLonga(contexto_, contexto_.SqlConsulta, ColunasLidas(filtro));
    if (registros.Eof()) {
        program().MsgBox(u"Nenhum Registro Localizado com esses parâmetros..."_s);
        SetFocus(cboCod);
    } else {
        PreencheGrid(registros, filtro);
    }
    setPointer(screen::Pointer::Default);
    // With several rows the user has to pick one before a double click reaches any.
    if (Flex.Rows() > 2)
        Flex.setRow(0);
}

void frmBROWSE_PESSOAS::PreencheGrid(data::Recordset& registros, const FiltroPapel& filtro) {
    const int total = registros.RecordCount();
    for (int lidos = 0; !registros.Eof(); registros.MoveNext(), ++lidos) {
        if (lidos % passoProgresso == 0)
            program().platform().progress(lidos, total);
        if (const std::optional<QStringList> linha = LinhaPessoa(contexto_, registros, filtro))
            Flex.AddRow(*linha);
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

void frmBROWSE_PESSOAS::GravaFicha() {
    const QString idpess = Flex.cell(Flex.Row(), 0);
    const QString ficha = contexto_.FichaPessoa(idpess);
    if (ficha.isEmpty()) {
        program().MsgBox(u"Pessoa não localizada!"_s);
        return;
    }
    AskAndWrite(program(), u"ficha-%1.pdf"_s.arg(idpess),
                [&](const QString& caminho) { program().platform().writePdf(ficha, caminho); });
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

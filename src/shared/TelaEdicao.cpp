#include "shared/TelaEdicao.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "shared/Consultas.h"
#include "shared/TextoEntrada.h"
#include "shared/ValidaCampos.h"

namespace vorta {

namespace {

using data::Statement;
using screen::Answer;
using screen::Buttons;
using screen::Field;
using screen::Icon;

const QString campoCodigo = u"txtRowID"_s;

} // namespace

Statement ColunasDesativacao(const ContextoExecucao& contexto) {
    return Statement("user_desa='") << contexto.CodigoUsuario << "', "
                                    << "data_desa='" << FormatDateSql(contexto.hoje()) << "' ";
}

TelaEdicao::TelaEdicao(ContextoExecucao& contexto, const QString& nome, const RegrasEdicao& regras)
    : Screen(contexto.program(), nome), contexto_(contexto), regras_(regras) {}

void TelaEdicao::LigaOperacoes() {
    const auto liga = [this](const QString& botao, void (TelaEdicao::*clique)()) {
        field(botao).Click = [this, clique] { (this->*clique)(); };
    };
    liga(u"cmdINCLUIR"_s, &TelaEdicao::cmdINCLUIR_Click);
    liga(u"cmdALTERAR"_s, &TelaEdicao::cmdALTERAR_Click);
    liga(u"cmdEXCLUIR"_s, &TelaEdicao::cmdEXCLUIR_Click);
    liga(u"cmdReativar"_s, &TelaEdicao::cmdReativar_Click);
    liga(u"cmdSALVAR"_s, &TelaEdicao::cmdSALVAR_Click);
    liga(u"cmdSAIR"_s, &TelaEdicao::cmdSAIR_Click);
}

void TelaEdicao::Habilita(std::initializer_list<const char*> botoes, bool ligados) {
    for (const char* botao : botoes)
        field(QString::fromLatin1(botao)).setEnabled(ligados);
}

void TelaEdicao::BotoesOcioso() {
    Habilita({"cmdINCLUIR", "cmdALTERAR", "cmdEXCLUIR", "cmdReativar"},
             !(regras_.obedeceSomenteConsulta && contexto_.SomenteConsulta));
    Habilita({"cmdPESQUISAR", "cmdSALVAR", "cmdIMPRIMIR"}, false);
    Habilita({"cmdSAIR"}, true);
}

void TelaEdicao::BotoesEdicao() {
    Habilita({"cmdPESQUISAR", "cmdINCLUIR", "cmdALTERAR", "cmdEXCLUIR", "cmdReativar", "cmdIMPRIMIR"}, false);
    Habilita({"cmdSALVAR", "cmdSAIR"}, true);
}

bool TelaEdicao::Selecionado() const {
    return !RTrim(field(campoCodigo).text()).isEmpty();
}

QString TelaEdicao::IdRegistro() const {
    return field(campoCodigo).text();
}

bool TelaEdicao::Desativado() const {
    return !RTrim(field(u"txtDTDesativa"_s).text()).isEmpty();
}

/// The message for a screen without a record; true when it was shown.
bool TelaEdicao::FaltaSelecao() {
    if (Selecionado())
        return false;
    program().MsgBox(u"Selecione Um Registro Para Executar esta Operação!"_s);
    return true;
}

void TelaEdicao::Recusa(const QString& motivo) {
    program().MsgBox(u"Impossibilidade de Executar o Comando!\n"_s + motivo);
}

bool TelaEdicao::Confirma(const QString& pergunta) {
    return program().MsgBox({pergunta, {}, Icon::None, Buttons::YesNo}) == Answer::Yes;
}

void TelaEdicao::VaiParaGrade() {
    if (Field* grade = findField(u"Flex"_s))
        SetFocus(*grade);
}

void TelaEdicao::ComArmadilha(const QString& mensagem, const std::function<void()>& passos) {
    try {
        passos();
    } catch (const RuntimeError& erro) {
        program().MsgBox({u"%1\n%2 - %3"_s.arg(mensagem).arg(erro.number()).arg(erro.description()), u"Inclusão"_s,
                          regras_.iconeErro, Buttons::OK});
        setPointer(screen::Pointer::Default);
        if (regras_.fechaRecordsetNoErro)
            contexto_.RecordsetComum.Close();
    }
}

void TelaEdicao::Inicia(Modo modo) {
    MudaModo(contexto_, modo);
    MostraModo(modo);
    ApagaMarcas();
    LiberaCampos();
    BloqueiaCampo(field(campoCodigo));
}

void TelaEdicao::Edita(Modo modo) {
    Inicia(modo);
    SetFocus(field(QString::fromLatin1(regras_.primeiroCampo)));
}

void TelaEdicao::ConcluiOperacao() {
    program().MsgBox(u"Registro Gravado com sucesso!"_s);
    MudaModo(contexto_, Modo::Ocioso);
}

void TelaEdicao::AbandonaOperacao() {
    BotoesOcioso();
    BloqueiaCampos();
    LimpaCampos();
    ApagaMarcas();
    MudaModo(contexto_, Modo::Ocioso);
    MostraModo(Modo::Ocioso);
}

void TelaEdicao::cmdALTERAR_Click() {
    if (FaltaSelecao()) {
        if (regras_.semSelecaoVaiParaGrade)
            VaiParaGrade();
        return;
    }
    if (Desativado()) {
        Recusa(u"O Registro Está Desativado."_s);
        VaiParaGrade();
        LimpaCampos();
        return;
    }
    ComArmadilha(u"Erro ao Alterar o Registro!"_s, [this] {
        BotoesEdicao();
        Edita(Modo::Alteracao);
    });
}

/// Sends the change of the audit columns of the record on the screen.
void TelaEdicao::MudaSituacao(const Statement& colunas) {
    EnviaComando(contexto_, Statement("UPDATE ") << regras_.tabela << " SET " << colunas << "WHERE (" << regras_.chave
                                                 << "=" << IdRegistro() << ")");
}

void TelaEdicao::cmdEXCLUIR_Click() {
    if (FaltaSelecao())
        return;
    if (Desativado()) {
        Recusa(u"O Registro Já está como Desativado."_s);
        LimpaCampos();
        return;
    }
    if (Confirma(u"Deseja realmente Desativar?"_s)) {
        if (!PodeDesativar())
            return BotoesOcioso();
        MudaSituacao(ColunasDesativacao(contexto_));
        AoDesativar();
    }
    BotoesOcioso();
    LimpaCampos();
}

void TelaEdicao::cmdReativar_Click() {
    if (FaltaSelecao())
        return;
    if (!Desativado()) {
        Recusa(u"O Registro Já está como Ativo."_s);
        LimpaCampos();
        return;
    }
    if (!PodeReativar())
        return;
    if (Confirma(u"Deseja realmente Reativar Este Registro ?"_s)) {
        MudaSituacao(Statement("user_desa=null, ") << "data_desa=null, "
                                                   << "user_incl='" << contexto_.CodigoUsuario << "', "
                                                   << "data_incl='" << FormatDateSql(contexto_.hoje()) << "' ");
        AoReativar();
    }
    BotoesOcioso();
    LimpaCampos();
    Recarrega();
}

void TelaEdicao::cmdSAIR_Click() {
    if (!EmEdicao())
        return Unload();
    const Answer resposta = program().MsgBox(
        {u"Existe operação não concluída!!!\n\n<Sim> Sair sem Concluir\n<Não> Retornar para a Operação "
         "Atual\n<Cancela> Retornar e Abortar a Operação Atual"_s,
         {},
         Icon::None,
         Buttons::YesNoCancel});
    if (resposta == Answer::Yes)
        Unload();
    else if (resposta == Answer::Cancel)
        AbandonaOperacao();
}

void TelaEdicao::txtRowID_LostFocus() {
    Field& codigo = field(campoCodigo);
    if (modo() != Modo::Inclusao || codigo.text().isEmpty() || !ClienteExiste(contexto_, codigo.text()))
        return;
    program().MsgBox(u"O Cliente (%1) Já Existe! Tente outro código"_s.arg(codigo.text()));
    SetFocus(codigo);
}

void TelaEdicao::RecusaData(Field& campo) {
    program().MsgBox(u"Data Inválida!"_s);
    SetFocus(campo);
}

void TelaEdicao::ConfereEmail(Field& campo) {
    if (campo.text().isEmpty() || ValidaEmail(contexto_, campo.text()))
        return;
    if (Confirma(u"O e-mail digitado não passou na validação.\nVocê deseja corrigir?"_s))
        SetFocus(campo);
}

} // namespace vorta

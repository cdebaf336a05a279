#include "person/DesativacaoPessoa.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "person/frmPessoas.h"
#include "shared/TextoEntrada.h"
#include "shared/Vinculos.h"

namespace vorta {

namespace {

using data::Statement;
using screen::Answer;
using screen::Buttons;
using screen::Icon;

bool FaltaSelecao(frmPessoas& tela) {
    if (!RTrim(tela.txtRowID.text()).isEmpty())
        return false;
    tela.program().MsgBox(u"Selecione Um Registro Para Executar esta Operação!"_s);
    return true;
}

bool Desativada(const frmPessoas& tela) {
    return !RTrim(tela.txtDTDesativa.text()).isEmpty();
}

void Recusa(frmPessoas& tela, const QString& motivo) {
    tela.program().MsgBox(u"Impossibilidade de Executar o Comando!\n"_s + motivo);
    tela.LimpaTela();
}

bool Confirma(frmPessoas& tela, const QString& pergunta) {
    return tela.program().MsgBox({pergunta, {}, Icon::None, Buttons::YesNo}) == Answer::Yes;
}

/// All links that hold a person in the register are asked, also behind the first one found.
bool TemVinculo(frmPessoas& tela) {
    bool algum = false;
    for (const Papel& papel : papeis)
        if (papel.prendePessoa)
            algum |= Val(Vinculo(tela.contexto(), papel, tela.txtRowID.text())) > 0;
    return algum;
}

void MudaSituacao(frmPessoas& tela, const Statement& colunas) {
    Statement& comando = tela.contexto().SqlComando;
    comando.clear();
    comando << "UPDATE PESS SET " << colunas << "WHERE (idPESS=" << tela.txtRowID.text() << ")";
    ExecutaSemAcentos(tela.contexto(), comando);
}

void cmdEXCLUIR_Click(frmPessoas& tela) {
    if (FaltaSelecao(tela))
        return;
    if (Desativada(tela))
        return Recusa(tela, u"O Registro Já está como Desativado."_s);
    if (Confirma(tela, u"Deseja realmente Desativar?"_s)) {
        if (TemVinculo(tela)) {
            tela.program().MsgBox({u"Atenção!!!\nExistem Vinculos com essa 'Pessoa'\nDesfaça os vinculos "
                                   "antes de desativar"_s,
                                   ContextoExecucao::Titulo(), Icon::Critical, Buttons::OK});
            tela.PosicionaBotoes();
            return;
        }
        MudaSituacao(tela, Statement("USER_DESA='") << tela.contexto().CodigoUsuario << "', "
                                                    << "DATA_DESA='" << FormatDateSql(tela.contexto().hoje()) << "' ");
    }
    tela.PosicionaBotoes();
    tela.LimpaTela();
}

void cmdReativar_Click(frmPessoas& tela) {
    if (FaltaSelecao(tela))
        return;
    if (!Desativada(tela))
        return Recusa(tela, u"O Registro Já está como Ativo."_s);
    if (Confirma(tela, u"Deseja realmente Reativar Este Registro ?"_s))
        MudaSituacao(tela, Statement("USER_DESA=null, ")
                               << "DATA_DESA=null, "
                               << "USER_INCL='" << tela.contexto().CodigoUsuario << "', "
                               << "DATA_INCL='" << FormatDateSql(tela.contexto().hoje()) << "' ");
    tela.PosicionaBotoes();
    tela.LimpaTela();
}

} // namespace

void LigaDesativacao(frmPessoas& tela) {
    tela.cmdEXCLUIR.Click = [&tela] { cmdEXCLUIR_Click(tela); };
    tela.cmdReativar.Click = [&tela] { cmdReativar_Click(tela); };
}

} // namespace vorta

#include "person/VinculosPessoa.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/frmPessoas.h"
#include "shared/Insercao.h"
#include "shared/TextoEntrada.h"
#include "shared/Vinculos.h"

namespace vorta {

namespace {

using data::Statement;
using screen::Answer;
using screen::Buttons;
using screen::Icon;

/// A person that has never been saved has no key to link to.
bool SemPessoa(const frmPessoas& tela) {
    return Val(tela.txtRowID.text()) <= 0;
}

bool Confirma(frmPessoas& tela, const QString& pergunta) {
    return tela.program().MsgBox({pergunta, tela.caption(), Icon::None, Buttons::YesNo}) == Answer::Yes;
}

void Informa(frmPessoas& tela, const QString& texto) {
    tela.program().MsgBox({texto, tela.caption(), Icon::Information, Buttons::OK});
}

void AbreTela(frmPessoas& tela, const char* nome) {
    tela.contexto().IdPessoaVinculo = tela.txtRowID.text();
    tela.contexto().MostraTela(QString::fromLatin1(nome));
}

Statement MontaInsertVinculo(const frmPessoas& tela, const Papel& papel) {
    ContextoExecucao& contexto = tela.contexto();
    Insercao insercao(papel.tabela);
    insercao.incluiChave(Statement(papel.chave), ChaveDoGerador(contexto, papel.gerador));
    insercao.inclui("idpess", tela.txtRowID.text());
    for (const ColunaInicial& inicial : papel.iniciais)
        insercao.inclui(inicial.coluna, QString::fromLatin1(inicial.valor));
    insercao.inclui("codi_empr", tela.lblCodiEmpresa.text());
    return insercao.encerra(contexto);
}

/// Always a new row, also when an earlier link lies deactivated. The key is asked of the connection on every engine.
void CriaVinculo(frmPessoas& tela, const Papel& papel) {
    if (!Confirma(tela, u"Deseja Criar um Vínculo de %1?"_s.arg(QLatin1StringView(papel.nome))))
        return;
    ContextoExecucao& contexto = tela.contexto();
    EnviaComando(contexto, MontaInsertVinculo(tela, papel));
    const qint32 id = UltimoIdentity(contexto);
    GravaVinculoPess(contexto, tela.txtRowID.text(), papel.chave, QString::number(id));
    Informa(tela, u"Vínculo estabelecido com sucesso!"_s);
}

void RemoveVinculo(frmPessoas& tela, const Papel& papel) {
    if (!Confirma(tela, u"Deseja Exclui o Vínculo de %1?"_s.arg(QLatin1StringView(papel.nome))))
        return;
    ContextoExecucao& contexto = tela.contexto();
    const QString id = Vinculo(contexto, papel, tela.txtRowID.text());
    Statement& comando = contexto.SqlComando;
    comando.clear();
    comando << "UPDATE " << papel.tabela << " SET " << ColunasDesativacao(contexto) << "WHERE (" << papel.chave << "="
            << id << ")";
    ExecutaSemAcentos(contexto, comando);
    LimpaVinculoPess(contexto, tela.txtRowID.text(), papel.chave);
    Informa(tela, u"Vínculo excluído com sucesso!"_s);
}

void cmdPapel_Click(frmPessoas& tela, const Papel& papel) {
    if (SemPessoa(tela))
        return Informa(tela, u"Selecione ou Salve um Registro antes de vincular!"_s);
    ContextoExecucao& contexto = tela.contexto();
    contexto.VinculoAtual = u"N"_s;
    if (LeParametroEmpresa(contexto, QString::fromLatin1(papel.parametroTela)) != u"N")
        AbreTela(tela, papel.tela);
    else if (Val(Vinculo(contexto, papel, tela.txtRowID.text())) == 0)
        CriaVinculo(tela, papel);
    else
        RemoveVinculo(tela, papel);
    AtualizaIndicadoresVinculo(contexto, tela);
}

/// A role without a direct link: its screen refreshes the buttons by itself.
void cmdSoTela_Click(frmPessoas& tela, const Papel& papel) {
    if (SemPessoa(tela)) {
        tela.program().MsgBox(u"Selecione um Registro antes de vincular!"_s);
        return;
    }
    AbreTela(tela, papel.tela);
}

/// All links that hold a person in the register are asked, also behind the first one found.
bool TemVinculo(const frmPessoas& tela) {
    bool algum = false;
    for (const Papel& papel : papeis)
        if (papel.prendePessoa)
            algum |= Val(Vinculo(tela.contexto(), papel, tela.txtRowID.text())) > 0;
    return algum;
}

} // namespace

bool frmPessoas::PodeDesativar() {
    if (!TemVinculo(*this))
        return true;
    program().MsgBox({u"Atenção!!!\nExistem Vinculos com essa 'Pessoa'\nDesfaça os vinculos antes de desativar"_s,
                      ContextoExecucao::Titulo(), Icon::Critical, Buttons::OK});
    return false;
}

void LigaVinculos(frmPessoas& tela) {
    for (const Papel& papel : papeis) {
        screen::Field& botao = tela.field(QString::fromLatin1(papel.botao));
        if (papel.parametroTela)
            botao.Click = [&tela, &papel] { cmdPapel_Click(tela, papel); };
        else
            botao.Click = [&tela, &papel] { cmdSoTela_Click(tela, papel); };
    }
}

} // namespace vorta

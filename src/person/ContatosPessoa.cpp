#include "person/ContatosPessoa.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/frmPessoas.h"
#include "shared/Consultas.h"
#include "shared/Insercao.h"
#include "shared/Preenchimento.h"

namespace vorta {

namespace {

using data::Statement;

constexpr int colunaAtividade = 1;

void cboAtividades_LostFocus(frmPessoas& tela) {
    const QString ramo = Trim(tela.cboAtividades.text());
    if (ramo.isEmpty() || IdAtividade(tela.contexto(), ramo) != 0)
        return;
    tela.program().MsgBox(
        {u"Esta Atividade não Existe!"_s, ContextoExecucao::Titulo(), screen::Icon::Information, screen::Buttons::OK});
    tela.cboAtividades.setText({});
    tela.SetFocus(tela.cboAtividades);
}

void cmdIncluirAtividades_Click(frmPessoas& tela) {
    const QString ramo = Trim(tela.cboAtividades.text());
    if (ramo.isEmpty())
        return;
    if (IdAtividade(tela.contexto(), ramo) > 0)
        tela.FlexAtividades.AddRow({{}, tela.cboAtividades.text()});
    else
        tela.program().MsgBox({u"Este Ramo de Atividade não existe!"_s, ContextoExecucao::Titulo(),
                               screen::Icon::Critical, screen::Buttons::OK});
    tela.cboAtividades.setText({});
    tela.lblRamoFora.setText({});
    tela.SetFocus(tela.cboAtividades);
}

void FlexAtividades_Click(frmPessoas& tela) {
    const int linha = tela.FlexAtividades.Row();
    if (!tela.EmEdicao() || linha == 0)
        return;
    tela.cboAtividades.setText(tela.FlexAtividades.cell(linha, colunaAtividade));
    if (tela.FlexAtividades.Rows() > 2)
        tela.FlexAtividades.RemoveItem(linha);
    else
        PreparaGridAtividades(tela);
}

} // namespace

void LigaContatos(frmPessoas& tela) {
    tela.lblRamoFora.setForeground(screen::colour::Red);
    tela.contatos.cboTipoContato.DropDown = [&tela] {
        PreencheCargosContem(tela.contexto(), tela.contatos.cboTipoContato.text(), tela.contatos.cboTipoContato);
    };
    tela.cboAtividades.DropDown = [&tela] {
        PreencheAtividades(tela.contexto(), tela.cboAtividades.text(), tela.cboAtividades);
    };
    tela.cboAtividades.LostFocus = [&tela] { cboAtividades_LostFocus(tela); };
    tela.cmdIncluirAtividades.Click = [&tela] { cmdIncluirAtividades_Click(tela); };
    tela.FlexAtividades.Click = [&tela] { FlexAtividades_Click(tela); };
}

void PreparaGridAtividades(frmPessoas& tela) {
    tela.FlexAtividades.reset({{u"ID"_s, 0}, {u"Ramos de Atividade"_s}});
}

void CarregaAtividades(frmPessoas& tela) {
    Statement comando("SELECT * From pess_ativ Where idpess=");
    comando << tela.txtRowID.text();
    data::Recordset registros = AbreLeitura(tela.contexto(), comando);
    for (; !registros.Eof(); registros.MoveNext())
        tela.FlexAtividades.AddRow({{}, DescricaoAtividade(tela.contexto(), registros.Fields("idAtiv").toInt16())});
}

Statement MontaInsertAtividade(const frmPessoas& tela, const QString& idpess, int linha) {
    Insercao insercao("pess_ativ");
    insercao.incluiChave(Statement("idpess_ativ"), ChaveDoGerador(tela.contexto(), data::Piece("GEN_PESS_ATIV")));
    insercao.inclui("idpess", idpess);
    const QString ramo = Trim(tela.FlexAtividades.cell(linha, colunaAtividade));
    insercao.inclui("idativ", QString::number(IdAtividade(tela.contexto(), ramo)));
    return insercao.encerra(tela.contexto());
}

Statement MontaDeleteAtividades(const frmPessoas& tela) {
    return Statement("DELETE FROM pess_ativ WHERE (idpess=") << tela.txtRowID.text() << ")";
}

} // namespace vorta

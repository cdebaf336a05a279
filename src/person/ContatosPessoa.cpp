#include "person/ContatosPessoa.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/frmPessoas.h"
#include "shared/Consultas.h"
#include "shared/Insercao.h"
#include "shared/Preenchimento.h"
#include "shared/TextoEntrada.h"
#include "shared/ValidaCampos.h"

namespace vorta {

namespace {

using data::Statement;

const QString semAniversario = u"__/__"_s;

/// Columns of `Flex`; the first one, hidden, stays empty.
enum ColunaContato { Tipo = 1, Nome, Fone, Email, Aniversario };

constexpr int colunaAtividade = 1;

QString Linha(const QStringList& celulas) {
    return u'\t' + celulas.join(u'\t') + u'\t';
}

void LimpaEntradaContato(frmPessoas& tela) {
    for (screen::Field* campo : std::initializer_list<screen::Field*>{&tela.cboTipoContato, &tela.txtNomeContato,
                                                                      &tela.txtFoneContato, &tela.txtEmailContato})
        campo->setText({});
    LimpaMascara(tela.mskDtNascCont);
    tela.SetFocus(tela.cboTipoContato);
}

void cmdIncluirContato_Click(frmPessoas& tela) {
    if (tela.cboTipoContato.text().isEmpty() || tela.txtNomeContato.text().isEmpty())
        return;
    QString aniversario = tela.mskDtNascCont.text();
    if (!ValidaDiaMes(tela.contexto(), aniversario)) {
        tela.program().MsgBox(
            {u"Formato de Data Inválida!"_s, u"Data de Aniversário"_s, screen::Icon::Information, screen::Buttons::OK});
        tela.SetFocus(tela.mskDtNascCont);
        return;
    }
    const QString digitado = tela.mskDtNascCont.text();
    tela.Flex.AddItem(u'\t' + QStringList{tela.cboTipoContato.text(), tela.txtNomeContato.text(),
                                          tela.txtFoneContato.text(), tela.txtEmailContato.text(),
                                          digitado == semAniversario ? QString() : digitado}
                                  .join(u'\t'));
    LimpaEntradaContato(tela);
}

/// The contact leaves the grid and lives in the entry fields until it is included again.
void EditaContato(frmPessoas& tela, int linha) {
    const screen::Grid& grade = tela.Flex;
    tela.cboTipoContato.setText(grade.cell(linha, Tipo));
    tela.txtNomeContato.setText(grade.cell(linha, Nome));
    tela.txtFoneContato.setText(grade.cell(linha, Fone));
    tela.txtEmailContato.setText(grade.cell(linha, Email));
    if (const QString aniversario = grade.cell(linha, Aniversario); !aniversario.isEmpty())
        tela.mskDtNascCont.setText(aniversario);
    if (grade.Rows() > 2)
        tela.Flex.RemoveItem(linha);
    else
        PreparaGridContatos(tela);
}

void Flex_DblClick(frmPessoas& tela) {
    const int linha = tela.Flex.Row();
    if (linha == 0)
        return;
    if (tela.EmEdicao())
        EditaContato(tela, linha);
    else
        AbreEmail(tela.contexto(), Trim(tela.Flex.cell(linha, Email)));
}

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
        tela.FlexAtividades.AddItem(Linha({tela.cboAtividades.text()}));
    else
        tela.program().MsgBox({u"Este Ramo de Atividade não existe!"_s, ContextoExecucao::Titulo(),
                               screen::Icon::Critical, screen::Buttons::OK});
    tela.cboAtividades.setText({});
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
    tela.cmdIncluirContato.Click = [&tela] { cmdIncluirContato_Click(tela); };
    tela.Flex.DblClick = [&tela] { Flex_DblClick(tela); };
    tela.cboTipoContato.DropDown = [&tela] {
        PreencheCargosContem(tela.contexto(), tela.cboTipoContato.text(), tela.cboTipoContato);
    };
    tela.cboAtividades.DropDown = [&tela] {
        PreencheAtividades(tela.contexto(), tela.cboAtividades.text(), tela.cboAtividades);
    };
    tela.cboAtividades.LostFocus = [&tela] { cboAtividades_LostFocus(tela); };
    tela.cmdIncluirAtividades.Click = [&tela] { cmdIncluirAtividades_Click(tela); };
    tela.FlexAtividades.Click = [&tela] { FlexAtividades_Click(tela); };
}

void PreparaGridContatos(frmPessoas& tela) {
    tela.Flex.reset({{u"ID"_s, 0}, {u"Tipo"_s}, {u"Nome"_s}, {u"Fone"_s}, {u"E-Mail"_s}, {u"Aniver."_s}});
}

void PreparaGridAtividades(frmPessoas& tela) {
    tela.FlexAtividades.reset({{u"ID"_s, 0}, {u"Ramos de Atividade"_s}});
}

void CarregaAtividades(frmPessoas& tela) {
    Statement comando("SELECT * From pess_ativ Where idpess=");
    comando << tela.txtRowID.text();
    data::Recordset registros = AbreLeitura(tela.contexto(), comando);
    for (; !registros.Eof(); registros.MoveNext())
        tela.FlexAtividades.AddItem(Linha({DescricaoAtividade(tela.contexto(), registros.Fields("idAtiv").toInt16())}));
}

void CarregaContatos(frmPessoas& tela) {
    Statement comando("SELECT * From pess_cont Where idpess=");
    comando << tela.txtRowID.text();
    data::Recordset registros = AbreLeitura(tela.contexto(), comando);
    for (; !registros.Eof(); registros.MoveNext()) {
        QStringList celulas;
        for (const char* coluna : {"carg_pess_cont", "nome_pess_cont", "tele_pess_cont", "emai_pess_cont"})
            celulas << registros.Fields(coluna).textOr({});
        celulas << FormatDayMonthText(registros.Fields("DATA_NASC").textOr({}));
        tela.Flex.AddItem(Linha(celulas));
    }
}

Statement MontaInsertContato(const frmPessoas& tela, const QString& idpess, int linha) {
    const screen::Grid& grade = tela.Flex;
    Insercao insercao("pess_cont");
    insercao.incluiChave(Statement("idpess_cont"), ChaveDoGerador(tela.contexto(), data::Piece("GEN_PESS_CONT")));
    insercao.inclui("idpess", idpess);
    insercao.inclui("carg_pess_cont", grade.cell(linha, Tipo));
    insercao.inclui("nome_pess_cont", grade.cell(linha, Nome));
    if (const QString fone = grade.cell(linha, Fone); !fone.isEmpty())
        insercao.inclui("tele_pess_cont", fone);
    if (const QString email = grade.cell(linha, Email); !email.isEmpty())
        insercao.inclui("emai_pess_cont", email);
    if (const QString aniversario = grade.cell(linha, Aniversario); aniversario != semAniversario)
        insercao.inclui("data_nasc", aniversario);
    return insercao.encerra(tela.contexto());
}

Statement MontaInsertAtividade(const frmPessoas& tela, const QString& idpess, int linha) {
    Insercao insercao("pess_ativ");
    insercao.incluiChave(Statement("idpess_ativ"), ChaveDoGerador(tela.contexto(), data::Piece("GEN_PESS_ATIV")));
    insercao.inclui("idpess", idpess);
    const QString ramo = tela.FlexAtividades.cell(linha, colunaAtividade);
    insercao.inclui("idativ", QString::number(IdAtividade(tela.contexto(), ramo)));
    return insercao.encerra(tela.contexto());
}

Statement MontaDeleteContatos(const frmPessoas& tela) {
    return Statement("DELETE FROM PESS_CONT WHERE (idPESS=") << tela.txtRowID.text() << ")";
}

Statement MontaDeleteAtividades(const frmPessoas& tela) {
    return Statement("DELETE FROM pess_ativ WHERE (idpess=") << tela.txtRowID.text() << ")";
}

} // namespace vorta

#include "roles/ContatosPapel.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "shared/Insercao.h"
#include "shared/TextoEntrada.h"
#include "shared/ValidaCampos.h"

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;
using screen::Field;

const QString semAniversario = u"__/__"_s;

/// Columns of `Flex`; the first one, hidden, stays empty.
enum Coluna { Tipo = 1, Nome, Fone, Email, Aniversario };

/// A contact's column: subject, then the name of its table.
QString NomeColuna(const char* assunto, const TabelaContatos& tabela) {
    return QLatin1StringView(assunto) + tabela.tabela.toString();
}

} // namespace

ContatosPapel::ContatosPapel(ContextoExecucao& contexto, screen::Screen& tela, const Papel& papel,
                             const RegrasTelaPapel& regras)
    : cboTipoContato(&tela, "cboTipoContato"), txtNomeContato(&tela, "txtNomeContato"),
      txtFoneContato(&tela, "txtFoneContato"), txtEmailContato(&tela, "txtEmailContato"),
      mskDtNasc(&tela, "mskDtNasc", u"##/##"_s), cmdIncluirContato(&tela, "cmdIncluirContato", u"Incluir"_s),
      Flex(&tela, "Flex"), contexto_(contexto), tela_(tela), papel_(papel), regras_(regras),
      tabela_(papel.contatos.value()) {
    PreparaGridContatos();
    for (Field* campo :
         std::initializer_list<Field*>{&cboTipoContato, &txtNomeContato, &txtFoneContato, &txtEmailContato})
        campo->enterMovesOn = true;
    cmdIncluirContato.Click = [this] { cmdIncluirContato_Click(); };
    Flex.Click = [this] { Flex_Click(); };
    txtEmailContato.LostFocus = [this] { txtEmailContato_LostFocus(); };
    if (!regras.grupo.entradaConferida)
        return;
    mskDtNasc.enterMovesOn = true;
    mskDtNasc.LostFocus = [this] { mskDtNasc_LostFocus(); };
    txtNomeContato.LostFocus = [this] { txtNomeContato.setText(UCase(txtNomeContato.text())); };
}

void ContatosPapel::PreparaGridContatos() {
    Flex.reset({{u"ID"_s, 0}, {u"Tipo"_s}, {u"Nome"_s}, {u"Fone"_s}, {u"E-Mail"_s}, {u"Aniver."_s}});
}

void ContatosPapel::LimpaEntrada() {
    for (Field* campo :
         std::initializer_list<Field*>{&cboTipoContato, &txtNomeContato, &txtFoneContato, &txtEmailContato})
        campo->setText({});
    LimpaMascara(mskDtNasc);
}

void ContatosPapel::Bloqueia() {
    for (Field* campo :
         std::initializer_list<Field*>{&cboTipoContato, &txtNomeContato, &txtFoneContato, &txtEmailContato, &mskDtNasc})
        BloqueiaCampo(*campo);
}

void ContatosPapel::Libera() {
    for (Field* campo :
         std::initializer_list<Field*>{&cboTipoContato, &txtNomeContato, &txtFoneContato, &txtEmailContato, &mskDtNasc})
        LiberaCampo(*campo);
}

void ContatosPapel::Carrega(const QString& idPapel) {
    PreparaGridContatos();
    contexto_.SqlConsulta.clear();
    contexto_.SqlConsulta << "SELECT * "
                          << "From " << tabela_.tabela << " "
                          << "Where " << papel_.chave << "=" << idPapel;
    for (Recordset registros = AbreLeitura(contexto_, contexto_.SqlConsulta); !registros.Eof(); registros.MoveNext()) {
        QString linha(u'\t');
        for (const char* assunto : {"carg_", "nome_", "tele_", "emai_"})
            linha += registros.Fields(NomeColuna(assunto, tabela_)).textOr({}) + u'\t';
        Flex.AddItem(linha + FormatDayMonthText(registros.Fields("DATA_NASC").textOr({})) + u'\t');
    }
}

Statement ContatosPapel::MontaDeleteContatos(const QString& idPapel) const {
    Statement comando;
    comando << "DELETE FROM " << tabela_.tabela << " "
            << "WHERE (" << papel_.chave << "=" << idPapel << ")";
    return comando;
}

Statement ContatosPapel::MontaInsertContato(const QString& idPapel, int linha) const {
    const auto coluna = [&](data::Piece assunto) { return Statement(assunto) << tabela_.tabela; };
    Insercao insercao(tabela_.tabela);
    insercao.incluiChave(coluna("id"), ChaveDoGerador(contexto_, tabela_.gerador));
    insercao.inclui(papel_.chave, idPapel);
    insercao.inclui(coluna("carg_"), Flex.cell(linha, Tipo));
    insercao.inclui(coluna("nome_"), Flex.cell(linha, Nome));
    if (const QString fone = Flex.cell(linha, Fone); !fone.isEmpty())
        insercao.inclui(coluna("tele_"), fone);
    if (const QString email = Flex.cell(linha, Email); !email.isEmpty())
        insercao.inclui(coluna("emai_"), email);
    if (const QString aniversario = Flex.cell(linha, Aniversario); aniversario != semAniversario)
        insercao.inclui("data_nasc", aniversario);
    return insercao.encerra(contexto_, regras_.grupo.dataComando);
}

void ContatosPapel::cmdIncluirContato_Click() {
    if (cboTipoContato.text().isEmpty() || txtNomeContato.text().isEmpty())
        return;
    const QString aniversario = mskDtNasc.text();
    Flex.AddItem(u'\t' + QStringList{cboTipoContato.text(), txtNomeContato.text(), txtFoneContato.text(),
                                     txtEmailContato.text(), aniversario == semAniversario ? QString() : aniversario}
                             .join(u'\t'));
    LimpaEntrada();
    tela_.SetFocus(cboTipoContato);
}

/// The contact leaves the grid and lives in the entry fields until it is included again.
void ContatosPapel::Flex_Click() {
    const int linha = Flex.Row();
    if ((contexto_.ModoTela != u"I" && contexto_.ModoTela != u"A") || linha == 0)
        return;
    cboTipoContato.setText(Flex.cell(linha, Tipo));
    txtNomeContato.setText(Flex.cell(linha, Nome));
    txtFoneContato.setText(Flex.cell(linha, Fone));
    txtEmailContato.setText(Flex.cell(linha, Email));
    if (const QString aniversario = Flex.cell(linha, Aniversario); !aniversario.isEmpty())
        mskDtNasc.setText(aniversario);
    if (Flex.Rows() > 2)
        Flex.RemoveItem(linha);
    else
        PreparaGridContatos();
}

void ContatosPapel::txtEmailContato_LostFocus() {
    if (txtEmailContato.text().isEmpty() || ValidaEmail(contexto_, txtEmailContato.text()))
        return;
    const screen::Answer resposta =
        tela_.program().MsgBox({u"O e-mail digitado não passou na validação.\nVocê deseja corrigir?"_s,
                                {},
                                screen::Icon::None,
                                screen::Buttons::YesNo});
    if (resposta == screen::Answer::Yes)
        tela_.SetFocus(txtEmailContato);
}

/// A birthday is checked in a fixed year, so 29 February is never one.
void ContatosPapel::mskDtNasc_LostFocus() {
    if (mskDtNasc.text() == semAniversario)
        return;
    const std::optional<QDateTime> dia = ParseDate(mskDtNasc.text() + u"/2001"_s);
    if (dia) {
        mskDtNasc.setText(FormatDate(dia->date()).left(5));
        return;
    }
    tela_.program().MsgBox(u"Data Inválida!"_s);
    tela_.SetFocus(mskDtNasc);
}

} // namespace vorta

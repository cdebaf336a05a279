#include "shared/BlocoContatos.h"

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

QString MarcaForaDaLista(const QString& tipo, const QString& digitado) {
    return digitado.isEmpty() ? QString()
                              : u"%1 fora da lista: %2. Só o que está na lista é gravado."_s.arg(tipo, digitado);
}

BlocoContatos::BlocoContatos(TelaEdicao& tela, const RegrasContatos& regras)
    : cboTipoContato(&tela, "cboTipoContato"), txtNomeContato(&tela, "txtNomeContato"),
      txtFoneContato(&tela, "txtFoneContato"), txtEmailContato(&tela, "txtEmailContato"),
      mskDtNasc(&tela, regras.campoAniversario, u"##/##"_s),
      cmdIncluirContato(&tela, "cmdIncluirContato", u"Incluir"_s), Flex(&tela, "Flex"),
      lblContatoFora(&tela, "lblContatoFora"), tela_(tela), contexto_(tela.contexto()), regras_(regras) {
    lblContatoFora.setForeground(screen::colour::Red);
    PreparaGridContatos();
    for (Field* campo :
         std::initializer_list<Field*>{&cboTipoContato, &txtNomeContato, &txtFoneContato, &txtEmailContato})
        campo->enterMovesOn = true;
    cmdIncluirContato.Click = [this] { cmdIncluirContato_Click(); };
    (regras.duploClique ? Flex.DblClick : Flex.Click) = [this] { Flex_Toque(); };
    txtEmailContato.LostFocus = [this] { tela_.ConfereEmail(txtEmailContato); };
    if (regras.nomeEmMaiusculas)
        txtNomeContato.LostFocus = [this] { txtNomeContato.setText(UCase(txtNomeContato.text())); };
    if (regras.aniversario == ConfereAniversario::AoSair) {
        mskDtNasc.enterMovesOn = true;
        mskDtNasc.LostFocus = [this] { mskDtNasc_LostFocus(); };
    }
}

void BlocoContatos::PreparaGridContatos() {
    Flex.reset({{u"ID"_s, 0}, {u"Tipo"_s}, {u"Nome"_s}, {u"Fone"_s}, {u"E-Mail"_s}, {u"Aniver."_s}});
}

void BlocoContatos::LimpaEntrada() {
    for (Field* campo :
         std::initializer_list<Field*>{&cboTipoContato, &txtNomeContato, &txtFoneContato, &txtEmailContato})
        campo->setText({});
    LimpaMascara(mskDtNasc);
}

void BlocoContatos::MarcaForaDaLista() {
    QString digitado;
    for (const Field* campo :
         std::initializer_list<Field*>{&txtNomeContato, &txtFoneContato, &txtEmailContato, &cboTipoContato})
        if (digitado.isEmpty())
            digitado = Trim(campo->text());
    if (digitado.isEmpty() && mskDtNasc.text() != semAniversario)
        digitado = mskDtNasc.text();
    lblContatoFora.setText(vorta::MarcaForaDaLista(u"Contato"_s, digitado));
}

void BlocoContatos::ApagaMarca() {
    lblContatoFora.setText({});
}

void BlocoContatos::Bloqueia() {
    for (Field* campo :
         std::initializer_list<Field*>{&cboTipoContato, &txtNomeContato, &txtFoneContato, &txtEmailContato, &mskDtNasc})
        BloqueiaCampo(*campo);
}

void BlocoContatos::Libera() {
    for (Field* campo :
         std::initializer_list<Field*>{&cboTipoContato, &txtNomeContato, &txtFoneContato, &txtEmailContato, &mskDtNasc})
        LiberaCampo(*campo);
}

void BlocoContatos::Carrega(const QString& idDono) {
    PreparaGridContatos();
    Statement consulta("SELECT * From ");
    consulta << regras_.tabela.tabela << " Where " << regras_.chaveDono << "=" << idDono;
    for (Recordset registros = AbreLeitura(contexto_, consulta); !registros.Eof(); registros.MoveNext()) {
        QStringList celulas{QString()};
        for (const char* assunto : {"carg_", "nome_", "tele_", "emai_"})
            celulas << registros.Fields(NomeColuna(assunto, regras_.tabela)).textOr({});
        Flex.AddRow(celulas << FormatDayMonthText(registros.Fields("DATA_NASC").textOr({})));
    }
}

Statement BlocoContatos::MontaDeleteContatos(const QString& idDono) const {
    return Statement("DELETE FROM ") << regras_.tabela.tabela << " WHERE (" << regras_.chaveDono << "=" << idDono
                                     << ")";
}

Statement BlocoContatos::MontaInsertContato(const QString& idDono, int linha) const {
    const data::Piece tabela = regras_.tabela.tabela;
    const auto coluna = [&](data::Piece assunto) { return Statement(assunto) << tabela; };
    Insercao insercao(tabela);
    insercao.incluiChave(coluna("id"), ChaveDoGerador(contexto_, regras_.tabela.gerador));
    insercao.inclui(regras_.chaveDono, idDono);
    insercao.inclui(coluna("carg_"), Flex.cell(linha, Tipo));
    insercao.inclui(coluna("nome_"), Flex.cell(linha, Nome));
    if (const QString fone = Flex.cell(linha, Fone); !fone.isEmpty())
        insercao.inclui(coluna("tele_"), fone);
    if (const QString email = Flex.cell(linha, Email); !email.isEmpty())
        insercao.inclui(coluna("emai_"), email);
    if (const QString aniversario = Flex.cell(linha, Aniversario); aniversario != semAniversario)
        insercao.inclui("data_nasc", aniversario);
    return insercao.encerra(contexto_, regras_.dataComando);
}

bool BlocoContatos::AniversarioAceito() {
    QString aniversario = mskDtNasc.text();
    if (regras_.aniversario != ConfereAniversario::NaInclusao || ValidaDiaMes(contexto_, aniversario))
        return true;
    tela_.program().MsgBox(
        {u"Formato de Data Inválida!"_s, u"Data de Aniversário"_s, screen::Icon::Information, screen::Buttons::OK});
    tela_.SetFocus(mskDtNasc);
    return false;
}

void BlocoContatos::cmdIncluirContato_Click() {
    if (cboTipoContato.text().isEmpty() || txtNomeContato.text().isEmpty() || !AniversarioAceito())
        return;
    const QString aniversario = mskDtNasc.text();
    Flex.AddRow({{},
                 cboTipoContato.text(),
                 txtNomeContato.text(),
                 txtFoneContato.text(),
                 txtEmailContato.text(),
                 aniversario == semAniversario ? QString() : aniversario});
    LimpaEntrada();
    ApagaMarca();
    tela_.SetFocus(cboTipoContato);
}

void BlocoContatos::Flex_Toque() {
    const int linha = Flex.Row();
    if (linha == 0)
        return;
    if (tela_.EmEdicao())
        RetiraDaGrade(linha);
    else if (regras_.duploClique)
        AbreEmail(contexto_, Trim(Flex.cell(linha, Email)));
}

/// The contact leaves the grid and lives in the entry fields until it is included again.
void BlocoContatos::RetiraDaGrade(int linha) {
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

void BlocoContatos::mskDtNasc_LostFocus() {
    if (mskDtNasc.text() == semAniversario)
        return;
    const std::optional<QDateTime> dia = ParseDate(mskDtNasc.text() + u"/2001"_s);
    if (dia) {
        mskDtNasc.setText(FormatDate(dia->date()).left(5));
        return;
    }
    tela_.RecusaData(mskDtNasc);
}

} // namespace vorta

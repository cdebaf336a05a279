#include "desktop/Names.h"

#include "base/Literals.h"
#include "desktop/Letters.h"

#include <QLabel>
#include <QWidget>
#include <algorithm>
#include <array>

namespace vorta::desktop {

namespace {

struct Row {
    const char* screen; ///< empty for any
    const char* field;
    const char* name;
};

/// The first row that fits names the field.
constexpr std::array rows{
    Row{"frmPessoas", "mskCodigo", "CPF ou CNPJ"},
    Row{"frmPessoas", "txtIEstadual", "RG ou inscrição estadual"},
    Row{"frmPessoas", "txtDTDesativa", "Data Desativa"},
    Row{"frmPessoas", "SSTab2", "Páginas da pessoa"},
    Row{"frmPessoas", "SSTab1", "Endereços"},
    Row{"frmPessoas", "Flex", "Outros contatos"},
    Row{"frmPessoas", "FlexAtividades", "Ramos de atividade"},
    Row{"frmPessoas", "FlexHistClie", "Pedidos do cliente"},
    Row{"frmPessoas", "FlexHistClieII", "Orçamentos do cliente"},
    Row{"frmPessoas", "FlexHistClieIII", "Ordens de serviço do cliente"},
    Row{"frmPessoas", "FlexHistForn", "Compras ao fornecedor"},
    Row{"frmPessoas", "FlexHistFornDeta", "Itens comprados ao fornecedor"},
    Row{"frmPessoas", "cmdCEP", "CEP: pesquisar o endereço"},
    Row{"frmPessoas", "cmdCEP_Entg", "CEP: pesquisar o endereço de entrega"},
    Row{"frmPessoas", "cmdCEP_Cobr", "CEP: pesquisar o endereço de cobrança"},
    Row{"frmPessoas", "cmdAbrirOutlook", "Enviar e-mail"},
    Row{"frmPessoas", "cmdAbrirIExplorer", "Abrir a home page"},
    Row{"frmPessoas", "cmdIncluirContato", "Incluir o contato"},
    Row{"frmPessoas", "cmdIncluirAtividades", "Incluir o ramo de atividade"},
    Row{"frmBROWSE_PESSOAS", "Flex", "Pessoas encontradas"},
    Row{"frmBROWSE_CEPS", "Flex", "Endereços encontrados"},
    Row{"frmBROWSE_PRODUTO", "Flex", "Produtos encontrados"},
    Row{"frmBROWSE_PRODUTO", "Image1", "Imagem do produto"},
    Row{"frmBROWSE_PRODUTO", "cmdImagem1(0)", "Imagem 1"},
    Row{"frmBROWSE_PRODUTO", "cmdImagem1(1)", "Imagem 2"},
    Row{"frmBROWSE_PRODUTO", "cmdImagem1(2)", "Imagem 3"},
    Row{"frmBROWSE_PRODUTO", "cmdImagem1(3)", "Imagem 4"},
    Row{"", "lstLog", "Resultado da verificação"},
    Row{"", "Flex", "Contatos"},
    Row{"", "cmdIncluirContato", "Incluir o contato"},
};

/// What the label of a field says, without its colon and its letter.
QString labelText(const QWidget& widget) {
    const QLabel* label = LabelOf(widget);
    QString text = label ? label->text() : QString();
    text.remove(u'&');
    return text.endsWith(u':') ? text.chopped(1) : text;
}

} // namespace

void NameWidget(const QString& screen, const QString& field, QWidget& widget) {
    const auto* row = std::ranges::find_if(rows, [&](const Row& one) {
        return field == QLatin1StringView(one.field) && (!*one.screen || screen == QLatin1StringView(one.screen));
    });
    const QString name = row == rows.end() ? labelText(widget) : QString::fromUtf8(row->name);
    if (name.isEmpty())
        return;
    widget.setAccessibleName(name);
    // A label whose text changes may say nothing yet, and helpers ask it first.
    if (QLabel* label = row == rows.end() ? nullptr : LabelOf(widget))
        label->setAccessibleName(name);
}

} // namespace vorta::desktop

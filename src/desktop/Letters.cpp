#include "desktop/Letters.h"

#include "base/Literals.h"

#include <QAbstractButton>
#include <QLabel>
#include <QShortcut>
#include <QWidget>
#include <array>

namespace vorta::desktop {

namespace {

struct Row {
    const char* screen; ///< empty for all seven role screens
    const char* field;
    const char* keys;
};

/// Letters differ among all that can be seen at once; a page may use one that another page uses. The letters of the
/// operations stand in their captions. The roles have the same number everywhere.
constexpr std::array rows{
    Row{"frmPessoas", "txtRowID", "Alt+G"},
    Row{"frmPessoas", "txtCodPessExterno", "Alt+X"},
    Row{"frmPessoas", "cboFisJur", "Alt+T"},
    Row{"frmPessoas", "mskCodigo", "Alt+P"},
    Row{"frmPessoas", "txtDescricao", "Alt+N"},
    Row{"frmPessoas", "txtNomeFantasia", "Alt+H"},
    Row{"frmPessoas", "cmdClonarRazaoSocial", "Ctrl+R"},
    Row{"frmPessoas", "mskCEP", "Alt+C"},
    Row{"frmPessoas", "txtEndereco", "Alt+O"},
    Row{"frmPessoas", "txtNumero", "Alt+M"},
    Row{"frmPessoas", "txtBairro", "Alt+B"},
    Row{"frmPessoas", "cboUF", "Alt+U"},
    Row{"frmPessoas", "txtFone1", "Alt+E"},
    Row{"frmPessoas", "mskEnt_CEP", "Alt+C"},
    Row{"frmPessoas", "txtEnt_Endereco", "Alt+O"},
    Row{"frmPessoas", "txtEnt_Numero", "Alt+M"},
    Row{"frmPessoas", "txtEnt_Bairro", "Alt+B"},
    Row{"frmPessoas", "cboEnt_UF", "Alt+U"},
    Row{"frmPessoas", "mskCob_CEP", "Alt+C"},
    Row{"frmPessoas", "txtCob_Endereco", "Alt+O"},
    Row{"frmPessoas", "txtCob_Numero", "Alt+M"},
    Row{"frmPessoas", "txtCob_Bairro", "Alt+B"},
    Row{"frmPessoas", "cboCob_UF", "Alt+U"},
    Row{"frmPessoas", "txtPrinNomeContato", "Alt+B"},
    Row{"frmPessoas", "cboTipoContato", "Alt+O"},
    Row{"frmPessoas", "txtNomeContato", "Alt+M"},
    Row{"frmPessoas", "txtFoneContato", "Alt+E"},
    Row{"frmPessoas", "cmdIncluirContato", "Alt+C"},
    Row{"frmPessoas", "cboAtividades", "Alt+M"},
    Row{"frmPessoas", "cmdIncluirAtividades", "Alt+C"},
    Row{"frmPessoas", "txtOBSE_PESS_0001", "Alt+B"},
    Row{"frmPessoas", "txtOBSE_PESS_0002", "Alt+E"},
    Row{"frmPessoas", "txtOBSE_PESS_0003", "Alt+O"},
    Row{"frmPessoas", "txtIEstadual", "Alt+E"},
    Row{"frmPessoas", "txtIMunicipal", "Alt+M"},
    Row{"frmPessoas", "txtSubsTributario", "Alt+B"},
    Row{"frmPessoas", "cboStatusIntegraFISCO", "Alt+O"},
    Row{"frmPessoas", "txtVrTOP", "Alt+O"},
    Row{"frmPessoas", "opTopSobe", "Alt+M"},
    Row{"frmPessoas", "opTopDesce", "Alt+C"},
    Row{"frmPessoas", "cmdReprocessaHistClieI", "Alt+E"},
    Row{"frmPessoas", "cboProduto", "Alt+O"},
    Row{"frmPessoas", "cmdCliente", "Ctrl+1"},
    Row{"frmPessoas", "cmdFornecedor", "Ctrl+2"},
    Row{"frmPessoas", "cmdTransportadora", "Ctrl+3"},
    Row{"frmPessoas", "cmdVendedor", "Ctrl+4"},
    Row{"frmPessoas", "cmdMotorista", "Ctrl+5"},
    Row{"frmPessoas", "cmdDecorador", "Ctrl+6"},
    Row{"frmPessoas", "cmdArquiteto", "Ctrl+7"},

    Row{"frmBROWSE_PESSOAS", "cboCod", "Alt+T"},
    Row{"frmBROWSE_PESSOAS", "opNome", "Alt+N"},
    Row{"frmBROWSE_PESSOAS", "opFantasia", "Alt+F"},
    Row{"frmBROWSE_PESSOAS", "opCPFCNPJ", "Alt+C"},
    Row{"frmBROWSE_PESSOAS", "opCidade", "Alt+D"},
    Row{"frmBROWSE_PESSOAS", "opUF", "Alt+E"},
    Row{"frmBROWSE_PESSOAS", "opTelefone", "Alt+O"},
    Row{"frmBROWSE_PESSOAS", "opRamoAtividade", "Alt+R"},
    Row{"frmBROWSE_PESSOAS", "opCodInterno", "Alt+I"},
    Row{"frmBROWSE_PESSOAS", "opCodExterno", "Alt+X"},
    Row{"frmBROWSE_PESSOAS", "opQualquerParte", "Alt+Q"},
    Row{"frmBROWSE_PESSOAS", "opCampoInteiro", "Alt+A"},
    Row{"frmBROWSE_PESSOAS", "opInicialCom", "Alt+M"},
    Row{"frmBROWSE_PESSOAS", "chkVisualiza", "Alt+V"},
    Row{"frmBROWSE_PESSOAS", "opTodos", "Ctrl+0"},
    Row{"frmBROWSE_PESSOAS", "opCliente", "Ctrl+1"},
    Row{"frmBROWSE_PESSOAS", "opFornecedor", "Ctrl+2"},
    Row{"frmBROWSE_PESSOAS", "opTransportadora", "Ctrl+3"},
    Row{"frmBROWSE_PESSOAS", "opVendedor", "Ctrl+4"},
    Row{"frmBROWSE_PESSOAS", "opMotorista", "Ctrl+5"},
    Row{"frmBROWSE_PESSOAS", "opDecorador", "Ctrl+6"},
    Row{"frmBROWSE_PESSOAS", "opArquiteto", "Ctrl+7"},
    Row{"frmBROWSE_PESSOAS", "opProspect", "Ctrl+8"},

    Row{"frmBROWSE_CEPS", "txtCEP", "Alt+C"},
    Row{"frmBROWSE_CEPS", "txtEndereco", "Alt+L"},
    Row{"frmBROWSE_CEPS", "cboUF", "Alt+U"},
    Row{"frmBROWSE_CEPS", "cboCidade", "Alt+D"},

    Row{"frmBROWSE_PRODUTO", "txtCOD", "Alt+X"},
    Row{"frmBROWSE_PRODUTO", "Option1", "Alt+I"},
    Row{"frmBROWSE_PRODUTO", "Option2", "Alt+C"},
    Row{"frmBROWSE_PRODUTO", "Option3", "Alt+D"},
    Row{"frmBROWSE_PRODUTO", "Option4", "Alt+R"},
    Row{"frmBROWSE_PRODUTO", "opQQPosicao", "Alt+Q"},
    Row{"frmBROWSE_PRODUTO", "opExata", "Alt+E"},
    Row{"frmBROWSE_PRODUTO", "opInicialCom", "Alt+M"},
    Row{"frmBROWSE_PRODUTO", "chkVisualiza", "Alt+V"},
    Row{"frmBROWSE_PRODUTO", "cboTipoProd", "Alt+T"},
    Row{"frmBROWSE_PRODUTO", "cboCole", "Alt+O"},
    Row{"frmBROWSE_PRODUTO", "txtMaxReg", "Alt+G"},
    Row{"frmBROWSE_PRODUTO", "cmdImagem1(0)", "Ctrl+1"},
    Row{"frmBROWSE_PRODUTO", "cmdImagem1(1)", "Ctrl+2"},
    Row{"frmBROWSE_PRODUTO", "cmdImagem1(2)", "Ctrl+3"},
    Row{"frmBROWSE_PRODUTO", "cmdImagem1(3)", "Ctrl+4"},

    Row{"frmPESSOAS_INCL", "cboCod", "Alt+N"},
    Row{"frmPESSOAS_INCL", "mskCodigo", "Alt+P"},
    Row{"frmPESSOAS_INCL", "Option1", "Alt+J"},
    Row{"frmPESSOAS_INCL", "Option2", "Alt+F"},
    Row{"frmPESSOAS_INCL", "opNome", "Alt+R"},
    Row{"frmPESSOAS_INCL", "opFantasia", "Alt+H"},
    Row{"frmPESSOAS_INCL", "cmdPesquisa", "Alt+V"},
    Row{"frmPESSOAS_INCL", "Command1", "Alt+C"},

    Row{"frmInfoPess", "cmdEspecialMun", "Alt+E"},

    Row{"frmCliente", "txtLimiCred", "Alt+L"},
    Row{"frmCliente", "cboTipoCli", "Alt+C"},
    Row{"frmCliente", "cboTransportadora", "Alt+P"},
    Row{"frmCliente", "txtLimeMaxiConh", "Alt+H"},
    Row{"frmCliente", "cboRegimeEspecialICMS", "Alt+G"},
    Row{"frmFornecedor", "mskDtCredencial", "Alt+C"},
    Row{"frmFornecedor", "txtLimiCred", "Alt+L"},
    Row{"frmFornecedor", "txtDescontoFornecedor", "Alt+O"},
    Row{"frmTransportadora", "mskDtCredencial", "Alt+C"},
    Row{"frmMotorista", "mskDtAdmissao", "Alt+M"},
    Row{"frmMotorista", "txtCNH", "Alt+C"},
    Row{"frmMotorista", "txtProntuario", "Alt+P"},
    Row{"frmMotorista", "cboUF_Emitente", "Alt+U"},
    Row{"frmMotorista", "txtPai0Moto", "Alt+N"},
    Row{"frmMotorista", "txtMae0Moto", "Alt+E"},
    Row{"frmMotorista", "txtRefeMoto", "Alt+F"},
    Row{"frmVendedor", "mskDtAdmissao", "Alt+M"},
    Row{"frmVendedor", "txtSalFixo", "Alt+X"},
    Row{"frmVendedor", "txtPercPool", "Alt+L"},
    Row{"frmVendedor", "txtPercIndi", "Alt+P"},
    Row{"frmArquiteto", "mskDtAdmissao", "Alt+M"},
    Row{"frmArquiteto", "txtSalFixo", "Alt+X"},
    Row{"frmArquiteto", "txtPercPool", "Alt+L"},
    Row{"frmArquiteto", "txtPercIndi", "Alt+P"},
    Row{"frmArquiteto", "txtCREA", "Alt+C"},
    Row{"frmArquiteto", "cboBancoCartao", "Alt+B"},
    Row{"frmArquiteto", "txtBancAgen", "Alt+G"},
    Row{"frmArquiteto", "txtBancCont", "Alt+O"},
    Row{"frmDecorador", "mskDtAdmissao", "Alt+M"},
    Row{"frmDecorador", "txtSalFixo", "Alt+X"},
    Row{"frmDecorador", "txtPercPool", "Alt+L"},
    Row{"frmDecorador", "txtPercIndi", "Alt+P"},
    Row{"frmDecorador", "txtADD", "Alt+B"},
    Row{"frmDecorador", "cboBancoCartao", "Alt+C"},
    Row{"frmDecorador", "txtBancAgen", "Alt+G"},
    Row{"frmDecorador", "txtBancCont", "Alt+O"},
    Row{"", "cboTipoContato", "Alt+T"},
    Row{"", "txtNomeContato", "Alt+N"},
    Row{"", "txtFoneContato", "Alt+F"},
    Row{"", "txtEmailContato", "Alt+E"},
    Row{"", "cmdIncluirContato", "Alt+U"},
    Row{"", "chkVisualiza", "Alt+Z"},
};

bool isRoleScreen(const QString& screen) {
    return !screen.startsWith(u"frmBROWSE") && !screen.startsWith(u"frmP", Qt::CaseInsensitive) &&
           screen != u"frmInfoPess";
}

/// The letter of keys like "Alt+G"; null for others.
QChar letterOf(const QString& keys) {
    return keys.size() == 5 && keys.startsWith(u"Alt+") ? keys.back() : QChar();
}

} // namespace

QList<FieldKey> FieldKeys(const QString& screen) {
    QList<FieldKey> found;
    for (const Row& row : rows)
        if (screen == QLatin1StringView(row.screen) || (!*row.screen && isRoleScreen(screen)))
            found += {QString::fromLatin1(row.field), QString::fromLatin1(row.keys)};
    return found;
}

QString MarkedText(const QString& text, QChar letter) {
    const qsizetype at = text.indexOf(letter, 0, Qt::CaseInsensitive);
    return at < 0 || text.contains(u'&') ? text : text.left(at) + u'&' + text.mid(at);
}

QLabel* LabelOf(const QWidget& widget) {
    for (QLabel* label : widget.parentWidget()->findChildren<QLabel*>(Qt::FindDirectChildrenOnly))
        if (label->buddy() == &widget)
            return label;
    return nullptr;
}

std::function<void()> ActOfKeys(const QWidget& window, const QKeySequence& keys) {
    const auto isReached = [](const QWidget* widget) { return widget && widget->isVisible() && widget->isEnabled(); };
    for (QShortcut* shortcut : window.findChildren<QShortcut*>())
        if (shortcut->key() == keys && isReached(qobject_cast<QWidget*>(shortcut->parent())))
            return [shortcut] { Q_EMIT shortcut->activated(); };
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->shortcut() == keys && isReached(button))
            return [button] { button->animateClick(); };
    for (QLabel* label : window.findChildren<QLabel*>())
        if (label->isVisible() && isReached(label->buddy()) && QKeySequence::mnemonic(label->text()) == keys)
            return [label] { label->buddy()->setFocus(Qt::ShortcutFocusReason); };
    return {};
}

bool MarkWidget(QWidget& widget, const QString& keys) {
    const QChar letter = letterOf(keys);
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        if (!letter.isNull())
            button->setProperty(letterProperty, QString(letter));
        button->setShortcut(QKeySequence(keys));
        return true;
    }
    QLabel* label = letter.isNull() ? nullptr : LabelOf(widget);
    if (!label || !label->text().contains(letter, Qt::CaseInsensitive))
        return false;
    label->setText(MarkedText(label->text(), letter));
    return true;
}

} // namespace vorta::desktop

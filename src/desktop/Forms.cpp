#include "desktop/Forms.h"

#include "base/RuntimeError.h"
#include "ui_frmArquiteto.h"
#include "ui_frmBROWSE_CEPS.h"
#include "ui_frmBROWSE_PESSOAS.h"
#include "ui_frmBROWSE_PRODUTO.h"
#include "ui_frmCliente.h"
#include "ui_frmDecorador.h"
#include "ui_frmFornecedor.h"
#include "ui_frmInfoPess.h"
#include "ui_frmMotorista.h"
#include "ui_frmPESSOAS_INCL.h"
#include "ui_frmPessoas.h"
#include "ui_frmTransportadora.h"
#include "ui_frmVendedor.h"

#include <algorithm>
#include <array>

namespace vorta::desktop {

namespace {

struct Form {
    const char* name;
    void (*setUp)(QWidget&);
};

template <typename Ui>
void setUp(QWidget& widget) {
    Ui().setupUi(&widget);
}

constexpr std::array forms{
    Form{"frmPessoas", setUp<Ui::frmPessoas>},
    Form{"frmBROWSE_PESSOAS", setUp<Ui::frmBROWSE_PESSOAS>},
    Form{"frmPESSOAS_INCL", setUp<Ui::frmPESSOAS_INCL>},
    Form{"frmBROWSE_CEPS", setUp<Ui::frmBROWSE_CEPS>},
    Form{"frmBROWSE_PRODUTO", setUp<Ui::frmBROWSE_PRODUTO>},
    Form{"frmInfoPess", setUp<Ui::frmInfoPess>},
    Form{"frmCliente", setUp<Ui::frmCliente>},
    Form{"frmFornecedor", setUp<Ui::frmFornecedor>},
    Form{"frmTransportadora", setUp<Ui::frmTransportadora>},
    Form{"frmMotorista", setUp<Ui::frmMotorista>},
    Form{"frmVendedor", setUp<Ui::frmVendedor>},
    Form{"frmArquiteto", setUp<Ui::frmArquiteto>},
    Form{"frmDecorador", setUp<Ui::frmDecorador>},
};

} // namespace

QStringList FormNames() {
    QStringList names;
    for (const Form& form : forms)
        names += QLatin1String(form.name);
    return names;
}

void SetUpForm(const QString& name, QWidget& widget) {
    const auto found = std::ranges::find_if(forms, [&](const Form& form) { return name == QLatin1String(form.name); });
    if (found == forms.end())
        throw RuntimeError(errorNumber::ObjectNotSet, QStringLiteral("A tela %1 não tem janela").arg(name));
    found->setUp(widget);
}

QString WidgetName(const QString& field) {
    QString name = field;
    return name.replace(u'(', u'_').remove(u')');
}

} // namespace vorta::desktop

#include "desktop/Forms.h"

#include "base/Literals.h"
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
#include "ui_paginaContatos.h"
#include "ui_paginaEnderecoDeCobranca.h"
#include "ui_paginaEnderecoDeEntrega.h"
#include "ui_paginaFiscal.h"
#include "ui_paginaHistClienteI.h"
#include "ui_paginaHistClienteIi.h"
#include "ui_paginaHistClienteOs.h"
#include "ui_paginaHistFornI.h"
#include "ui_paginaHistFornIi.h"
#include "ui_paginaObs.h"
#include "ui_paginaRamoAtiv.h"

#include <QWidget>
#include <algorithm>
#include <array>
#include <span>

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

/// Pages in files of their own, by the name of the widget that their form keeps for them: a start makes only what is
/// seen.
constexpr std::array pages{
    Form{"paginaEnderecoDeEntrega", setUp<Ui::paginaEnderecoDeEntrega>},
    Form{"paginaEnderecoDeCobranca", setUp<Ui::paginaEnderecoDeCobranca>},
    Form{"paginaContatos", setUp<Ui::paginaContatos>},
    Form{"paginaRamoAtiv", setUp<Ui::paginaRamoAtiv>},
    Form{"paginaObs", setUp<Ui::paginaObs>},
    Form{"paginaFiscal", setUp<Ui::paginaFiscal>},
    Form{"paginaHistClienteI", setUp<Ui::paginaHistClienteI>},
    Form{"paginaHistClienteIi", setUp<Ui::paginaHistClienteIi>},
    Form{"paginaHistClienteOs", setUp<Ui::paginaHistClienteOs>},
    Form{"paginaHistFornI", setUp<Ui::paginaHistFornI>},
    Form{"paginaHistFornIi", setUp<Ui::paginaHistFornIi>},
};

const Form* find(std::span<const Form> among, const QString& name) {
    const auto found = std::ranges::find_if(among, [&](const Form& form) { return name == QLatin1String(form.name); });
    return found == among.end() ? nullptr : &*found;
}

} // namespace

QStringList FormNames() {
    QStringList names;
    for (const Form& form : forms)
        names += QLatin1String(form.name);
    return names;
}

void SetUpForm(const QString& name, QWidget& widget) {
    const Form* form = find(forms, name);
    if (!form)
        throw RuntimeError(errorNumber::ObjectNotSet, u"A tela %1 não tem janela"_s.arg(name));
    form->setUp(widget);
}

bool SetUpPage(QWidget& page) {
    const Form* form = page.layout() ? nullptr : find(pages, page.objectName());
    if (form)
        form->setUp(page);
    return form;
}

QString WidgetName(const QString& field) {
    QString name = field;
    return name.replace(u'(', u'_').remove(u')');
}

} // namespace vorta::desktop

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "person/frmPessoas.h"
#include "shared/TextoEntrada.h"

#include <algorithm>

namespace vorta {

namespace {

using screen::Field;
using screen::FieldKind;

bool recebeTexto(const Field& campo) {
    return campo.kind() == FieldKind::Text || campo.kind() == FieldKind::List || campo.kind() == FieldKind::Masked;
}

template <typename Acao>
void ParaCada(const std::vector<CampoLigado>& campos, Familia familia, Acao acao) {
    for (const CampoLigado& ligado : campos)
        if (ligado.linha->e(familia))
            acao(*ligado.campo);
}

void Trava(Field& campo) {
    if (campo.kind() == FieldKind::Button)
        campo.setEnabled(false);
    else
        BloqueiaCampo(campo);
}

void Destrava(Field& campo) {
    if (campo.kind() == FieldKind::Button)
        campo.setEnabled(true);
    else
        LiberaCampo(campo);
}

} // namespace

std::vector<CampoLigado> LigaCampos(const screen::Screen& tela) {
    std::vector<CampoLigado> ligados;
    for (const CampoPessoa& linha : CamposPessoa())
        ligados.push_back({&linha, &tela.field(QString::fromLatin1(linha.nome))});
    for (const Field* campo : tela.fields())
        if (recebeTexto(*campo) && std::ranges::find(ligados, campo, &CampoLigado::campo) == ligados.end())
            throw RuntimeError(errorNumber::NoSuchMember,
                               u"O campo %1 da tela %2 não tem linha"_s.arg(campo->name(), tela.name()));
    return ligados;
}

/// Where the tab pages begin in the order of the fields. A page reaches to the beginning of the next one, so that a
/// field stands on the page among whose fields it is declared.
void frmPessoas::ColocaPaginas() {
    struct Inicio {
        const Field* primeiro;
        screen::TabStrip* abas; ///< none: from here on the screen itself
        QString pagina;
    };
    const Inicio inicios[]{
        {&SSTab1, &SSTab2, u"Geral"_s},
        {&mskCEP, &SSTab1, u"Endereço"_s},
        {&cmdEndComl1, &SSTab1, u"Endereço de Entrega"_s},
        {&cmdEndComl2, &SSTab1, u"Endereço de Cobrança"_s},
        {&txtFone1, &SSTab2, u"Geral"_s},
        {&txtPrinNomeContato, &SSTab2, u"Contatos"_s},
        {&cboAtividades, &SSTab2, u"Ramo Ativ."_s},
        {&txtOBSE_PESS_0001, &SSTab2, u"Obs."_s},
        {&lblIE_RG, &SSTab2, u"Fiscal"_s},
        {&txtVrTOP, &SSTab2, u"Hist Cliente I"_s},
        {&FlexHistClieII, &SSTab2, u"Hist.Cliente II"_s},
        {&FlexHistClieIII, &SSTab2, u"Hist.Cliente OS"_s},
        {&FlexHistForn, &SSTab2, u"Hist.Forn.I"_s},
        {&cboProduto, &SSTab2, u"Hist.Forn.II"_s},
        {&cmdCliente, nullptr, {}},
    };
    const Inicio* atual = nullptr;
    for (Field* campo : fields()) {
        const Inicio* comeca = std::ranges::find(inicios, campo, &Inicio::primeiro);
        if (comeca != std::end(inicios))
            atual = comeca;
        if (atual && atual->abas)
            atual->abas->place(atual->pagina, {campo});
    }
}

void frmPessoas::LigaFamilias() {
    for (const auto& [linha, campo] : campos_) {
        campo->enterMovesOn = recebeTexto(*campo) && !linha->e(SemEnter);
        campo->apostropheBecomesAcute = linha->e(Acento);
        campo->selectsOnFocus = linha->e(Seleciona);
        campo->capacity = linha->capacidade;
    }
    contatos.cmdIncluirContato.enterMovesOn = true;
    for (Field* nota : {&txtOBSE_PESS_0001, &txtOBSE_PESS_0002, &txtOBSE_PESS_0003})
        nota->keepsLines = true;
    for (screen::ListField* lista : {&cboFisJur, &cboUF, &cboEnt_UF, &cboCob_UF, &cboTabelaPrecos})
        lista->completes = true;
}

void frmPessoas::AplicaTamanhosCampos() {
    for (const auto& [linha, campo] : campos_)
        if (linha->tamanho > 0)
            campo->setMaxLength(linha->tamanho);
}

void frmPessoas::AplicaDicasCampos() {
    for (const auto& [linha, campo] : campos_)
        campo->setToolTip(QString::fromUtf8(linha->dica));
}

void frmPessoas::EsvaziaCampos() {
    ParaCada(campos_, Limpa, [](Field& campo) {
        if (auto* mascara = dynamic_cast<screen::MaskedField*>(&campo))
            LimpaMascara(*mascara);
        else
            campo.setText({});
    });
}

void frmPessoas::BloqueiaCampos() {
    LiberaCampo(txtRowID);
    LiberaCampo(txtCodPessExterno);
    ParaCada(campos_, SoNaEdicao, Trava);
    ParaCada(campos_, SempreTravado, BloqueiaCampo);
}

void frmPessoas::LiberaCampos() {
    LiberaCampo(txtCodPessExterno);
    ParaCada(campos_, SoNaEdicao, Destrava);
    ParaCada(campos_, SempreTravado, BloqueiaCampo);
}

} // namespace vorta

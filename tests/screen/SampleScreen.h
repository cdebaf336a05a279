#pragma once

#include "base/Literals.h"
#include "screen/Screen.h"
#include "support/World.h"

namespace vorta::test {

using namespace screen;

/// A screen with one field of every kind, in this tab order, that writes down its events.
struct SampleScreen : Screen {
    explicit SampleScreen(Program& program, const QString& name = u"frmAmostra"_s) : Screen(program, name) {
        tab.place(u"&Dados"_s, {&txtNome, &mskCEP, &cboCidade});
        tab.place(u"&Outros"_s, {&opSim, &opNao, &chkAtivo, &grade});
        for (Field* field : fields()) {
            field->GotFocus = [this, field] { log(u"got "_s, *field); };
            field->LostFocus = [this, field] { log(u"lost "_s, *field); };
            field->Click = [this, field] { log(u"click "_s, *field); };
            field->DblClick = [this, field] { log(u"double "_s, *field); };
            field->DropDown = [this, field] { log(u"drop "_s, *field); };
        }
    }
    void log(const QString& what, const Field& field) { events += what + field.name(); }
    void Load() override { events += u"load"_s; }
    void QueryUnload() override { events += u"unload"_s; }

    QStringList events;
    Label lblTitulo{this, "lblTitulo", u"Título"_s};
    TabStrip tab{this, "tabFicha", {u"&Dados"_s, u"&Outros"_s}};
    TextField txtNome{this, "txtNome"};
    MaskedField mskCEP{this, "mskCEP", u"#####-###"_s};
    ListField cboCidade{this, "cboCidade"};
    Option opSim{this, "opSim", u"Sim"_s, "resposta"};
    Option opNao{this, "opNao", u"Não"_s, "resposta", true};
    Check chkAtivo{this, "chkAtivo", u"Ativo"_s};
    Grid grade{this, "FlexLista"};
    Picture imgFoto{this, "imgFoto"};
    Button cmdSalvar{this, "cmdSALVAR", u"&Salvar"_s};
};

struct SampleWorld : World {
    SampleScreen tela{program};
};

} // namespace vorta::test

#pragma once

#include "screen/Program.h"
#include "screen/Screen.h"
#include "screen/User.h"
#include "support/World.h"

namespace vorta::test {

using namespace screen;

/// A screen with one field of every kind, in this tab order, that writes down its events.
struct SampleScreen : Screen {
    explicit SampleScreen(Program& program, const QString& name = QStringLiteral("frmAmostra"))
        : Screen(program, name) {
        tab.place(QStringLiteral("&Dados"), {&txtNome, &mskCEP, &cboCidade});
        tab.place(QStringLiteral("&Outros"), {&opSim, &opNao, &chkAtivo, &grade});
        for (Field* field : fields()) {
            field->GotFocus = [this, field] { log(u"got "_qs, *field); };
            field->LostFocus = [this, field] { log(u"lost "_qs, *field); };
            field->Click = [this, field] { log(u"click "_qs, *field); };
            field->DblClick = [this, field] { log(u"double "_qs, *field); };
            field->DropDown = [this, field] { log(u"drop "_qs, *field); };
        }
    }
    void log(const QString& what, const Field& field) { events += what + field.name(); }
    void Load() override { events += u"load"_qs; }
    void QueryUnload() override { events += u"unload"_qs; }

    QStringList events;
    Label lblTitulo{this, "lblTitulo", QStringLiteral("Título")};
    TabStrip tab{this, "tabFicha", {QStringLiteral("&Dados"), QStringLiteral("&Outros")}};
    TextField txtNome{this, "txtNome"};
    MaskedField mskCEP{this, "mskCEP", QStringLiteral("#####-###")};
    ListField cboCidade{this, "cboCidade"};
    Option opSim{this, "opSim", QStringLiteral("Sim"), "resposta"};
    Option opNao{this, "opNao", QStringLiteral("Não"), "resposta", true};
    Check chkAtivo{this, "chkAtivo", QStringLiteral("Ativo")};
    Grid grade{this, "FlexLista"};
    Picture imgFoto{this, "imgFoto"};
    Button cmdSalvar{this, "cmdSALVAR", QStringLiteral("&Salvar")};
};

struct SampleWorld {
    TestPlatform platform;
    Program program{platform};
    User user{program};
    SampleScreen tela{program};
};

} // namespace vorta::test

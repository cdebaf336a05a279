#include "SampleScreen.h"
#include "base/Literals.h"

using namespace vorta;
using namespace vorta::test;

TEST(User, TypesOverTheOldText) {
    SampleWorld world;
    world.tela.txtNome.setText(u"VELHO"_s);
    world.user.type(world.tela.txtNome, u"Nova é"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"Nova é"_s);
    world.user.type(world.tela.txtNome, {});
    EXPECT_EQ(world.tela.txtNome.text(), QString());
    world.user.type(world.tela.cboCidade, u"San"_s);
    EXPECT_EQ(world.tela.cboCidade.text(), u"San"_s);
}

TEST(User, LockedAndFullFieldsTakeNoMore) {
    SampleWorld world;
    world.tela.txtNome.setText(u"FICA"_s);
    world.tela.txtNome.setLocked(true);
    world.user.type(world.tela.txtNome, u"x"_s);
    world.user.key(world.tela.txtNome, Key::Delete);
    EXPECT_EQ(world.tela.txtNome.text(), u"FICA"_s);
    world.tela.txtNome.setLocked(false);
    world.tela.txtNome.setMaxLength(3);
    world.user.type(world.tela.txtNome, u"ABCDE"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"ABC"_s);
    world.tela.txtNome.setEnabled(false);
    world.user.type(world.tela.txtNome, u"x"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"ABC"_s);
}

TEST(User, ErasesBeforeAndBehindTheCursor) {
    SampleWorld world;
    world.user.type(world.tela.txtNome, u"ABCD"_s);
    world.user.key(world.tela.txtNome, Key::Backspace);
    EXPECT_EQ(world.tela.txtNome.text(), u"ABC"_s);
    world.tela.txtNome.select(0, 0);
    world.user.key(world.tela.txtNome, Key::Backspace);
    world.user.key(world.tela.txtNome, Key::Delete);
    EXPECT_EQ(world.tela.txtNome.text(), u"BC"_s);
    world.tela.txtNome.select(0, 2);
    world.user.key(world.tela.txtNome, Key::Backspace);
    EXPECT_EQ(world.tela.txtNome.text(), QString());
}

TEST(User, KeyPressMaySwallowOrReplaceACharacter) {
    SampleWorld world;
    world.tela.txtNome.KeyPress = [](int& code) {
        if (code == 'x')
            code = 0;
        else if (code == 'a')
            code = 'A';
    };
    world.user.type(world.tela.txtNome, u"axb"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"Ab"_s);
    world.tela.txtNome.KeyPress = [](int& code) { code = code == 8 ? 0 : code; };
    world.user.key(world.tela.txtNome, Key::Backspace);
    EXPECT_EQ(world.tela.txtNome.text(), u"Ab"_s);
}

TEST(User, AnApostropheBecomesAnAcuteWhereTheFieldAsksForIt) {
    SampleWorld world;
    world.user.type(world.tela.txtNome, u"D'AVILA"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"D'AVILA"_s);
    world.tela.txtNome.apostropheBecomesAcute = true;
    world.user.type(world.tela.txtNome, u"D'AVILA"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"D´AVILA"_s);
}

TEST(User, CharactersThatTheDataCannotHoldAreKeptOut) {
    SampleWorld world;
    world.user.type(world.tela.txtNome, u"a日b€"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"ab€"_s);
    world.user.edited(world.tela.txtNome, u"colado 日 aqui"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"colado  aqui"_s);
}

TEST(User, EnterMovesOnWhereTheFieldAsksForIt) {
    SampleWorld world;
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) {
        world.user.focus(world.tela.txtNome);
        world.user.key(world.tela.txtNome, Key::Enter);
        EXPECT_EQ(world.tela.focus(), &world.tela.txtNome);
        world.tela.txtNome.enterMovesOn = true;
        world.user.key(world.tela.txtNome, Key::Enter);
        EXPECT_EQ(world.tela.focus(), &world.tela.mskCEP);
    });
    EXPECT_TRUE(world.program.dispatch([&] { world.program.ShowModal(world.tela); }));
    EXPECT_EQ(world.platform.shown.size(), 1);
}

TEST(User, EnterOnAButtonClicksIt) {
    SampleWorld world;
    world.user.focus(world.tela.cmdSalvar);
    world.user.key(world.tela.cmdSalvar, Key::Enter);
    EXPECT_EQ(world.tela.events.last(), u"click cmdSALVAR"_s);
    world.user.character(world.tela.cmdSalvar, u' ');
    EXPECT_EQ(world.tela.events.count(u"click cmdSALVAR"_s), 2);
}

TEST(User, EscapeReachesTheKeyPress) {
    SampleWorld world;
    std::vector<int> codes;
    world.tela.grade.KeyPress = [&](int& code) { codes.push_back(code); };
    world.user.focus(world.tela.grade);
    world.user.key(world.tela.grade, Key::Escape);
    world.user.key(world.tela.grade, Key::Enter);
    EXPECT_EQ(codes, std::vector({27, 13}));
}

TEST(User, ClicksButtonsOptionsChecksAndLabels) {
    SampleWorld world;
    world.user.click(world.tela.opSim);
    EXPECT_TRUE(world.tela.opSim.value());
    world.user.click(world.tela.chkAtivo);
    EXPECT_TRUE(world.tela.chkAtivo.checked());
    world.user.click(world.tela.lblTitulo);
    EXPECT_EQ(world.tela.focus(), &world.tela.chkAtivo) << "a label takes no focus";
    EXPECT_EQ(world.tela.events.filter(u"click"_s),
              QStringList({u"click opSim"_s, u"click chkAtivo"_s, u"click lblTitulo"_s}));
    world.tela.cmdSalvar.setEnabled(false);
    world.user.click(world.tela.cmdSalvar);
    world.tela.lblTitulo.setVisible(false);
    world.user.click(world.tela.lblTitulo);
    EXPECT_EQ(world.tela.events.filter(u"click"_s).size(), 3);
    world.user.doubleClick(world.tela.txtNome);
    EXPECT_EQ(world.tela.events.last(), u"double txtNome"_s);
}

TEST(User, PicksFromAListThatHasBeenDroppedDown) {
    SampleWorld world;
    world.tela.cboCidade.DropDown = [&] { world.tela.cboCidade.addItem(u"SANTOS"_s); };
    world.user.dropDown(world.tela.cboCidade);
    world.user.pick(world.tela.cboCidade, 0);
    EXPECT_EQ(world.tela.cboCidade.text(), u"SANTOS"_s);
    world.tela.cboCidade.setLocked(true);
    world.tela.cboCidade.setText(u"OUTRA"_s);
    world.user.pick(world.tela.cboCidade, 0);
    EXPECT_EQ(world.tela.cboCidade.text(), u"OUTRA"_s);
}

TEST(User, DropsALockedListDownWithoutHarmToItsText) {
    SampleWorld world;
    world.tela.cboCidade.setText(u"OUTRA"_s);
    world.tela.cboCidade.DropDown = [&] {
        world.tela.cboCidade.clear();
        world.tela.cboCidade.addItem(u"SANTOS"_s);
    };
    world.tela.cboCidade.setLocked(true);
    world.user.dropDown(world.tela.cboCidade);
    EXPECT_EQ(world.tela.cboCidade.items(), QStringList{u"SANTOS"_s});
    EXPECT_EQ(world.tela.cboCidade.text(), u"OUTRA"_s);
    world.tela.cboCidade.setLocked(false);
    world.user.dropDown(world.tela.cboCidade);
    EXPECT_EQ(world.tela.cboCidade.text(), QString());
}

TEST(User, ReachesATextByTheKeyboardWithAllOfItSelected) {
    SampleWorld world;
    world.tela.txtNome.setText(u"VELHO"_s);
    world.user.focus(world.tela.mskCEP);
    world.user.key(world.tela.mskCEP, Key::BackTab);
    EXPECT_EQ(world.tela.txtNome.selectionLength(), 5);
    world.user.character(world.tela.txtNome, u'N');
    EXPECT_EQ(world.tela.txtNome.text(), u"N"_s);
}

TEST(User, EnterChoosesTheRowOfAGrid) {
    SampleWorld world;
    world.tela.grade.reset({{u"Nome"_s}});
    world.tela.grade.AddItem(u"A"_s);
    world.user.focus(world.tela.grade);
    world.tela.events.clear();
    world.user.key(world.tela.grade, Key::Enter);
    world.tela.grade.setRow(0);
    world.user.key(world.tela.grade, Key::Enter);
    world.tela.grade.setRow(1);
    world.tela.grade.DblClick = {};
    world.user.key(world.tela.grade, Key::Enter);
    EXPECT_EQ(world.tela.events, QStringList({u"double FlexLista"_s, u"click FlexLista"_s}));
}

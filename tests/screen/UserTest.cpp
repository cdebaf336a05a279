#include "SampleScreen.h"

using namespace vorta;
using namespace vorta::test;

TEST(User, TypesOverTheOldText) {
    SampleWorld world;
    world.tela.txtNome.setText(u"VELHO"_qs);
    world.user.type(world.tela.txtNome, u"Nova é"_qs);
    EXPECT_EQ(world.tela.txtNome.text(), u"Nova é"_qs);
    world.user.type(world.tela.txtNome, {});
    EXPECT_EQ(world.tela.txtNome.text(), QString());
    world.user.type(world.tela.cboCidade, u"San"_qs);
    EXPECT_EQ(world.tela.cboCidade.text(), u"San"_qs);
}

TEST(User, LockedAndFullFieldsTakeNoMore) {
    SampleWorld world;
    world.tela.txtNome.setText(u"FICA"_qs);
    world.tela.txtNome.setLocked(true);
    world.user.type(world.tela.txtNome, u"x"_qs);
    world.user.key(world.tela.txtNome, Key::Delete);
    EXPECT_EQ(world.tela.txtNome.text(), u"FICA"_qs);
    world.tela.txtNome.setLocked(false);
    world.tela.txtNome.setMaxLength(3);
    world.user.type(world.tela.txtNome, u"ABCDE"_qs);
    EXPECT_EQ(world.tela.txtNome.text(), u"ABC"_qs);
    world.tela.txtNome.setEnabled(false);
    world.user.type(world.tela.txtNome, u"x"_qs);
    EXPECT_EQ(world.tela.txtNome.text(), u"ABC"_qs);
}

TEST(User, ErasesBeforeAndBehindTheCursor) {
    SampleWorld world;
    world.user.type(world.tela.txtNome, u"ABCD"_qs);
    world.user.key(world.tela.txtNome, Key::Backspace);
    EXPECT_EQ(world.tela.txtNome.text(), u"ABC"_qs);
    world.tela.txtNome.select(0, 0);
    world.user.key(world.tela.txtNome, Key::Backspace);
    world.user.key(world.tela.txtNome, Key::Delete);
    EXPECT_EQ(world.tela.txtNome.text(), u"BC"_qs);
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
    world.user.type(world.tela.txtNome, u"axb"_qs);
    EXPECT_EQ(world.tela.txtNome.text(), u"Ab"_qs);
    world.tela.txtNome.KeyPress = [](int& code) { code = code == 8 ? 0 : code; };
    world.user.key(world.tela.txtNome, Key::Backspace);
    EXPECT_EQ(world.tela.txtNome.text(), u"Ab"_qs);
}

TEST(User, AnApostropheBecomesAnAcuteWhereTheFieldAsksForIt) {
    SampleWorld world;
    world.user.type(world.tela.txtNome, u"D'AVILA"_qs);
    EXPECT_EQ(world.tela.txtNome.text(), u"D'AVILA"_qs);
    world.tela.txtNome.apostropheBecomesAcute = true;
    world.user.type(world.tela.txtNome, u"D'AVILA"_qs);
    EXPECT_EQ(world.tela.txtNome.text(), u"D´AVILA"_qs);
}

TEST(User, CharactersThatTheDataCannotHoldAreKeptOut) {
    SampleWorld world;
    world.user.type(world.tela.txtNome, u"a日b€"_qs);
    EXPECT_EQ(world.tela.txtNome.text(), u"ab€"_qs);
    world.user.edited(world.tela.txtNome, u"colado 日 aqui"_qs);
    EXPECT_EQ(world.tela.txtNome.text(), u"colado  aqui"_qs);
}

TEST(User, EnterMovesOnWhereTheFieldAsksForIt) {
    SampleWorld world;
    world.platform.whenShown(u"frmAmostra"_qs, [&](Screen&) {
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
    EXPECT_EQ(world.tela.events.last(), u"click cmdSALVAR"_qs);
    world.user.character(world.tela.cmdSalvar, u' ');
    EXPECT_EQ(world.tela.events.count(u"click cmdSALVAR"_qs), 2);
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
    EXPECT_EQ(world.tela.events.filter(u"click"_qs),
              QStringList({u"click opSim"_qs, u"click chkAtivo"_qs, u"click lblTitulo"_qs}));
    world.tela.cmdSalvar.setEnabled(false);
    world.user.click(world.tela.cmdSalvar);
    world.tela.lblTitulo.setVisible(false);
    world.user.click(world.tela.lblTitulo);
    EXPECT_EQ(world.tela.events.filter(u"click"_qs).size(), 3);
    world.user.doubleClick(world.tela.txtNome);
    EXPECT_EQ(world.tela.events.last(), u"double txtNome"_qs);
}

TEST(User, PicksFromAListThatHasBeenDroppedDown) {
    SampleWorld world;
    world.tela.cboCidade.DropDown = [&] { world.tela.cboCidade.addItem(u"SANTOS"_qs); };
    world.user.dropDown(world.tela.cboCidade);
    world.user.pick(world.tela.cboCidade, 0);
    EXPECT_EQ(world.tela.cboCidade.text(), u"SANTOS"_qs);
    world.tela.cboCidade.setLocked(true);
    world.tela.cboCidade.setText(u"OUTRA"_qs);
    world.user.pick(world.tela.cboCidade, 0);
    EXPECT_EQ(world.tela.cboCidade.text(), u"OUTRA"_qs);
}

TEST(User, DropsALockedListDownWithoutHarmToItsText) {
    SampleWorld world;
    world.tela.cboCidade.setText(u"OUTRA"_qs);
    world.tela.cboCidade.DropDown = [&] {
        world.tela.cboCidade.clear();
        world.tela.cboCidade.addItem(u"SANTOS"_qs);
    };
    world.tela.cboCidade.setLocked(true);
    world.user.dropDown(world.tela.cboCidade);
    EXPECT_EQ(world.tela.cboCidade.items(), QStringList{u"SANTOS"_qs});
    EXPECT_EQ(world.tela.cboCidade.text(), u"OUTRA"_qs);
    world.tela.cboCidade.setLocked(false);
    world.user.dropDown(world.tela.cboCidade);
    EXPECT_EQ(world.tela.cboCidade.text(), QString());
}

TEST(User, ReachesATextByTheKeyboardWithAllOfItSelected) {
    SampleWorld world;
    world.tela.txtNome.setText(u"VELHO"_qs);
    world.user.focus(world.tela.mskCEP);
    world.user.key(world.tela.mskCEP, Key::BackTab);
    EXPECT_EQ(world.tela.txtNome.selectionLength(), 5);
    world.user.character(world.tela.txtNome, u'N');
    EXPECT_EQ(world.tela.txtNome.text(), u"N"_qs);
}

TEST(User, EnterChoosesTheRowOfAGrid) {
    SampleWorld world;
    world.tela.grade.reset({{u"Nome"_qs}});
    world.tela.grade.AddItem(u"A"_qs);
    world.user.focus(world.tela.grade);
    world.tela.events.clear();
    world.user.key(world.tela.grade, Key::Enter);
    world.tela.grade.setRow(0);
    world.user.key(world.tela.grade, Key::Enter);
    world.tela.grade.setRow(1);
    world.tela.grade.DblClick = {};
    world.user.key(world.tela.grade, Key::Enter);
    EXPECT_EQ(world.tela.events, QStringList({u"double FlexLista"_qs, u"click FlexLista"_qs}));
}

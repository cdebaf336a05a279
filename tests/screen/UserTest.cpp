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

TEST(User, NothingIsTypedThatTheDataCannotHold) {
    SampleWorld world;
    world.tela.txtNome.capacity = 4;
    world.user.type(world.tela.txtNome, u"ABCDEF"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"ABCD"_s);
    EXPECT_EQ(world.tela.txtNome.maxLength(), 0);
    world.tela.txtNome.select(1, 1);
    world.user.paste(world.tela.txtNome, u"xyz"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"AxCD"_s);
    // A limit of the screen's own goes first, and what comes from elsewhere stands whole.
    world.tela.txtNome.setMaxLength(6);
    world.user.type(world.tela.txtNome, u"ABCDEFGH"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"ABCDEF"_s);
    world.tela.txtNome.setMaxLength(0);
    world.tela.txtNome.setText(u"MAIS DO QUE CABE"_s);
    EXPECT_EQ(world.tela.txtNome.text(), u"MAIS DO QUE CABE"_s);
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
    world.user.replace(world.tela.txtNome, 0, 3, u"colado 日 aqui"_s);
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
    world.tela.grade.keysChoose = true;
    world.user.focus(world.tela.grade);
    world.tela.events.clear();
    world.user.key(world.tela.grade, Key::Enter);
    world.tela.grade.setRow(0);
    world.user.key(world.tela.grade, Key::Enter);
    EXPECT_EQ(world.tela.events, QStringList({u"click FlexLista"_s, u"double FlexLista"_s}));
}

TEST(User, TheKeysOfAnOrdinaryGridAreNoClicks) {
    SampleWorld world;
    world.tela.grade.reset({{u"Nome"_s}});
    world.tela.grade.AddItem(u"A"_s);
    world.tela.grade.AddItem(u"B"_s);
    world.user.chooseTab(world.tela.tab, 1);
    world.user.focus(world.tela.grade);
    world.tela.events.clear();
    world.user.key(world.tela.grade, Key::Down);
    world.user.character(world.tela.grade, u' ');
    EXPECT_EQ(world.tela.grade.Row(), 2);
    EXPECT_TRUE(world.tela.events.isEmpty());
}

TEST(User, TwoQuickPressesAreAClickAndADoubleClick) {
    SampleWorld world;
    world.tela.grade.reset({{u"Nome"_s}});
    for (const char* name : {"A", "B", "C"})
        world.tela.grade.AddItem(QLatin1String(name));
    int clicks = 0;
    world.tela.grade.Click = [&] {
        ++clicks;
        world.tela.grade.RemoveItem(world.tela.grade.Row());
    };
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) {
        world.user.doubleClickCell(world.tela.grade, 1, 0);
        EXPECT_EQ(clicks, 1);
        EXPECT_EQ(world.tela.grade.Rows(), 3);
        EXPECT_EQ(world.tela.events.count(u"double FlexLista"_s), 1);
        world.user.doubleClick(world.tela.cmdSalvar);
        EXPECT_EQ(world.tela.events.count(u"click cmdSALVAR"_s), 2);
        world.tela.cmdSalvar.Click = [&] {
            ++clicks;
            world.program.MsgBox(u"Pronto"_s);
        };
        world.user.doubleClick(world.tela.cmdSalvar);
        EXPECT_EQ(world.platform.boxes.news(), QStringList{u"Pronto"_s}) << "the second press meets the box";
    });
    world.program.dispatch([&] { world.program.ShowModal(world.tela); });
    EXPECT_EQ(clicks, 2);
}

TEST(User, AListThatWasOnlyLookedAtKeepsItsText) {
    SampleWorld world;
    ListField& list = world.tela.cboCidade;
    list.setText(u"OUTRA"_s);
    list.DropDown = [&] {
        list.clear();
        list.addItem(u"SANTOS"_s);
    };
    world.user.dropDown(list);
    world.user.dropDown(list);
    EXPECT_EQ(list.text(), QString());
    world.user.key(list, Key::Escape);
    EXPECT_EQ(list.text(), u"OUTRA"_s);
    QString left;
    list.LostFocus = [&] { left = list.text(); };
    world.user.dropDown(list);
    world.user.leave(world.tela);
    EXPECT_EQ(left, u"OUTRA"_s);
    world.user.dropDown(list);
    world.user.character(list, u'X');
    world.user.leave(world.tela);
    EXPECT_EQ(list.text(), u"X"_s) << "what is typed into the open list stands";
    world.user.dropDown(list);
    world.user.key(list, Key::Down);
    world.user.key(list, Key::Enter);
    EXPECT_EQ(list.text(), u"SANTOS"_s);
    EXPECT_FALSE(list.isOpen());
    list.DropDown = [&] {
        list.clear();
        list.setText(u"ACHADA"_s);
    };
    world.user.dropDown(list);
    world.user.leave(world.tela);
    EXPECT_EQ(list.text(), u"ACHADA"_s) << "a handler may choose";
}

TEST(User, CursorKeysWalkWhereTheTextIsNoItem) {
    SampleWorld world;
    ListField& list = world.tela.cboCidade;
    for (const char* item : {"UM|1", "DOIS|2", "TRES|3"})
        list.addItem(QLatin1String(item));
    list.Click = [&] { list.setText(list.text().section(u'|', 1)); };
    world.user.focus(list);
    QStringList texts;
    for (const Key key : {Key::Down, Key::Down, Key::Down, Key::Down, Key::Up}) {
        world.user.key(list, key);
        texts += list.text();
    }
    EXPECT_EQ(texts, QStringList({u"1"_s, u"2"_s, u"3"_s, u"3"_s, u"2"_s}));
}

TEST(User, AFixedListCompletesWhatOneItemAloneBegins) {
    SampleWorld world;
    ListField& list = world.tela.cboCidade;
    for (const char* item : {"SANTOS", "SOROCABA", "SANTOS"})
        list.addItem(QLatin1String(item));
    world.user.type(list, u"SA"_s);
    EXPECT_EQ(list.text(), u"SA"_s);
    list.completes = true;
    world.user.type(list, u"s"_s);
    EXPECT_EQ(list.text(), u"s"_s);
    world.user.type(list, u"sa"_s);
    EXPECT_EQ(list.text(), u"SANTOS"_s);
    EXPECT_EQ(list.selectionStart(), 2);
    world.user.key(list, Key::Backspace);
    EXPECT_EQ(list.text(), u"SA"_s);
    world.user.character(list, u'X');
    EXPECT_EQ(list.text(), u"SAX"_s);
}

TEST(User, WhatIsPastedObeysTheRulesOfTyping) {
    SampleWorld world;
    TextField& field = world.tela.txtNome;
    world.user.focus(field);
    world.user.paste(field, u"A\tB\r\nC"_s);
    EXPECT_EQ(field.text(), u"A B C"_s);
    field.select(2, 1);
    world.user.paste(field, u"日本"_s);
    EXPECT_EQ(field.text(), u"A B C"_s);
    EXPECT_EQ(field.selectionLength(), 1) << "what is refused takes no selection away";
    world.user.paste(field, QString(10000, u'x'));
    EXPECT_EQ(field.text().size(), 10004);
    field.setMaxLength(6);
    field.setText(u"ABCD"_s);
    field.select(4, 0);
    world.user.paste(field, u"EFGH"_s);
    EXPECT_EQ(field.text(), u"ABCDEF"_s);
    field.keepsLines = true;
    field.setText({});
    world.user.paste(field, u"A\r\n\tB"_s);
    EXPECT_EQ(field.text(), u"A\n B"_s);
    field.setLocked(true);
    world.user.paste(field, u"C"_s);
    EXPECT_EQ(field.text(), u"A\n B"_s);
}

TEST(User, AnAcceleratorClicksWhatCanBeClicked) {
    SampleWorld world;
    world.user.accelerator(world.tela, u's');
    EXPECT_EQ(world.tela.events.count(u"click cmdSALVAR"_s), 1);
    world.tela.cmdSalvar.setEnabled(false);
    world.user.accelerator(world.tela, u'S');
    EXPECT_EQ(world.tela.events.count(u"click cmdSALVAR"_s), 1);
}

TEST(User, CursorKeysMoveInATextAndBetweenButtons) {
    SampleWorld world;
    TextField& field = world.tela.txtNome;
    field.setText(u"ABC"_s);
    world.user.focus(field);
    world.user.key(field, Key::End);
    world.user.key(field, Key::Left);
    world.user.character(field, u'x');
    EXPECT_EQ(field.text(), u"ABxC"_s);
    world.user.key(field, Key::Home);
    world.user.key(field, Key::Delete);
    EXPECT_EQ(field.text(), u"BxC"_s);
    world.user.focus(world.tela.cmdSalvar);
    world.user.key(world.tela.cmdSalvar, Key::Down);
    EXPECT_EQ(world.tela.focus(), &field);
}

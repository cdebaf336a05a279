#include "SampleScreen.h"
#include "base/Literals.h"

using namespace vorta;
using namespace vorta::test;

TEST(Focus, TheOldFieldLosesItBeforeTheNewOneGetsIt) {
    SampleWorld world;
    world.user.focus(world.tela.txtNome);
    world.user.focus(world.tela.mskCEP);
    world.user.focus(world.tela.mskCEP);
    EXPECT_EQ(world.tela.events, QStringList({u"got txtNome"_s, u"lost txtNome"_s, u"got mskCEP"_s}));
    world.user.leave(world.tela);
    EXPECT_EQ(world.tela.events.last(), u"lost mskCEP"_s);
    EXPECT_EQ(world.tela.focus(), nullptr);
}

TEST(Focus, LabelsPicturesAndStripsNeverHaveIt) {
    SampleWorld world;
    world.tela.SetFocus(world.tela.lblTitulo);
    world.tela.SetFocus(world.tela.imgFoto);
    world.tela.SetFocus(world.tela.tab);
    EXPECT_EQ(world.tela.focus(), nullptr);
    EXPECT_FALSE(world.user.focus(world.tela.lblTitulo));
}

TEST(Focus, AFieldThatCannotTakeItIsLeftAlone) {
    SampleWorld world;
    world.user.focus(world.tela.txtNome);
    world.tela.mskCEP.setEnabled(false);
    world.tela.cboCidade.setVisible(false);
    world.tela.SetFocus(world.tela.mskCEP);
    world.tela.SetFocus(world.tela.cboCidade);
    EXPECT_FALSE(world.user.focus(world.tela.mskCEP));
    EXPECT_EQ(world.tela.focus(), &world.tela.txtNome);
    EXPECT_EQ(world.tela.events, QStringList(u"got txtNome"_s));
}

TEST(Focus, LostFocusDecidesWhereItGoes) {
    SampleWorld world;
    world.user.focus(world.tela.txtNome);
    world.tela.txtNome.LostFocus = [&] { world.tela.SetFocus(world.tela.txtNome); };
    EXPECT_FALSE(world.user.focus(world.tela.mskCEP));
    EXPECT_EQ(world.tela.focus(), &world.tela.txtNome);
    EXPECT_FALSE(world.tela.events.contains(u"got mskCEP"_s));
}

TEST(Focus, AClickDoesNotHappenWhenTheFocusIsHeldBack) {
    SampleWorld world;
    world.user.focus(world.tela.txtNome);
    world.tela.txtNome.LostFocus = [&] { world.tela.SetFocus(world.tela.txtNome); };
    world.user.click(world.tela.cmdSalvar);
    EXPECT_FALSE(world.tela.events.contains(u"click cmdSALVAR"_s));
}

TEST(Focus, ComesWithItsTabPage) {
    SampleWorld world;
    world.user.focus(world.tela.chkAtivo);
    EXPECT_EQ(world.tela.tab.current(), 1);
    world.tela.SetFocus(world.tela.txtNome);
    EXPECT_EQ(world.tela.tab.current(), 0);
    world.user.chooseTab(world.tela.tab, 1);
    world.tela.SetFocus(world.tela.txtNome);
    EXPECT_EQ(world.tela.tab.current(), 0) << "also when it has the focus already";
}

TEST(Focus, ADisabledFieldLetsItFallToTheFirst) {
    SampleWorld world;
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) {
        world.user.focus(world.tela.cmdSalvar);
        world.tela.cmdSalvar.Click = [&] { world.tela.cmdSalvar.setEnabled(false); };
        world.user.click(world.tela.cmdSalvar);
        EXPECT_EQ(world.tela.focus(), &world.tela.txtNome);
        // A neighbour's LostFocus that disables the target has the same end.
        world.tela.txtNome.LostFocus = [&] { world.tela.mskCEP.setEnabled(false); };
        EXPECT_FALSE(world.user.focus(world.tela.mskCEP));
        EXPECT_EQ(world.tela.focus(), &world.tela.txtNome);
    });
    world.program.dispatch([&] { world.program.ShowModal(world.tela); });
    EXPECT_EQ(world.platform.shown.size(), 1);
}

TEST(Focus, TabWalksInTheOrderOfTheFields) {
    SampleWorld world;
    world.user.focus(world.tela.txtNome);
    QStringList order;
    for (int step = 0; step < 7; ++step) {
        order += world.tela.focus()->name();
        world.user.key(*world.tela.focus(), Key::Tab);
    }
    EXPECT_EQ(order, QStringList({u"txtNome"_s, u"mskCEP"_s, u"cboCidade"_s, u"cmdSALVAR"_s, u"txtNome"_s, u"mskCEP"_s,
                                  u"cboCidade"_s}))
        << "a page that is not in front is passed over, and the walk begins again";
    EXPECT_EQ(world.tela.focus(), &world.tela.cmdSalvar);
    world.user.chooseTab(world.tela.tab, 1);
    order.clear();
    for (int step = 0; step < 5; ++step) {
        order += world.tela.focus()->name();
        world.user.key(*world.tela.focus(), Key::Tab);
    }
    EXPECT_EQ(order, QStringList({u"cmdSALVAR"_s, u"opNao"_s, u"chkAtivo"_s, u"FlexLista"_s, u"cmdSALVAR"_s}))
        << "the option that is not chosen is passed over";
    world.user.key(*world.tela.focus(), Key::BackTab);
    EXPECT_EQ(world.tela.focus(), &world.tela.cmdSalvar);
}

TEST(Focus, TabPassesOverLockedDisabledAndHiddenFields) {
    SampleWorld world;
    world.tela.mskCEP.setEnabled(false);
    world.tela.cboCidade.setLocked(true);
    world.tela.opNao.setVisible(false);
    world.user.focus(world.tela.txtNome);
    world.user.key(world.tela.txtNome, Key::Tab);
    EXPECT_EQ(world.tela.focus(), &world.tela.cmdSalvar);
    EXPECT_TRUE(world.user.focus(world.tela.cboCidade)) << "a locked field can be clicked into";
}

TEST(Focus, WithoutAChosenOptionTheFirstOneTakesPart) {
    SampleWorld world;
    world.tela.opNao.setValue(false);
    world.user.chooseTab(world.tela.tab, 1);
    EXPECT_EQ(world.tela.nextField(&world.tela.cboCidade), &world.tela.opSim);
    EXPECT_EQ(world.tela.nextField(&world.tela.opSim), &world.tela.opNao);
}

TEST(Focus, SelectsAllWhereTheFieldAsksForIt) {
    SampleWorld world;
    world.tela.txtNome.setText(u"MARIA"_s);
    world.tela.txtNome.selectsOnFocus = true;
    world.user.focus(world.tela.txtNome);
    EXPECT_EQ(world.tela.txtNome.selectionLength(), 5);
}

TEST(Focus, AnOpenedScreenBeginsAtItsFirstField) {
    SampleWorld world;
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) { EXPECT_EQ(world.tela.focus(), &world.tela.txtNome); });
    EXPECT_TRUE(world.program.dispatch([&] { world.program.ShowModal(world.tela); }));
    EXPECT_EQ(world.tela.events, QStringList({u"load"_s, u"got txtNome"_s, u"unload"_s}));
}

TEST(Focus, ALostFocusThatFailsDoesNotHoldTheFocusForEver) {
    SampleWorld world;
    world.user.focus(world.tela.txtNome);
    world.tela.txtNome.LostFocus = [] { throw RuntimeError(errorNumber::StatementRefused); };
    EXPECT_EQ(ErrorOf([&] { world.tela.SetFocus(world.tela.mskCEP); }), errorNumber::StatementRefused);
    world.tela.SetFocus(world.tela.cboCidade);
    EXPECT_EQ(world.tela.focus(), &world.tela.cboCidade);
}

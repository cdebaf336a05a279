#include "SampleScreen.h"
#include "base/Literals.h"

using namespace vorta;
using namespace vorta::test;

TEST(Program, BoxesReachTheOutsideAsAsked) {
    SampleWorld world;
    world.platform.willAnswer(Answer::Yes);
    world.program.dispatch([&] {
        EXPECT_EQ(world.program.MsgBox(u"Aviso"_s), Answer::OK);
        EXPECT_EQ(world.program.MsgBox({u"Continua?"_s, u"Título"_s, Icon::Information, Buttons::YesNo}), Answer::Yes);
    });
    ASSERT_EQ(world.platform.boxes.size(), 2u);
    EXPECT_EQ(world.platform.boxes[0].text, u"Aviso"_s);
    EXPECT_EQ(world.platform.boxes[0].title, QString());
    EXPECT_EQ(world.platform.boxes[0].icon, Icon::None);
    EXPECT_EQ(world.platform.boxes[1].title, u"Título"_s);
    EXPECT_EQ(world.platform.boxes[1].icon, Icon::Information);
    EXPECT_EQ(Program::applicationTitle(), u"Cadastro de Pessoas"_s);
}

TEST(Program, ModalScreensStackAndTheCallerWaits) {
    SampleWorld world;
    SampleScreen filha(world.program, u"frmFilha"_s);
    QStringList steps;
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) {
        EXPECT_EQ(world.program.activeScreen(), &world.tela);
        world.program.ShowModal(filha);
        steps += u"back"_s;
        EXPECT_EQ(world.program.activeScreen(), &world.tela);
    });
    world.platform.whenShown(u"frmFilha"_s, [&](Screen& screen) {
        EXPECT_EQ(world.program.activeScreen(), &filha);
        EXPECT_EQ(world.program.screens().size(), 2u);
        steps += u"child"_s;
        world.user.close(screen);
    });
    EXPECT_TRUE(world.program.dispatch([&] { world.program.ShowModal(world.tela); }));
    EXPECT_EQ(steps, QStringList({u"child"_s, u"back"_s}));
    EXPECT_EQ(filha.events.last(), u"unload"_s);
    EXPECT_EQ(filha.events.count(u"unload"_s), 1);
    EXPECT_EQ(world.program.activeScreen(), nullptr);
}

TEST(Program, AScreenThatClosesInItsLoadIsNotShown) {
    struct Fechada : Screen {
        explicit Fechada(Program& program) : Screen(program, u"frmFechada"_s) {}
        void Load() override { Unload(); }
    };
    SampleWorld world;
    Fechada fechada(world.program);
    EXPECT_TRUE(world.program.dispatch([&] { world.program.ShowModal(fechada); }));
    EXPECT_TRUE(world.platform.shown.isEmpty());
}

TEST(Program, ALoadThatFailsAndIsCaughtLeavesTheCallerInFront) {
    struct Falha : Screen {
        explicit Falha(Program& program) : Screen(program, u"frmFalha"_s) {}
        void Load() override { throw RuntimeError(errorNumber::StatementRefused); }
    };
    SampleWorld world;
    Falha falha(world.program);
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) {
        EXPECT_EQ(ErrorOf([&] { world.program.ShowModal(falha); }), errorNumber::StatementRefused);
        EXPECT_EQ(world.program.activeScreen(), &world.tela);
        EXPECT_FALSE(falha.isLoaded());
    });
    EXPECT_TRUE(world.program.dispatch([&] { world.program.ShowModal(world.tela); }));
}

TEST(Program, EndLeavesEveryModalWaitAndNothingContinues) {
    SampleWorld world;
    int ends = 0;
    world.program.onEnd = [&] { ++ends; };
    bool continued = false;
    world.tela.cmdSalvar.Click = [&] {
        world.program.End();
        continued = true;
    };
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) { world.user.click(world.tela.cmdSalvar); });
    EXPECT_FALSE(world.program.dispatch([&] {
        world.program.ShowModal(world.tela);
        continued = true;
    }));
    EXPECT_FALSE(continued);
    EXPECT_TRUE(world.program.hasEnded());
    EXPECT_EQ(world.program.exitCode(), 0);
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(world.program.screens().empty());
    EXPECT_FALSE(world.program.dispatch([&] { continued = true; })) << "no event reaches an ended program";
    EXPECT_FALSE(continued);
}

TEST(Program, ARunTimeErrorEndsItInOrder) {
    SampleWorld world;
    QStringList order;
    world.program.onEnd = [&] {
        order += u"connection closed"_s;
        EXPECT_TRUE(world.platform.boxes.empty()) << "the rollback comes before the box";
    };
    world.tela.cmdSalvar.Click = [] { throw RuntimeError(errorNumber::StatementRefused, u"recusado"_s); };
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) {
        world.user.click(world.tela.cmdSalvar);
        EXPECT_TRUE(world.program.hasEnded());
    });
    EXPECT_FALSE(world.program.dispatch([&] { world.program.ShowModal(world.tela); }));
    EXPECT_EQ(order.size(), 1);
    ASSERT_EQ(world.platform.boxes.size(), 1u);
    EXPECT_EQ(world.platform.boxes[0].text, u"Erro -2147217900\n\nrecusado"_s);
    EXPECT_EQ(world.platform.boxes[0].icon, Icon::Critical);
    EXPECT_EQ(world.program.exitCode(), 1);
    EXPECT_EQ(world.failure(), errorNumber::StatementRefused);
}

TEST(Program, NothingIsAskedAfterTheEnd) {
    SampleWorld world;
    bool continued = false;
    world.program.dispatch([&] { world.program.End(); });
    EXPECT_THROW(
        {
            world.program.MsgBox(u"tarde"_s);
            continued = true;
        },
        ProgramEnded);
    EXPECT_THROW(world.program.ShowModal(world.tela), ProgramEnded);
    EXPECT_FALSE(continued);
    EXPECT_TRUE(world.platform.boxes.empty());
}

TEST(Program, TwoOfThemLiveSideBySide) {
    SampleWorld first;
    SampleWorld second;
    first.program.dispatch([&] { first.program.End(); });
    EXPECT_TRUE(first.program.hasEnded());
    EXPECT_FALSE(second.program.hasEnded());
    EXPECT_TRUE(second.program.dispatch([&] { second.program.MsgBox(u"vivo"_s); }));
    EXPECT_EQ(second.platform.boxes.news(), QStringList(u"vivo"_s));
}

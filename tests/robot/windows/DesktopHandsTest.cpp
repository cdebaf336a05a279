#include "robot/windows/DesktopHands.h"
#include "base/Literals.h"

#include "support/World.h"

#include <gtest/gtest.h>

namespace vorta::test {

namespace {

/// The postal-code search by its names, without its routines.
struct Search : screen::Screen {
    explicit Search(screen::Program& program) : Screen(program, u"frmBROWSE_CEPS"_s) {}
    screen::TextField txtCEP{this, "txtCEP"};
    screen::TextField txtEndereco{this, "txtEndereco"};
    screen::ListField cboCidade{this, "cboCidade"};
    screen::Button cmdPesquisa{this, "cmdPesquisa", u"&Pesquisar"_s};
    screen::Grid Flex{this, "Flex"};
};

} // namespace

class DesktopHandsTest : public testing::Test, protected World {
  protected:
    void open(const std::function<void()>& body) {
        platform.whenShown(tela.name(), [&](screen::Screen&) {
            hands->show(tela);
            body();
            hands->hide(tela);
        });
        program.dispatch([&] { program.ShowModal(tela); });
    }
    QString seen(screen::Field& field, const char* property, int row = 0, int col = 0) {
        return hands->seen(field, {QLatin1String(property), row, col}).value_or(u"(nothing)"_s);
    }

    Search tela{program};
    std::unique_ptr<robot::Hands> hands = robot::MakeDesktopHands(program, user);
};

TEST_F(DesktopHandsTest, TypeReplacesWhatIsThere) {
    tela.txtEndereco.setText(u"ANTIGO"_s);
    open([&] {
        hands->type(tela.txtEndereco, u"Praça à 'esquerda'"_s);
        EXPECT_EQ(tela.txtEndereco.text(), u"Praça à 'esquerda'");
        EXPECT_EQ(seen(tela.txtEndereco, "text"), u"Praça à 'esquerda'");
        EXPECT_EQ(hands->seenFocus(tela), u"txtEndereco"_s);
        hands->type(tela.txtEndereco, {});
        EXPECT_EQ(tela.txtEndereco.text(), u"");
    });
}

TEST_F(DesktopHandsTest, KeysAndClicksRunTheHandlers) {
    int clicks = 0;
    QStringList lost;
    tela.cmdPesquisa.Click = [&] { ++clicks; };
    tela.txtCEP.LostFocus = [&] { lost += u"txtCEP"_s; };
    open([&] {
        hands->focus(tela.txtCEP);
        hands->key(tela.txtCEP, screen::Key::Tab, 0);
        EXPECT_EQ(tela.focus(), &tela.txtEndereco);
        EXPECT_EQ(lost, QStringList({"txtCEP"}));
        hands->click(tela.cmdPesquisa);
        hands->key(tela.cmdPesquisa, screen::Key::Enter, 0);
        hands->focus(tela.cmdPesquisa);
        EXPECT_EQ(clicks, 2);
        hands->leave(tela);
        EXPECT_EQ(tela.focus(), nullptr);
        EXPECT_EQ(hands->seenFocus(tela), QString());
    });
}

TEST_F(DesktopHandsTest, CellsAreClicked) {
    QStringList events;
    tela.Flex.Click = [&] { events += u"click %1"_s.arg(tela.Flex.Row()); };
    tela.Flex.DblClick = [&] { events += u"double %1"_s.arg(tela.Flex.Row()); };
    tela.Flex.reset({{{}, 0}, {u"CEP"_s}});
    for (int row = 1; row <= 100; ++row)
        tela.Flex.AddItem(u"\t%1"_s.arg(row));
    open([&] {
        hands->clickCell(tela.Flex, 2, 1);
        hands->doubleClickCell(tela.Flex, 90, 0);
        hands->clickCell(tela.Flex, 0, 1);
        EXPECT_EQ(events, QStringList({"click 2", "click 90", "double 90", "click 0"}));
        EXPECT_EQ(seen(tela.Flex, "rows"), u"101");
        EXPECT_EQ(seen(tela.Flex, "cell", 0, 1), u"CEP");
        EXPECT_EQ(seen(tela.Flex, "cell", 90, 1), u"90");
        EXPECT_EQ(seen(tela.Flex, "row"), u"0");
    });
}

TEST_F(DesktopHandsTest, ListsAreDroppedAndPicked) {
    tela.cboCidade.DropDown = [&] {
        tela.cboCidade.clear();
        for (const char* item : {"A", "B", "C"})
            tela.cboCidade.addItem(QLatin1String(item));
    };
    open([&] {
        hands->dropDown(tela.cboCidade);
        EXPECT_EQ(seen(tela.cboCidade, "items"), u"3");
        EXPECT_EQ(seen(tela.cboCidade, "item", 1), u"B");
        hands->pick(tela.cboCidade, 2);
        EXPECT_EQ(tela.cboCidade.text(), u"C");
        EXPECT_EQ(seen(tela.cboCidade, "text"), u"C");
    });
}

TEST_F(DesktopHandsTest, BoxesAreAnsweredWithTheirButtons) {
    const screen::Box box{u"Confirma?"_s, {}, screen::Icon::None, screen::Buttons::YesNo};
    EXPECT_EQ(hands->answer(box, {screen::Answer::Yes, 0}), screen::Answer::Yes);
    EXPECT_EQ(hands->answer(box, {screen::Answer::No, 2}), screen::Answer::No) << "Escape is no answer to it";
    const screen::Box asking{u"Confirma?"_s, {}, screen::Icon::None, screen::Buttons::YesNoCancel};
    EXPECT_EQ(hands->answer(asking, {screen::Answer::Yes, 1}), screen::Answer::No);
}

TEST_F(DesktopHandsTest, TheFrameCloses) {
    open([&] {
        hands->closeByFrame(tela);
        EXPECT_FALSE(tela.isLoaded());
    });
}

TEST_F(DesktopHandsTest, AnUnloadIsNoMatterOfTheFrame) {
    open([&] {
        hands->close(tela);
        EXPECT_FALSE(tela.isLoaded());
    });
}

} // namespace vorta::test

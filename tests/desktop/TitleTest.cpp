#include "EveryScreen.h"
#include "desktop/Style.h"

namespace vorta::test {

using Title = EveryScreen;

TEST_P(Title, FindsRoomInItsFrame) {
    tela.setCaption(u"ERP VORTA - Nexoria - Release 2015.07.24 (PRD)(0001/ADMIN)"_s);
    settle();
    window.complete();
    EXPECT_EQ(window.windowTitle(), tela.caption());
    EXPECT_GE(window.wholeSize().width(), desktop::WidthForTitle(tela.caption()));
    EXPECT_GE(window.width(), desktop::WidthForTitle(tela.caption()));
}

INSTANTIATE_TEST_SUITE_P(Screens, Title, testing::ValuesIn(ScreenNames()), [](const auto& made) { return made.param; });

} // namespace vorta::test

#include "base/Literals.h"
#include "desktop/Binding.h"
#include "desktop/ScreenWindow.h"
#include "support/RegisterWorld.h"

#include <QLineEdit>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace vorta::test {

/// The person screen's window: what lies behind its front pages is made after the first painting, or when it is asked
/// for.
class Pages : public testing::Test, protected RegisterWorld {
  protected:
    Pages() : tela(telaDe(registro.startScreen())), window(tela, nullptr) {}

    screen::Field& field(const char* name) { return tela.field(QLatin1String(name)); }
    bool isMade(const char* name) { return window.binder().binding(field(name)); }
    screen::TabStrip& strip(const char* name) { return dynamic_cast<screen::TabStrip&>(field(name)); }
    /// Brings a page to the front as the screen does it.
    void choose(const char* name, int page) {
        strip(name).setCurrent(page);
        window.binder().flush();
    }

    screen::Screen& tela;
    desktop::ScreenWindow window;
};

TEST_F(Pages, OnlyTheFrontIsMadeAtFirst) {
    EXPECT_TRUE(isMade("txtEndereco"));
    EXPECT_TRUE(isMade("cmdSAIR"));
    EXPECT_FALSE(isMade("txtPrinNomeContato"));
    EXPECT_FALSE(isMade("mskEnt_CEP"));
}

TEST_F(Pages, APageThatComesToTheFrontIsMadeAndFilled) {
    field("txtPrinNomeContato").setText(u"MARIA"_s);
    choose("SSTab2", 1);
    const auto* contact = window.findChild<QLineEdit*>(u"txtPrinNomeContato"_s);
    ASSERT_TRUE(contact);
    EXPECT_EQ(contact->text(), u"MARIA");
    EXPECT_EQ(window.findChild<QTabWidget*>(u"SSTab2"_s)->currentIndex(), 1);
    EXPECT_FALSE(isMade("mskEnt_CEP"));
}

TEST_F(Pages, AllAreMadeBehindTheFirstPainting) {
    window.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return isMade("FlexHistFornDeta"); }, 5000));
    for (const screen::Field* one : tela.fields())
        EXPECT_TRUE(window.binder().binding(*one)) << one->name().toStdString();
}

TEST_F(Pages, TheFrontStaysWhereItIs) {
    const QSize size = window.wholeSize();
    window.resize(size); // whatever screen there is
    window.show();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // as in front of the first painting
    const auto placeOf = [&](const char* name) {
        const QWidget& widget = window.binder().binding(field(name))->widget();
        return QRect(widget.mapTo(&window, QPoint()), widget.size());
    };
    const std::vector<const char*> front{"txtRowID",    "SSTab2",     "SSTab1", "txtFone1",
                                         "txtEndereco", "cmdCliente", "cmdSAIR"};
    std::vector<QRect> before;
    for (const char* name : front)
        before.push_back(placeOf(name));
    window.complete();
    QCoreApplication::processEvents();
    EXPECT_EQ(window.wholeSize(), size);
    EXPECT_EQ(window.size(), size);
    for (size_t at = 0; at < front.size(); ++at)
        EXPECT_EQ(placeOf(front[at]), before[at]) << front[at];
}

TEST_F(Pages, AWindowGrowsWithAPageThatNeedsMore) {
    window.show();
    const int before = window.height();
    window.findChild<QWidget*>(u"paginaFiscal"_s)->setFont(QFont(u"DejaVu Sans"_s, 72));
    window.complete();
    EXPECT_GT(window.wholeSize().height(), before);
    const int frame = window.frameGeometry().height() - window.height();
    EXPECT_EQ(window.frameGeometry().height(),
              std::min(window.wholeSize().height() + frame, window.screen()->availableSize().height()));
}

TEST_F(Pages, AWindowThatWasResizedKeepsItsSize) {
    window.resize(700, 500);
    window.complete();
    EXPECT_EQ(window.size(), QSize(700, 500));
}

} // namespace vorta::test

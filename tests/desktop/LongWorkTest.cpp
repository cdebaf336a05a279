// Work that takes its time: what is shown goes on being painted, a bar tells of it, and nothing that the user does
// meanwhile gets in between.

#include "base/Literals.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/ScreenWindow.h"
#include "screen/Program.h"

#include <QAbstractButton>
#include <QProgressBar>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

constexpr int longer = 900; ///< milliseconds; longer than any work that shows nothing
constexpr int shorter = 50; ///< so short that it shows nothing

/// A small screen under the name of one that has a form.
struct Menu : screen::Screen {
    explicit Menu(screen::Program& program) : Screen(program, u"frmInfoPess"_s) {}
    screen::Button cmdEspecialMun{this, "cmdEspecialMun", u"Especial Municipios"_s};
    screen::Button cmdSAIR{this, "cmdSAIR", u"Sai&r"_s};
};

/// Counts how often the bar is painted.
class Paints : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

} // namespace

/// A window with a handler that does the work.
class LongWork : public testing::Test {
  protected:
    void during(const std::function<void()>& work) {
        menu.cmdEspecialMun.Click = [&] {
            bar().installEventFilter(&paints);
            work();
        };
        QTimer::singleShot(0, qApp, [&] {
            QTest::mouseClick(platform.top()->findChild<QAbstractButton*>(u"cmdEspecialMun"_s), Qt::LeftButton);
            QCoreApplication::processEvents();
            EXPECT_FALSE(bar().isVisible());
            EXPECT_FALSE(platform.top()->binder().busyInput().isBusy());
            platform.top()->close();
        });
        program.dispatch([&] { program.ShowModal(menu); });
    }
    QProgressBar& bar() { return *platform.top()->findChild<QProgressBar*>(u"progresso"_s); }

    desktop::DesktopPlatform platform;
    screen::Program program{platform};
    Menu menu{program};
    Paints paints;
};

TEST_F(LongWork, ShowsNothingWhenItIsShort) {
    during([&] {
        QThread::msleep(shorter);
        platform.progress(1, 10);
        platform.progress(10, 10);
        platform.progress(0, 0);
    });
    EXPECT_EQ(paints.count, 0);
}

TEST_F(LongWork, WithoutTheHourglassShowsItsBarWhenItHasLasted) {
    bool atOnce = true;
    bool then = false;
    during([&] {
        platform.progress(1, 100);
        atOnce = bar().isVisible();
        QThread::msleep(longer);
        platform.progress(50, 100);
        then = bar().isVisible();
        EXPECT_EQ(bar().maximum(), 2 * bar().value());
        platform.progress(0, 0);
    });
    EXPECT_FALSE(atOnce);
    EXPECT_TRUE(then);
}

} // namespace vorta::test

// Every screen in its window on the display that this process has been given. Run over a table of displays, scales and
// letters by `rooms.py`, with a window manager that draws the frames.

#include "app/Register.h"
#include "base/Literals.h"
#include "desktop/Binding.h"
#include "desktop/DesktopApplication.h"
#include "desktop/MessageBox.h"
#include "desktop/ScreenWindow.h"
#include "support/TestPlatform.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

constexpr int patience = 20000;

QString told(const QRect& rect) {
    return u"%1x%2+%3+%4"_s.arg(rect.width()).arg(rect.height()).arg(rect.left()).arg(rect.top());
}

/// Waits until the desktop has drawn its frame and has nothing more to say about the window.
void settle(QWidget& window) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, patience));
    if (QGuiApplication::platformName() == u"xcb")
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.frameGeometry() != window.geometry(); }, patience));
    QRect before;
    for (int quiet = 0; quiet < 3; quiet = before == window.frameGeometry() ? quiet + 1 : 0) {
        before = window.frameGeometry();
        QTest::qWait(20);
    }
}

/// True when all of a widget can be seen in its window.
bool isInView(const QWidget& widget) {
    const QRect whole(widget.mapTo(widget.window(), QPoint()), widget.size());
    return widget.isVisible() && widget.window()->rect().contains(whole) &&
           widget.visibleRegion().boundingRect() == widget.rect();
}

bool isText(const QWidget& widget) {
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return (label && !label->wordWrap()) || qobject_cast<const QAbstractButton*>(&widget);
}

/// What is in front and has less room than its text needs.
QStringList clipped(const QWidget& window) {
    QStringList found;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool own = !widget->objectName().isEmpty() && !qobject_cast<const QTabBar*>(widget->parentWidget());
        const QSize needed = widget->sizeHint();
        if (own && isText(*widget) && widget->isVisible() &&
            (widget->width() < needed.width() || widget->height() < needed.height()))
            found += widget->objectName();
    }
    return found;
}

} // namespace

/// A screen in its window, as it comes up on the display.
class Room : public testing::TestWithParam<std::string> {
  protected:
    Room() : tela(registro.context().Tela(QString::fromStdString(GetParam()))) {
        tela.setCaption(u"ERP VORTA - Nexoria - Release 2015.07.24 (PRD)(0001/MARIA)"_s);
        tela.setPlace(isStart() ? screen::Place::LeftBorder : screen::Place::Centre);
        for (screen::Field* field : tela.fields())
            field->LostFocus = {};
    }

    bool isStart() const { return tela.name() == Register::startScreen(); }
    /// Opens a window as large as the user has left it the last time, if there was one.
    std::unique_ptr<desktop::ScreenWindow> open(screen::Screen& screen, QWidget* below = nullptr) {
        auto opened = std::make_unique<desktop::ScreenWindow>(screen, below);
        opened->restoreSize();
        opened->show();
        settle(*opened);
        opened->complete();
        settle(*opened);
        return opened;
    }
    /// On another display the window was larger than any.
    void leaveHuge(screen::Screen& screen) {
        desktop::ScreenWindow last(screen, nullptr);
        last.resize(20000, 20000);
        last.rememberSize();
    }

    QWidget& widgetOf(const screen::Field& field) { return window->binder().binding(field)->widget(); }
    static QRect freeArea() { return QGuiApplication::primaryScreen()->availableGeometry(); }
    static void expectInside(const QWidget& shown, const char* when) {
        EXPECT_TRUE(freeArea().contains(shown.frameGeometry()))
            << when << ' ' << told(shown.frameGeometry()) << " in " << told(freeArea());
    }

    void expectActionsInView();
    void expectNothingClipped();
    void expectFocusInView();

    TestPlatform platform;
    Register registro{platform};
    screen::Screen& tela;
    std::unique_ptr<desktop::ScreenWindow> window;
};

void Room::expectActionsInView() {
    int found = 0;
    for (const char* action :
         {"cmdPESQUISAR", "cmdINCLUIR", "cmdALTERAR", "cmdEXCLUIR", "cmdReativar", "cmdSALVAR", "cmdIMPRIMIR",
          "cmdInfo", "cmdSAIR", "cmdPesquisa", "cmdLimpar", "cmdEspecialMun", "Command1"})
        if (const screen::Field* field = tela.findField(QLatin1StringView(action))) {
            ++found;
            EXPECT_TRUE(isInView(widgetOf(*field))) << field->name();
        }
    EXPECT_GT(found, 0);
}

void Room::expectNothingClipped() {
    for (QTabWidget* tabs : window->findChildren<QTabWidget*>())
        for (int page = tabs->count() - 1; page >= 0; --page) {
            tabs->setCurrentIndex(page);
            QCoreApplication::processEvents();
            EXPECT_EQ(clipped(*window).join(u' '), "") << tabs->objectName() << page;
        }
    EXPECT_EQ(clipped(*window).join(u' '), "");
}

/// A field that gets the focus is scrolled to, all of it that finds room.
void Room::expectFocusInView() {
    window->activateWindow();
    const auto* scrolled = window->findChild<QAbstractScrollArea*>();
    for (screen::Field* field : tela.fields()) {
        if (!field->canFocus())
            continue;
        screen::showPageOf(*field);
        window->binder().flush();
        QWidget& widget = widgetOf(*field);
        widget.setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        EXPECT_EQ(window->focusWidget(), &widget) << field->name();
        const QSize room = scrolled->viewport()->size();
        if (widget.width() <= room.width() && widget.height() <= room.height())
            EXPECT_TRUE(isInView(widget)) << field->name();
    }
}

TEST_P(Room, AScreenStandsWithinItWholeAndUsable) {
    window = open(tela);
    expectInside(*window, "at the first opening");
    if (isStart())
        EXPECT_EQ(window->frameGeometry().left(), freeArea().left());
    expectActionsInView();
    expectNothingClipped();
    expectFocusInView();
    window.reset();
    leaveHuge(tela);
    window = open(tela);
    expectInside(*window, "after a larger display");
    expectActionsInView();
    if (isStart()) {
        screen::Screen& above = registro.context().Tela(u"frmBROWSE_PESSOAS"_s);
        above.setPlace(screen::Place::Centre);
        leaveHuge(above);
        const auto second = open(above, window.get());
        expectInside(*second, "above another");
        EXPECT_GT(second->frameGeometry().top(), window->frameGeometry().top()) << "the lower title is in sight";
    }
}

namespace {

std::vector<std::string> screenNames() {
    TestPlatform platform;
    std::vector<std::string> names;
    for (const QString& name : Register(platform).context().NomesTelas())
        names.push_back(name.toStdString());
    return names;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Screens, Room, testing::ValuesIn(screenNames()),
                         [](const auto& screenName) { return screenName.param; });

} // namespace vorta::test

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const vorta::desktop::DesktopApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    return RUN_ALL_TESTS();
}

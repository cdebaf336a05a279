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
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

constexpr int patience = 60000; ///< milliseconds

QString told(const QRect& rect) {
    return u"%1x%2+%3+%4"_s.arg(rect.width()).arg(rect.height()).arg(rect.left()).arg(rect.top());
}

/// Waits for what has to come, however busy the machine is, and looks whether it stays.
bool comes(const std::function<bool()>& condition) {
    if (!QTest::qWaitFor(condition, patience))
        return false;
    QTest::qWait(20);
    return condition();
}

/// The window with what the desktop draws around it. Its widget would say what it heard when it was moved last.
QRect outerOf(const QWidget& window) {
    return window.windowHandle()->frameGeometry();
}

/// Waits until the desktop has drawn its frame and given the window the keyboard.
void waitForFrame(QWidget& window) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, patience));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, patience));
    if (QGuiApplication::platformName() == u"xcb")
        ASSERT_TRUE(comes([&] { return !window.windowHandle()->frameMargins().isNull(); }));
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
        waitForFrame(*opened);
        opened->complete();
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
        EXPECT_TRUE(comes([&] { return freeArea().contains(outerOf(shown)); }))
            << when << ' ' << told(outerOf(shown)) << " in " << told(freeArea());
    }
    /// Keeps what the display shows, when somebody wants to look.
    void picture(const QString& of);

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
            EXPECT_TRUE(comes([&] { return isInView(widgetOf(*field)); })) << field->name();
        }
    EXPECT_GT(found, 0);
}

void Room::expectNothingClipped() {
    for (QTabWidget* tabs : window->findChildren<QTabWidget*>())
        for (int page = tabs->count() - 1; page >= 0; --page) {
            tabs->setCurrentIndex(page);
            QCoreApplication::processEvents();
            EXPECT_EQ(clipped(*window).join(u' '), "") << tabs->objectName() << page;
            picture(u"%1 %2"_s.arg(tabs->objectName()).arg(page));
        }
    EXPECT_EQ(clipped(*window).join(u' '), "");
    picture(u"whole"_s);
}

void Room::picture(const QString& of) {
    const QString folder = qEnvironmentVariable("VORTA_TEST_PICTURES");
    if (folder.isEmpty())
        return;
    QCoreApplication::processEvents();
    const QPixmap shown = QGuiApplication::primaryScreen()->grabWindow(0);
    EXPECT_TRUE(QDir().mkpath(folder) && shown.save(u"%1/%2 %3.png"_s.arg(folder, tela.name(), of)));
}

/// A field that gets the focus is scrolled to, all of it that finds room.
void Room::expectFocusInView() {
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
            EXPECT_TRUE(QTest::qWaitFor([&] { return isInView(widget); }, patience)) << field->name();
    }
}

TEST_P(Room, AScreenStandsWithinItWholeAndUsable) {
    window = open(tela);
    expectInside(*window, "at the first opening");
    if (isStart())
        EXPECT_EQ(outerOf(*window).left(), freeArea().left());
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
        EXPECT_TRUE(comes([&] { return outerOf(*second).top() > outerOf(*window).top(); }))
            << "the lower title is in sight";
        picture(u"above"_s);
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

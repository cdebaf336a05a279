#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "desktop/DesktopApplication.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/MessageBox.h"
#include "desktop/ScreenWindow.h"
#include "screen/Program.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>

namespace vorta::test {

using screen::Answer;
using screen::Box;
using screen::Buttons;
using screen::Icon;

namespace {

QStringList captionsFromLeft(QMessageBox& shown) {
    shown.show();
    QList<QAbstractButton*> buttons = shown.buttons();
    std::ranges::sort(buttons, {}, [](const QAbstractButton* button) { return button->x(); });
    QStringList captions;
    for (const QAbstractButton* button : buttons)
        captions += button->text().remove(u'&');
    return captions;
}

/// A small screen under the name of one that has a form.
struct Menu : screen::Screen {
    explicit Menu(screen::Program& program, const char* name = "frmInfoPess") : Screen(program, QLatin1String(name)) {}
    screen::Button cmdEspecialMun{this, "cmdEspecialMun", u"Especial Municipios"_s};
    screen::Button cmdSAIR{this, "cmdSAIR", u"Sai&r"_s};
};

/// Does something once the event loop runs.
void later(std::function<void()> body) {
    QTimer::singleShot(0, qApp, std::move(body));
}

void click(desktop::DesktopPlatform& platform, const char* name) {
    QTest::mouseClick(platform.top()->findChild<QAbstractButton*>(QLatin1String(name)), Qt::LeftButton);
}

} // namespace

TEST(MessageBox, SpeaksPortugueseInTheOrderOfTheTexts) {
    const Box box{u"a\nb <c>"_s, {}, Icon::Critical, Buttons::YesNoCancel};
    const auto shown = desktop::MakeMessageBox(box, nullptr);
    EXPECT_EQ(shown->windowTitle(), u"Cadastro de Pessoas");
    EXPECT_EQ(shown->text(), u"a\nb <c>");
    EXPECT_EQ(shown->textFormat(), Qt::PlainText);
    EXPECT_EQ(shown->icon(), QMessageBox::Critical);
    EXPECT_EQ(captionsFromLeft(*shown), QStringList({"Sim", "Não", "Cancela"}));
    EXPECT_EQ(shown->defaultButton()->text(), u"&Sim");
}

TEST(MessageBox, KeepsATitleAndAnIcon) {
    const auto shown = desktop::MakeMessageBox({u"x"_s, u"Inclusão"_s, Icon::Information}, nullptr);
    EXPECT_EQ(shown->windowTitle(), u"Inclusão");
    EXPECT_EQ(shown->icon(), QMessageBox::Information);
    EXPECT_EQ(captionsFromLeft(*shown), QStringList({"OK"}));
}

/// The frame has an icon, three buttons and letters of its own beside the title.
TEST(MessageBox, IsWideEnoughForItsTitle) {
    const QString title = u"ERP VORTA - Nexoria - Release 2015.07.24"_s;
    const auto shown = desktop::MakeMessageBox({u"Confirma?"_s, title, Icon::None, Buttons::YesNo}, nullptr);
    shown->show();
    QFont bold = QApplication::font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    EXPECT_GE(shown->width(), metrics.horizontalAdvance(title) + 4 * metrics.height());
    EXPECT_LE(shown->width(), shown->screen()->availableSize().width());
}

TEST(MessageBox, EscapeGivesTheAnswerThatKeepsWhatWasTyped) {
    for (const auto& [buttons, wanted] : {std::pair{Buttons::OK, Answer::OK}, {Buttons::YesNoCancel, Answer::No}}) {
        const auto shown = desktop::MakeMessageBox({u"?"_s, {}, Icon::None, buttons}, nullptr);
        later([&] { QTest::keyClick(shown.get(), Qt::Key_Escape); });
        shown->exec();
        EXPECT_EQ(desktop::AnswerOf(*shown), wanted);
    }
}

TEST(MessageBox, ABoxOfYesAndNoKnowsNoOtherWayOut) {
    const auto shown = desktop::MakeMessageBox({u"?"_s, {}, Icon::None, Buttons::YesNo}, nullptr);
    EXPECT_EQ(captionsFromLeft(*shown), QStringList({"Sim", "Não"}));
    EXPECT_FALSE(shown->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QTest::keyClick(shown.get(), Qt::Key_Escape);
    EXPECT_TRUE(shown->isVisible());
    shown->close();
    EXPECT_TRUE(shown->isVisible());
    QTest::mouseClick(desktop::ButtonOf(*shown, Answer::No), Qt::LeftButton);
    EXPECT_FALSE(shown->isVisible());
    EXPECT_EQ(desktop::AnswerOf(*shown), Answer::No);
}

TEST(MessageBox, AKeyThatIsHeldDownAnswersNothing) {
    const auto shown = desktop::MakeMessageBox({u"?"_s, {}, Icon::None, Buttons::YesNo}, nullptr);
    shown->show();
    for (QWidget* target : std::initializer_list<QWidget*>{shown.get(), shown->defaultButton()}) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QCoreApplication::sendEvent(target, &held);
        EXPECT_TRUE(shown->isVisible());
    }
    QTest::keyClick(shown->defaultButton(), Qt::Key_Return);
    EXPECT_FALSE(shown->isVisible());
}

TEST(MessageBox, EveryButtonGivesItsAnswer) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        const auto shown = desktop::MakeMessageBox({u"?"_s, {}, Icon::None, Buttons::YesNoCancel}, nullptr);
        later([&] { QTest::mouseClick(desktop::ButtonOf(*shown, answer), Qt::LeftButton); });
        shown->exec();
        EXPECT_EQ(desktop::AnswerOf(*shown), answer);
    }
}

TEST(DesktopPlatform, AModalScreenEndsWithItsUnload) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    menu.setCaption(u"Título da tela"_s);
    menu.cmdSAIR.Click = [&] { menu.Unload(); };
    QString title;
    later([&] {
        title = platform.top()->windowTitle();
        click(platform, "cmdSAIR");
    });
    EXPECT_TRUE(program.dispatch([&] { program.ShowModal(menu); }));
    EXPECT_EQ(title, u"Título da tela");
    EXPECT_EQ(platform.top(), nullptr);
}

TEST(DesktopPlatform, AWindowHasThePictureOfTheProgram) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    bool picture = false;
    later([&] {
        platform.top()->complete();
        picture = !platform.top()->windowIcon().pixmap(32, 32).isNull();
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    EXPECT_TRUE(picture);
}

TEST(DesktopPlatform, TheFrameClosesAScreen) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    later([&] { platform.top()->close(); });
    EXPECT_TRUE(program.dispatch([&] { program.ShowModal(menu); }));
    EXPECT_FALSE(menu.isLoaded());
}

TEST(DesktopPlatform, EscapeClosesNothing) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    bool stillThere = false;
    later([&] {
        QTest::keyClick(platform.top(), Qt::Key_Escape);
        stillThere = menu.isLoaded() && platform.top()->isVisible();
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    EXPECT_TRUE(stillThere);
}

TEST(DesktopPlatform, TheEndLeavesEveryModalWait) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu below(program);
    Menu above(program, "frmInfoPess");
    bool wentOn = false;
    below.cmdEspecialMun.Click = [&] {
        program.ShowModal(above);
        wentOn = true;
    };
    above.cmdSAIR.Click = [&] { program.End(); };
    later([&] {
        later([&] { click(platform, "cmdSAIR"); });
        click(platform, "cmdEspecialMun");
    });
    EXPECT_FALSE(program.dispatch([&] { program.ShowModal(below); }));
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(platform.top(), nullptr);
}

TEST(DesktopPlatform, ARunTimeErrorShowsItsBoxAndEnds) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    menu.cmdSAIR.Click = [] { throw RuntimeError(13, u"Tipo incompatível"_s); };
    QString text;
    later([&] {
        later([&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            text = box->text();
            box->buttons().first()->click();
        });
        click(platform, "cmdSAIR");
    });
    EXPECT_FALSE(program.dispatch([&] { program.ShowModal(menu); }));
    EXPECT_EQ(text, u"Erro 13\n\nTipo incompatível");
    EXPECT_EQ(program.exitCode(), 1);
}

#ifdef Q_OS_UNIX
TEST(DesktopPlatform, TheSystemsWishEndsTheProgramInOrder) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    int closed = 0;
    bool wentOn = false;
    program.onEnd = [&] { ++closed; };
    menu.cmdSAIR.Click = [&] {
        program.MsgBox(u"Alguém aí?"_s);
        wentOn = true;
    };
    later([&] {
        later([] { std::raise(SIGTERM); });
        click(platform, "cmdSAIR");
    });
    EXPECT_FALSE(program.dispatch([&] { program.ShowModal(menu); }));
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(program.exitCode(), 0);
}

TEST(DesktopPlatform, TheSystemsWishEndsALaunchThatIsStuckInABox) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    bool loaded = false;
    later([] { std::raise(SIGTERM); });
    EXPECT_FALSE(program.dispatch([&] {
        program.MsgBox(u"O Servidor não está respondendo."_s);
        program.MsgBox(u"Ainda não."_s);
        program.ShowModal(menu);
        loaded = true;
    }));
    EXPECT_FALSE(loaded);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.exitCode(), 0);
}
#endif

TEST(DesktopPlatform, AScreenKeepsItsSize) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    later([&] {
        platform.top()->resize(555, 444);
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    QSize found;
    Menu again(program);
    later([&] {
        found = platform.top()->size();
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(again); });
    EXPECT_EQ(found, QSize(555, 444));
}

TEST(DesktopPlatform, AScreenStandsWhereItSays) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    menu.setPlace(screen::Place::Centre);
    QList<QPoint> off;
    later([&] {
        desktop::ScreenWindow& window = *platform.top();
        const auto note = [&] { off += window.frameGeometry().center() - window.screen()->geometry().center(); };
        window.resize(300, 200);
        window.complete();
        note();
        window.move(1, 2);
        menu.setPlace(screen::Place::Centre);
        window.binder().flush();
        note();
        window.close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    ASSERT_EQ(off.size(), 2);
    for (const QPoint& one : off) {
        EXPECT_LE(std::abs(one.x()), 1);
        EXPECT_LE(std::abs(one.y()), 1);
    }
}

TEST(DesktopPlatform, TheFrameAsksTheScreen) {
    struct Careful : Menu {
        using Menu::Menu;
        void CloseByFrame() override {
            if (++wishes == 2)
                Unload();
        }
        int wishes = 0;
    };
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Careful menu(program);
    bool stillThere = false;
    later([&] {
        platform.top()->close();
        stillThere = menu.isLoaded() && platform.top()->isVisible();
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    EXPECT_TRUE(stillThere);
    EXPECT_FALSE(menu.isLoaded());
}

TEST(DesktopPlatform, APreparedWindowIsTheOneThatIsShown) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    platform.prepare(menu);
    EXPECT_EQ(platform.top(), nullptr);
    menu.cmdEspecialMun.setText(u"mudou depois"_s);
    QString shown;
    later([&] {
        shown = platform.top()->findChild<QAbstractButton*>(u"cmdEspecialMun"_s)->text();
        click(platform, "cmdSAIR");
    });
    menu.cmdSAIR.Click = [&] { menu.Unload(); };
    EXPECT_TRUE(program.dispatch([&] { program.ShowModal(menu); }));
    EXPECT_EQ(shown, u"mudou depois");
}

TEST(DesktopPlatform, AnotherScreensPreparedWindowStaysBehind) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu shown(program);
    {
        Menu gone(program);
        platform.prepare(gone);
        later([&] { platform.top()->close(); });
        EXPECT_TRUE(program.dispatch([&] { program.ShowModal(shown); }));
        platform.dropPrepared();
    }
    EXPECT_FALSE(shown.isLoaded());
}

TEST(DesktopPlatform, LongWorkShowsHourglassAndBar) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    bool bar = false;
    Qt::CursorShape shape = Qt::ArrowCursor;
    Qt::CursorShape after = Qt::WaitCursor;
    menu.cmdEspecialMun.Click = [&] {
        menu.setPointer(screen::Pointer::Hourglass);
        platform.progress(1, 10);
        shape = platform.top()->cursor().shape();
        bar = platform.top()->findChild<QWidget*>(u"progresso"_s)->isVisible();
        platform.progress(0, 0);
        menu.setPointer(screen::Pointer::Default);
    };
    later([&] {
        click(platform, "cmdEspecialMun");
        after = platform.top()->cursor().shape();
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    EXPECT_TRUE(bar);
    EXPECT_EQ(shape, Qt::WaitCursor);
    EXPECT_EQ(after, Qt::ArrowCursor);
}

/// Enter pressed while a handler is at work, which then asks something: after long work it is no answer, after short
/// work it is. Gives how many boxes were still there for the user to answer.
namespace {

struct TypedMeanwhile {
    bool boxWaited = false;
    int clicks = 0;
};

TypedMeanwhile typesEnterDuringWorkOf(int milliseconds) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    TypedMeanwhile outcome;
    const auto enter = [] { QTest::keyClick(QApplication::activeWindow(), Qt::Key_Return); };
    menu.cmdEspecialMun.Click = [&] {
        if (++outcome.clicks > 1)
            return;
        menu.setPointer(screen::Pointer::Hourglass);
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        QTimer::singleShot(0, qApp, enter); // comes at the next look at what the user does
        QTimer::singleShot(100, qApp, [&] {
            outcome.boxWaited = QApplication::activeModalWidget() != platform.top();
            if (outcome.boxWaited)
                enter();
        });
        program.MsgBox(u"Nada encontrado"_s);
        menu.setPointer(screen::Pointer::Default);
    };
    later([&] {
        click(platform, "cmdEspecialMun");
        QTest::qWait(200);
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    return outcome;
}

} // namespace

TEST(DesktopPlatform, WhatIsTypedDuringLongWorkIsNoAnswer) {
    EXPECT_TRUE(typesEnterDuringWorkOf(600).boxWaited);
}

TEST(DesktopPlatform, WhatIsTypedDuringShortWorkIs) {
    EXPECT_FALSE(typesEnterDuringWorkOf(10).boxWaited);
}

TEST(DesktopPlatform, WhatIsClickedDuringLongWorkActsNotBehindIt) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    int clicks = 0;
    menu.cmdEspecialMun.Click = [&] {
        ++clicks;
        menu.setPointer(screen::Pointer::Hourglass);
        QThread::msleep(600);
        if (clicks == 1)
            QTimer::singleShot(0, qApp, [&] { click(platform, "cmdEspecialMun"); });
        menu.setPointer(screen::Pointer::Default);
    };
    later([&] {
        click(platform, "cmdEspecialMun");
        QTest::qWait(50);
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    EXPECT_EQ(clicks, 1);
}

/// Nobody knows yet how many rows there will be: the bar moves to and fro, and then from its beginning to its end.
TEST(DesktopPlatform, WorkWithoutATotalMovesTheBarToAndFro) {
    desktop::DesktopPlatform platform;
    screen::Program program(platform);
    Menu menu(program);
    int begins = 0;
    QSet<int> places;
    menu.cmdEspecialMun.Click = [&] {
        auto* bar = platform.top()->findChild<QProgressBar*>(u"progresso"_s);
        menu.setPointer(screen::Pointer::Hourglass);
        platform.progress(1, screen::unknownTotal);
        EXPECT_TRUE(bar->isVisible());
        EXPECT_EQ(bar->maximum(), 0);
        for (int rows = 2; rows < 40; ++rows) {
            QThread::msleep(20);
            platform.progress(rows, screen::unknownTotal);
            const QImage now = bar->grab().toImage();
            const QRgb filled = bar->palette().highlight().color().rgb();
            int width = 0;
            for (int x = now.width() - 1; x >= 0; --x)
                if (now.pixel(x, now.height() / 2) == filled) {
                    ++width;
                    begins = x;
                }
            EXPECT_GT(width, 0);
            EXPECT_LT(width, now.width() / 2) << "it is told from work that is done";
            places.insert(begins);
        }
        QThread::msleep(50);
        platform.progress(5, 10);
        EXPECT_EQ(bar->maximum(), 2 * bar->value());
        platform.progress(0, 0);
        EXPECT_FALSE(bar->isVisible());
        menu.setPointer(screen::Pointer::Default);
    };
    later([&] {
        click(platform, "cmdEspecialMun");
        platform.top()->close();
    });
    program.dispatch([&] { program.ShowModal(menu); });
    EXPECT_GT(places.size(), 5);
}

TEST(DesktopApplication, LetsNoExceptionIntoTheEventLoop) {
    auto& application = static_cast<desktop::DesktopApplication&>(*qApp);
    QString caught;
    application.onException = [&](const auto& raise) {
        try {
            raise();
        } catch (const std::exception& error) {
            caught = QString::fromUtf8(error.what());
        }
    };
    QPushButton button;
    QObject::connect(&button, &QPushButton::clicked, [] { throw std::runtime_error("aqui não"); });
    button.show();
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(caught, u"aqui não");
    application.onException = {};
}

TEST(DesktopPlatform, TheHomeIsToldOrTheSystemsOwn) {
    const desktop::DesktopPlatform platform;
    qputenv("VORTA_HOME", "/tmp/vorta/");
    EXPECT_EQ(platform.home(), u"/tmp/vorta");
    qunsetenv("VORTA_HOME");
#ifdef Q_OS_LINUX
    EXPECT_EQ(platform.home(), u"/opt/vorta");
#endif
}

} // namespace vorta::test

// What takes a list out of a window: keys, the menu, the question for a file, a page as PDF.

#include "SampleWindow.h"
#include "base/RuntimeError.h"
#include "desktop/AskForFile.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/Pdf.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QTemporaryDir>

namespace vorta::test {

namespace {

/// Notes what would go to the clipboard.
struct ListPlatform : TestPlatform {
    void putOnClipboard(const QString& text) override { copied += text; }
    QStringList copied;
};

/// A window with a grid of two columns, one of them hidden, and three rows.
struct Lists : testing::Test, protected WorldOn<ListPlatform> {
    Lists() {
        tela.Flex.reset({{u"ID"_s, 0}, {u"Nome"_s}});
        for (const char* row : {"1\tAna", "2\tBia", "3\tCarla"})
            tela.Flex.AddItem(QString::fromLatin1(row));
        tela.Flex.setRow(2);
    }

    /// Does something while the screen is open in its window.
    void open(const std::function<void()>& body) {
        platform.whenShown(tela.name(), [&](screen::Screen&) {
            shown.show();
            body();
        });
        program.dispatch([&] { program.ShowModal(tela); });
    }

    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

    struct GridScreen : screen::Screen {
        explicit GridScreen(screen::Program& program) : Screen(program, u"frmGrade"_s) {}
        screen::TextField txtNome{this, "txtNome"};
        screen::Grid Flex{this, "Flex"};
    } tela{program};

    struct Shown {
        explicit Shown(GridScreen& screen, screen::User& user) {
            line.setObjectName(u"txtNome"_s);
            view.setObjectName(u"Flex"_s);
            auto* layout = new QVBoxLayout(&window);
            layout->addWidget(&line);
            layout->addWidget(&view);
            binder = std::make_unique<desktop::Binder>(screen, user, window, window);
        }
        void show() {
            window.show();
            binder->flush();
        }
        QWidget window;
        QLineEdit line;
        QTableView view;
        std::unique_ptr<desktop::Binder> binder;
    } shown{tela, user};
};

} // namespace

TEST_F(Lists, CtrlCTakesTheShownCellsOfTheRow) {
    open([&] {
        QTest::keyClick(&shown.view, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(platform.copied, QStringList{u"Bia"_s});
    });
}

TEST_F(Lists, TheMenuOpensByKeyOnTheCurrentRowAndByMouseOnTheOneBelowIt) {
    open([&] {
        QTest::keyClick(&shown.view, Qt::Key_F10, Qt::ShiftModifier);
        ASSERT_TRUE(openMenu());
        QStringList captions;
        for (const QAction* action : openMenu()->actions())
            captions += action->text();
        EXPECT_EQ(captions, (QStringList{u"&Copiar a linha\tCtrl+C"_s, u"Copiar &tudo"_s, u"&Salvar como CSV..."_s}));
        openMenu()->actions()[0]->trigger();
        openMenu()->close();
        QCoreApplication::processEvents();
        EXPECT_EQ(platform.copied, QStringList{u"Bia"_s});

        const QPoint first = shown.view.visualRect(shown.view.model()->index(0, 1)).center();
        QContextMenuEvent wish(QContextMenuEvent::Mouse, first, shown.view.viewport()->mapToGlobal(first));
        QCoreApplication::sendEvent(shown.view.viewport(), &wish);
        ASSERT_TRUE(openMenu());
        EXPECT_EQ(tela.Flex.Row(), 1);
        openMenu()->actions()[1]->trigger();
        openMenu()->close();
        QCoreApplication::processEvents();
        EXPECT_EQ(platform.copied.last(), u"Nome\nAna\nBia\nCarla\n");
    });
}

TEST_F(Lists, WithoutARowThereIsNothingToCopy) {
    open([&] {
        tela.Flex.setRow(0);
        QTest::keyClick(&shown.view, Qt::Key_C, Qt::ControlModifier);
        QTest::keyClick(&shown.view, Qt::Key_F10, Qt::ShiftModifier);
        ASSERT_TRUE(openMenu());
        EXPECT_FALSE(openMenu()->actions()[0]->isEnabled());
        EXPECT_TRUE(openMenu()->actions()[1]->isEnabled());
        openMenu()->close();
        EXPECT_EQ(platform.copied, QStringList());
    });
}

TEST(Pdf, IsWrittenWholeOrNotAtAll) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"ficha.pdf"_s);
    desktop::WritePdf(u"<h1>Ana &amp; Bia</h1>"_s, path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.startsWith("%PDF-"));
    EXPECT_TRUE(content.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(ErrorOf([&] { desktop::WritePdf({}, folder.filePath(u"nada/ficha.pdf"_s)); }), errorNumber::PathRefused);
}

TEST(FileDialog, SpeaksPortugueseAndKnowsTheKindOfFile) {
    const auto dialog = desktop::MakeFileDialog(u"lista.csv"_s, nullptr);
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    EXPECT_EQ(dialog->windowTitle(), u"Salvar");
    EXPECT_EQ(dialog->defaultSuffix(), u"csv");
    EXPECT_EQ(dialog->selectedFiles().value(0).section(u'/', -1), u"lista.csv");
    EXPECT_EQ(dialog->labelText(QFileDialog::Accept), u"&Salvar");
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
}

TEST(Moments, OfTheDesktopBecomeOne) {
    desktop::DesktopPlatform platform;
    QStringList done;
    platform.soon([&] { done += u"um"_s; });
    platform.soon([&] { done += u"dois"_s; });
    EXPECT_EQ(done, QStringList());
    QTest::qWait(600);
    EXPECT_EQ(done, QStringList{u"dois"_s});
}

} // namespace vorta::test

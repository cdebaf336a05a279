#include "SampleWindow.h"
#include "base/Literals.h"

#include "base/RuntimeError.h"
#include "desktop/GridModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTabBar>

namespace vorta::test {

using SampleBinder = SampleWindow;

namespace {

QPoint centreOf(const QTableView& grid, int row, int col) {
    return grid.visualRect(grid.model()->index(row - 1, col)).center();
}

} // namespace

TEST_F(SampleBinder, AClickMovesTheFocusFirst) {
    open([&] {
        put(tela.txtNome);
        QTest::mouseClick(salvar, Qt::LeftButton);
        EXPECT_EQ(tela.events, QStringList({"lost txtNome", "got cmdSALVAR", "click cmdSALVAR"}));
        EXPECT_EQ(window.focusWidget(), salvar);
    });
}

TEST_F(SampleBinder, AFieldThatKeepsTheFocusStopsTheClick) {
    tela.txtNome.LostFocus = [&] { tela.SetFocus(tela.txtNome); };
    open([&] {
        put(tela.txtNome);
        QTest::mouseClick(salvar, Qt::LeftButton);
        EXPECT_FALSE(tela.events.contains("click cmdSALVAR"));
        EXPECT_EQ(tela.focus(), &tela.txtNome);
        EXPECT_EQ(window.focusWidget(), nome);
        QTest::mouseClick(cep, Qt::LeftButton);
        EXPECT_EQ(window.focusWidget(), nome);
    });
}

TEST_F(SampleBinder, KeysClickAButtonOnce) {
    open([&] {
        put(tela.cmdSALVAR);
        QTest::keyClick(salvar, Qt::Key_Return);
        QTest::keyClick(salvar, Qt::Key_Space);
        EXPECT_EQ(tela.events.count("click cmdSALVAR"), 2);
    });
}

TEST_F(SampleBinder, AnAcceleratorClicks) {
    open([&] {
        put(tela.txtNome);
        QTest::keyClick(&window, Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return tela.events.contains("click cmdSALVAR"); }, 2000));
        EXPECT_EQ(tela.events, QStringList({"lost txtNome", "got cmdSALVAR", "click cmdSALVAR"}));
    });
}

TEST_F(SampleBinder, OptionsExcludeEachOtherByTheirGroup) {
    open([&] {
        EXPECT_TRUE(nao->isChecked());
        QTest::mouseClick(sim, Qt::LeftButton, {}, QPoint(8, sim->height() / 2));
        EXPECT_TRUE(tela.opSim.value());
        EXPECT_TRUE(sim->isChecked());
        EXPECT_FALSE(nao->isChecked());
        QTest::mouseClick(sim, Qt::LeftButton, {}, QPoint(8, sim->height() / 2));
        EXPECT_TRUE(sim->isChecked()) << "a second click takes nothing off";
        QTest::keyClick(sim, Qt::Key_Down);
        EXPECT_TRUE(tela.opNao.value());
        EXPECT_EQ(window.focusWidget(), nao);
    });
}

TEST_F(SampleBinder, ACheckBoxTurnsOver) {
    open([&] {
        QTest::mouseClick(ativo, Qt::LeftButton, {}, QPoint(8, ativo->height() / 2));
        EXPECT_TRUE(tela.chkAtivo.checked());
        EXPECT_TRUE(ativo->isChecked());
        QTest::keyClick(ativo, Qt::Key_Space);
        EXPECT_FALSE(tela.chkAtivo.checked());
        EXPECT_FALSE(ativo->isChecked());
    });
}

TEST_F(SampleBinder, AGridReportsCellsAndHeaders) {
    tela.Flex.reset({{"ID", 0}, {"Nome", 1400}, {"Fone"}});
    for (int row = 1; row <= 5; ++row)
        tela.Flex.AddItem(u"%1\tNOME %1\tFONE %1"_s.arg(row));
    open([&] {
        EXPECT_TRUE(grade->isColumnHidden(0));
        EXPECT_EQ(grade->model()->headerData(1, Qt::Horizontal).toString(), u"Nome");
        EXPECT_EQ(grade->currentIndex().row(), 0);
        QTest::mouseClick(grade->viewport(), Qt::LeftButton, {}, centreOf(*grade, 3, 2));
        EXPECT_EQ(tela.Flex.Row(), 3);
        EXPECT_EQ(tela.Flex.Col(), 2);
        EXPECT_EQ(tela.events.last(), u"click Flex");
        QTest::mouseDClick(grade->viewport(), Qt::LeftButton, {}, centreOf(*grade, 3, 2));
        EXPECT_EQ(tela.events.count("double Flex"), 1);
        QTest::mouseClick(grade->horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(grade->horizontalHeader()->sectionViewportPosition(1) + 20, 5));
        EXPECT_EQ(tela.Flex.Row(), 0);
        EXPECT_FALSE(grade->selectionModel()->hasSelection());
    });
}

TEST_F(SampleBinder, ADoubleClickIsOneClickWhateverHappensToTheRows) {
    tela.Flex.reset({{"Nome"}});
    for (int row = 1; row <= 500; ++row)
        tela.Flex.AddItem(QString::number(row));
    int clicks = 0;
    tela.Flex.Click = [&] {
        ++clicks;
        tela.Flex.RemoveItem(tela.Flex.Row());
    };
    open([&] {
        const QPoint place = centreOf(*grade, 1, 0);
        for (int pair = 0; pair < 200; ++pair)
            for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                            QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
                QMouseEvent event(type, place, grade->viewport()->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                                  Qt::NoModifier);
                QCoreApplication::sendEvent(grade->viewport(), &event);
            }
        EXPECT_EQ(clicks, 200);
        EXPECT_EQ(tela.Flex.Rows(), 301);
        EXPECT_EQ(tela.events.count("double Flex"), 200);
    });
}

TEST_F(SampleBinder, EnterHeldDownWalksAsFarAsAButton) {
    tela.txtNome.enterMovesOn = true;
    open([&] {
        const auto hold = [](QWidget* widget) {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
            QCoreApplication::sendEvent(widget, &held);
        };
        put(tela.txtNome);
        hold(nome);
        EXPECT_EQ(tela.focus(), &tela.txtNota);
        put(tela.cmdSALVAR);
        hold(salvar);
        EXPECT_FALSE(tela.events.contains(u"click cmdSALVAR"_s));
        QTest::keyClick(salvar, Qt::Key_Return);
        EXPECT_TRUE(tela.events.contains(u"click cmdSALVAR"_s));
    });
}

TEST_F(SampleBinder, AltWithTheLetterOfADisabledButtonTypesNothing) {
    tela.cmdSALVAR.setEnabled(false);
    open([&] {
        put(tela.txtNome);
        QTest::keyClick(nome, Qt::Key_S, Qt::AltModifier);
        QTest::keyClick(nome, Qt::Key_Q, Qt::AltModifier);
        EXPECT_EQ(tela.txtNome.text(), u"");
        QTest::keyClick(nome, Qt::Key_Q);
        EXPECT_EQ(tela.txtNome.text(), u"q");
    });
}

TEST_F(SampleBinder, KeysWalkAGridAndEnterChooses) {
    tela.Flex.reset({{"Nome"}});
    tela.Flex.AddItem(u"A"_s);
    tela.Flex.AddItem(u"B"_s);
    open([&] {
        put(tela.Flex);
        QTest::keyClick(grade, Qt::Key_Down);
        EXPECT_EQ(tela.Flex.Row(), 2);
        EXPECT_TRUE(tela.events.isEmpty()) << "walking is no click";
        QTest::keyClick(grade, Qt::Key_Return);
        EXPECT_EQ(tela.events, QStringList({"click Flex", "double Flex"}));
        tela.Flex.setRow(0);
        settle();
        QTest::keyClick(grade, Qt::Key_Return);
        EXPECT_EQ(tela.events.size(), 2);
    });
}

/// The first rows come up at once; the rest is shown when the work is over.
TEST_F(SampleBinder, AGridThatFillsForLongShowsItsFirstRows) {
    tela.Flex.reset({{"ID", 0}, {"Nome"}, {"Fone"}});
    open([&] {
        const auto add = [&](int rows) {
            for (int row = 0; row < rows; ++row)
                tela.Flex.AddItem(u"%1\tNOME %1\t"_s.arg(tela.Flex.Rows()));
            settle();
        };
        tela.setPointer(screen::Pointer::Hourglass);
        add(2);
        EXPECT_EQ(grade->model()->rowCount(), 2);
        add(1000);
        EXPECT_EQ(grade->model()->rowCount(), 1002) << "a page may not have been full yet";
        add(1000);
        EXPECT_EQ(grade->model()->rowCount(), 1002);
        tela.setPointer(screen::Pointer::Default);
        settle();
        EXPECT_EQ(grade->model()->rowCount(), 2002);
        EXPECT_EQ(grade->model()->index(2001, 1).data().toString(), u"NOME 2002");
    });
}

TEST_F(SampleBinder, AGridOfAMillionRowsIsAskedOnlyForWhatItShows) {
    tela.Flex.reset({{"ID", 0}, {"Nome"}, {"Fone"}});
    for (int row = 1; row <= 1'000'000; ++row)
        tela.Flex.AddItem(u"%1\tNOME %1\t"_s.arg(row));
    open([&] {
        const auto& model = static_cast<const desktop::GridModel&>(*grade->model());
        EXPECT_EQ(model.rowCount(), 1'000'000);
        EXPECT_LT(model.cellsAsked(), 2000u);
        const quint64 before = model.cellsAsked();
        tela.Flex.setTopRow(700'000);
        settle();
        QTest::qWait(1);
        EXPECT_EQ(grade->rowAt(2), 699'999);
        EXPECT_LT(model.cellsAsked() - before, 2000u);
        grade->verticalScrollBar()->setValue(10);
        EXPECT_EQ(tela.Flex.TopRow(), 11);
    });
}

TEST_F(SampleBinder, AShrunkenGridIsAskedForNothingThatIsGone) {
    tela.Flex.reset({{"Nome"}, {"Fone"}});
    for (int row = 1; row <= 50; ++row)
        tela.Flex.AddItem(u"A\tB"_s);
    open([&] {
        tela.Flex.reset({{"Nome"}});
        window.repaint();
        settle();
        EXPECT_EQ(grade->model()->rowCount(), 0);
        EXPECT_EQ(grade->model()->columnCount(), 1);
    });
}

TEST_F(SampleBinder, PagesComeByTheMouseAndByTheField) {
    open([&] {
        put(tela.txtNome);
        QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());
        EXPECT_EQ(tela.tabs.current(), 1);
        EXPECT_EQ(tabs->currentIndex(), 1);
        EXPECT_EQ(tela.focus(), &tela.txtNome) << "a change of page moves no focus";
        EXPECT_TRUE(tela.events.isEmpty());
        user.focus(tela.txtNome);
        settle();
        EXPECT_EQ(tabs->currentIndex(), 0);
        QTest::keyClick(nome, Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(tabs->currentIndex(), 1);
        EXPECT_EQ(tabs->tabText(1), u"Dois");
    });
}

TEST_F(SampleBinder, TypingOnANewPageBringsTheFocusAlong) {
    open([&] {
        put(tela.txtNome);
        QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());
        ASSERT_EQ(window.focusWidget(), outro);
        QTest::keyClicks(outro, "a");
        EXPECT_EQ(tela.focus(), &tela.txtOutro);
        EXPECT_EQ(tela.txtOutro.text(), u"a");
        EXPECT_EQ(tela.events, QStringList({"lost txtNome", "got txtOutro"}));
    });
}

TEST_F(SampleBinder, AFocusThatTheWindowGivesIsAskedFor) {
    open([&] {
        put(tela.txtNome);
        cep->setFocus(Qt::ShortcutFocusReason);
        settle();
        EXPECT_EQ(tela.focus(), &tela.mskCEP);
        tela.mskCEP.LostFocus = [&] { tela.SetFocus(tela.mskCEP); };
        nome->setFocus(Qt::ShortcutFocusReason);
        settle();
        EXPECT_EQ(tela.focus(), &tela.mskCEP);
        EXPECT_EQ(window.focusWidget(), cep);
    });
}

TEST_F(SampleBinder, LabelsAndPicturesAreClicked) {
    open([&] {
        EXPECT_EQ(titulo->text(), u"Título");
        put(tela.txtNome);
        QTest::mouseClick(titulo, Qt::LeftButton);
        EXPECT_EQ(tela.events, QStringList({"click lblTitulo"}));
        QTest::mouseDClick(foto, Qt::LeftButton);
        EXPECT_TRUE(tela.events.contains("double imgFoto"));
    });
}

TEST_F(SampleBinder, ALabelShowsItsTextAsItStands) {
    open([&] {
        tela.lblTitulo.setText(u"<b>A & B</b>"_s);
        settle();
        EXPECT_EQ(titulo->text(), u"<b>A & B</b>");
        EXPECT_EQ(titulo->textFormat(), Qt::PlainText);
    });
}

TEST_F(SampleBinder, AButtonShowsItsPicture) {
    platform.everyFileExists = true;
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    const QString path = QDir::tempPath() + u"/vorta_picture.bmp"_s;
    ASSERT_TRUE(picture.save(path));
    open([&] {
        EXPECT_TRUE(salvar->icon().isNull());
        tela.cmdSALVAR.loadPicture(path);
        settle();
        EXPECT_FALSE(salvar->icon().isNull());
        tela.imgFoto.loadPicture(path);
        settle();
        EXPECT_FALSE(foto->pixmap(Qt::ReturnByValue).isNull());
    });
    QFile::remove(path);
}

/// On the pixels: the ground of an option is another part of its palette than that of a label.
TEST_F(SampleBinder, EveryKindOfFieldIsPaintedInItsColour) {
    tela.Flex.reset({{u"Nome"_s}});
    for (screen::Field* field : tela.fields())
        field->setBackground(screen::colour::Red);
    open([&] {
        for (QWidget* widget : std::initializer_list<QWidget*>{titulo, nome, nota, cep, cidade->lineEdit(), log, sim,
                                                               ativo, grade->viewport(), foto}) {
            const QImage shown = widget->grab().toImage();
            EXPECT_EQ(shown.pixelColor(shown.width() * 3 / 4, shown.height() * 3 / 4), QColor(Qt::red))
                << widget->objectName();
        }
    });
}

TEST_F(SampleBinder, TheEndOfTheScreenIsReportedOnce) {
    int over = 0;
    open([&] {
        binder->onOver = [&] { ++over; };
        tela.cmdSALVAR.Click = [&] { tela.Unload(); };
        QTest::mouseClick(salvar, Qt::LeftButton);
        EXPECT_EQ(over, 1);
    });
}

TEST_F(SampleBinder, ARunTimeErrorEndsTheProgramInOrder) {
    open([&] {
        int over = 0;
        binder->onOver = [&] { ++over; };
        tela.cmdSALVAR.Click = [] { throw RuntimeError(errorNumber::InvalidNull); };
        QTest::mouseClick(salvar, Qt::LeftButton);
        EXPECT_EQ(over, 1);
        EXPECT_TRUE(program.hasEnded());
        EXPECT_EQ(program.exitCode(), 1);
        ASSERT_EQ(platform.boxes.size(), 1u);
        EXPECT_TRUE(platform.boxes[0].text.startsWith(u"Erro 94"));
    });
}

} // namespace vorta::test

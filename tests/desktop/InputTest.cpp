#include "SampleWindow.h"
#include "base/Literals.h"

#include <QClipboard>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>

namespace vorta::test {

using SampleInput = SampleWindow;

TEST_F(SampleInput, TypedTextReachesTheField) {
    open([&] {
        put(tela.txtNome);
        QTest::keyClicks(nome, "Maria");
        EXPECT_EQ(tela.txtNome.text(), u"Maria");
        QTest::keyClick(nome, Qt::Key_Backspace);
        QTest::keyClick(nome, Qt::Key_Home);
        QTest::keyClick(nome, Qt::Key_Delete);
        EXPECT_EQ(tela.txtNome.text(), u"ari");
        EXPECT_EQ(nome->text(), u"ari");
    });
}

TEST_F(SampleInput, TheFieldShowsWhatTheScreenWrites) {
    open([&] {
        tela.txtNome.setText(u"JOÃO"_s);
        tela.txtNome.setToolTip(u"dica"_s);
        tela.txtNome.setLocked(true);
        tela.txtNome.setBackground(screen::colour::Locked);
        settle();
        EXPECT_EQ(nome->text(), u"JOÃO");
        EXPECT_EQ(nome->toolTip(), u"dica");
        EXPECT_TRUE(nome->isReadOnly());
        EXPECT_NE(nome->palette().color(QPalette::Base), window.palette().color(QPalette::Base));
        tela.txtNome.setBackground(255);
        tela.txtNome.setEnabled(false);
        settle();
        EXPECT_EQ(nome->palette().color(QPalette::Base), QColor(255, 0, 0)) << "the red byte is the lowest";
        EXPECT_FALSE(nome->isEnabled());
        tela.txtNome.setVisible(false);
        settle();
        EXPECT_FALSE(nome->isVisible());
    });
}

TEST_F(SampleInput, AFieldsRulesChangeWhatIsTyped) {
    tela.txtNome.apostropheBecomesAcute = true;
    tela.txtNome.KeyPress = [](int& code) { code = code == 'x' ? 0 : code; };
    open([&] {
        put(tela.txtNome);
        QTest::keyClicks(nome, "d'xa");
        EXPECT_EQ(tela.txtNome.text(), u"d´a");
        EXPECT_EQ(nome->text(), u"d´a");
    });
}

TEST_F(SampleInput, ComposedCharactersPassTheSameRules) {
    tela.txtNome.apostropheBecomesAcute = true;
    open([&] {
        put(tela.txtNome);
        QInputMethodEvent composed;
        composed.setCommitString(u"ã'"_s);
        QCoreApplication::sendEvent(nome, &composed);
        EXPECT_EQ(tela.txtNome.text(), u"ã´");
    });
}

TEST_F(SampleInput, ComposedLettersOfOtherLanguagesComeNear) {
    open([&] {
        put(tela.txtNome);
        QInputMethodEvent composed;
        composed.setCommitString(u"řﬁ"_s);
        QCoreApplication::sendEvent(nome, &composed);
        EXPECT_EQ(tela.txtNome.text(), u"rfi");
        QKeyEvent czech(QEvent::KeyPress, 0x159, Qt::NoModifier, u"ř"_s);
        QCoreApplication::sendEvent(nome, &czech);
        EXPECT_EQ(tela.txtNome.text(), u"rfir");
        EXPECT_EQ(nome->text(), u"rfir");
    });
}

TEST_F(SampleInput, OtherAlphabetsStayOutside) {
    open([&] {
        put(tela.txtNome);
        QKeyEvent cyrillic(QEvent::KeyPress, 0x416, Qt::NoModifier, u"Ж"_s);
        QCoreApplication::sendEvent(nome, &cyrillic);
        EXPECT_EQ(tela.txtNome.text(), u"");
        QGuiApplication::clipboard()->setText(u"aЖb€"_s);
        QTest::keyClick(nome, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(tela.txtNome.text(), u"ab€");
        EXPECT_EQ(nome->text(), u"ab€");
        put(tela.txtNota);
        QTest::keyClick(nota, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(tela.txtNota.text(), u"ab€");
        EXPECT_EQ(nota->toPlainText(), u"ab€");
    });
}

TEST_F(SampleInput, MaximumLengthHoldsForKeysAndClipboard) {
    tela.txtNome.setMaxLength(5);
    tela.txtNota.setMaxLength(5);
    open([&] {
        QGuiApplication::clipboard()->setText(u"xyz"_s);
        for (const auto& [field, widget] :
             {std::pair<screen::Field*, QWidget*>{&tela.txtNome, nome}, {&tela.txtNota, nota}}) {
            put(*field);
            QTest::keyClicks(widget, "abc");
            QTest::keyClick(widget, Qt::Key_Home);
            QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(field->text(), u"xyabc");
            QTest::keyClicks(widget, "Z");
            EXPECT_EQ(field->text(), u"xyabc");
        }
    });
}

TEST_F(SampleInput, ALongerTextOfTheDatabaseIsShownWhole) {
    tela.txtNome.setMaxLength(3);
    open([&] {
        tela.txtNome.setText(u"ABCDEF"_s);
        put(tela.txtNome);
        EXPECT_EQ(nome->text(), u"ABCDEF");
        QTest::keyClick(nome, Qt::Key_End);
        QTest::keyClick(nome, Qt::Key_Backspace);
        QTest::keyClicks(nome, "Z");
        EXPECT_EQ(tela.txtNome.text(), u"ABCDE");
    });
}

TEST_F(SampleInput, ALockedFieldTakesTheFocusButNoText) {
    tela.txtNome.setText(u"A"_s);
    tela.txtNome.setLocked(true);
    open([&] {
        QTest::mouseClick(nome, Qt::LeftButton);
        EXPECT_EQ(tela.focus(), &tela.txtNome);
        QTest::keyClicks(nome, "bc");
        QTest::keyClick(nome, Qt::Key_Backspace);
        EXPECT_EQ(tela.txtNome.text(), u"A");
    });
}

TEST_F(SampleInput, EnterMovesOnAndTabWalksInTheOrderOfTheFields) {
    tela.txtNome.enterMovesOn = true;
    open([&] {
        put(tela.txtNome);
        QTest::keyClick(nome, Qt::Key_Return);
        EXPECT_EQ(tela.focus(), &tela.txtNota);
        EXPECT_EQ(window.focusWidget(), nota);
        QTest::keyClick(nota, Qt::Key_Tab);
        EXPECT_EQ(tela.focus(), &tela.mskCEP);
        EXPECT_EQ(window.focusWidget(), cep);
        QTest::keyClick(cep, Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(tela.focus(), &tela.txtNota);
        EXPECT_EQ(tela.events, QStringList({"lost txtNome", "got txtNota", "lost txtNota", "got mskCEP", "lost mskCEP",
                                            "got txtNota"}));
    });
}

TEST_F(SampleInput, EnteringAFieldMaySelectItsText) {
    tela.txtNome.selectsOnFocus = true;
    tela.txtNome.setText(u"MARIA"_s);
    open([&] {
        put(tela.cmdSALVAR);
        QTest::mouseClick(nome, Qt::LeftButton);
        EXPECT_EQ(nome->selectedText(), u"MARIA");
        QTest::keyClicks(nome, "J");
        EXPECT_EQ(tela.txtNome.text(), u"J");
        put(tela.cmdSALVAR);
        put(tela.txtNome);
        EXPECT_EQ(nome->selectedText(), u"J");
    });
}

TEST_F(SampleInput, TabReachesATextWithAllOfItSelected) {
    tela.txtNome.setText(u"VELHO"_s);
    open([&] {
        put(tela.txtNota);
        QTest::keyClick(nota, Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(nome->selectedText(), u"VELHO");
        QTest::keyClicks(nome, "N");
        EXPECT_EQ(tela.txtNome.text(), u"N");
        QTest::keyClick(nome, Qt::Key_Tab);
        EXPECT_FALSE(nome->hasSelectedText());
    });
}

TEST_F(SampleInput, ANoteThatIsLeftShowsNoSelection) {
    open([&] {
        put(tela.txtNota);
        QTest::keyClicks(nota, "abc");
        QTest::keyClick(nota, Qt::Key_A, Qt::ControlModifier);
        EXPECT_TRUE(nota->textCursor().hasSelection());
        put(tela.txtNome);
        EXPECT_FALSE(nota->textCursor().hasSelection());
        put(tela.txtNota);
        QTest::keyClick(nota, Qt::Key_Delete);
        EXPECT_EQ(tela.txtNota.text(), u"") << "the field has kept it";
    });
}

TEST_F(SampleInput, ATextThatIsDraggedToAnotherFieldStaysWhereItWas) {
    tela.txtNome.setMaxLength(3);
    open([&] {
        QMimeData text;
        text.setText(u"abcdef"_s);
        for (QWidget* target : {static_cast<QWidget*>(nome), nota->viewport()}) {
            const Qt::DropActions offered = Qt::MoveAction | Qt::CopyAction;
            QDragEnterEvent arriving({1, 1}, offered, &text, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(target, &arriving);
            QDropEvent moved({1, 1}, offered, &text, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(target, &moved);
            EXPECT_TRUE(moved.isAccepted());
            EXPECT_EQ(moved.dropAction(), Qt::CopyAction) << "a move takes it away from where it came";
        }
        settle();
        EXPECT_EQ(tela.txtNome.text(), u"abc");
        EXPECT_EQ(tela.txtNota.text(), u"abcdef");
    });
}

TEST_F(SampleInput, UndoIsTheWidgetsOwn) {
    open([&] {
        put(tela.txtNome);
        QTest::keyClicks(nome, "abc");
        QTest::keyClick(nome, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_NE(tela.txtNome.text(), u"abc");
        EXPECT_EQ(tela.txtNome.text(), nome->text());
    });
}

TEST_F(SampleInput, UndoBringsBackNothingOfAnotherRecord) {
    open([&] {
        put(tela.txtNota);
        QTest::keyClicks(nota, "DA ANA");
        QTest::keyClick(nota, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_NE(tela.txtNota.text(), u"DA ANA");
        put(tela.txtNome);
        tela.txtNota.setText(u"DA BIA"_s);
        settle();
        put(tela.txtNota);
        QTest::keyClick(nota, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(tela.txtNota.text(), u"DA BIA");
        EXPECT_EQ(nota->toPlainText(), u"DA BIA");
    });
}

TEST_F(SampleInput, AClickBehindAnEmptyMaskFillsItFromItsBeginning) {
    open([&] {
        QTest::mouseClick(cep, Qt::LeftButton, {}, QPoint(cep->width() - 6, cep->height() / 2));
        EXPECT_EQ(cep->cursorPosition(), 9);
        QTest::keyClicks(cep, "13010");
        EXPECT_EQ(tela.mskCEP.text(), u"13010-___");
        EXPECT_EQ(cep->text(), u"13010-___");
    });
}

TEST_F(SampleInput, MaskedKeysAreTheFieldsOwn) {
    open([&] {
        put(tela.mskCEP);
        EXPECT_EQ(cep->text(), u"_____-___");
        QTest::keyClicks(cep, "13a010");
        EXPECT_EQ(cep->text(), u"13010-___");
        QTest::keyClicks(cep, "-1");
        EXPECT_EQ(tela.mskCEP.text(), u"13010-1__");
        QTest::keyClick(cep, Qt::Key_Backspace);
        EXPECT_EQ(cep->text(), u"13010-___");
        QTest::keyClick(cep, Qt::Key_A, Qt::ControlModifier);
        QGuiApplication::clipboard()->setText(u"04567-890"_s);
        QTest::keyClick(cep, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(tela.mskCEP.text(), u"04567-890");
        QTest::keyClick(cep, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(cep, Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(tela.mskCEP.text(), u"_____-___");
        EXPECT_EQ(QGuiApplication::clipboard()->text(), u"04567-890");
    });
}

TEST_F(SampleInput, TenThousandCharactersArePastedByTheRules) {
    tela.txtNome.setMaxLength(50);
    open([&] {
        QGuiApplication::clipboard()->setText(u"a\tb日"_s.repeated(2500));
        for (const auto& [field, widget] : {std::pair<screen::Field*, QWidget*>{&tela.txtNome, nome},
                                            {&tela.txtNota, nota},
                                            {&tela.mskCEP, cep},
                                            {&tela.cboCidade, cidade}}) {
            put(*field);
            QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
            EXPECT_FALSE(field->text().contains(u'\t'));
            EXPECT_FALSE(field->text().contains(u'日'));
        }
        EXPECT_LE(tela.txtNome.text().size(), 50);
        EXPECT_EQ(tela.txtNome.text(), nome->text());
        EXPECT_EQ(tela.txtNota.text().size(), 7500);
        EXPECT_EQ(tela.mskCEP.text(), u"_____-___");
        EXPECT_EQ(cep->text(), u"_____-___");
    });
}

TEST_F(SampleInput, TheMenuOfAMaskPastesIntoItsPlaces) {
    open([&] {
        put(tela.mskCEP);
        QGuiApplication::clipboard()->setText(u"04567-890"_s);
        cep->paste();
        EXPECT_EQ(tela.mskCEP.text(), u"04567-890");
        EXPECT_EQ(cep->text(), u"04567-890");
        cep->paste();
        EXPECT_EQ(tela.mskCEP.text(), u"04567-890");
        cep->selectAll();
        cep->del();
        EXPECT_EQ(cep->text(), u"_____-___");
    });
}

TEST_F(SampleInput, AListThatWasOnlyLookedAtKeepsItsText) {
    tela.cboCidade.setText(u"OUTRA"_s);
    tela.cboCidade.DropDown = [&] {
        tela.cboCidade.clear();
        tela.cboCidade.addItem(u"SANTOS"_s);
    };
    open([&] {
        QTest::keyClick(cidade, Qt::Key_F4);
        ASSERT_TRUE(cidade->view()->isVisible());
        EXPECT_EQ(cidade->currentText(), u"");
        QTest::keyClick(cidade->view(), Qt::Key_Escape);
        settle();
        EXPECT_FALSE(cidade->view()->isVisible());
        EXPECT_EQ(cidade->currentText(), u"OUTRA");
        QTest::keyClick(cidade, Qt::Key_F4);
        put(tela.txtNome);
        EXPECT_FALSE(cidade->view()->isVisible()) << "the list closes with the focus that leaves it";
        EXPECT_EQ(cidade->currentText(), u"OUTRA");
    });
}

TEST_F(SampleInput, AListDropsDownAndIsPickedFrom) {
    tela.cboCidade.DropDown = [&] {
        tela.cboCidade.clear();
        for (const char* item : {"CAMPINAS", "SANTOS"})
            tela.cboCidade.addItem(QLatin1String(item));
    };
    open([&] {
        QTest::keyClick(cidade, Qt::Key_F4);
        ASSERT_TRUE(cidade->view()->isVisible());
        EXPECT_EQ(tela.focus(), &tela.cboCidade);
        QTest::keyClick(cidade->view(), Qt::Key_Down);
        QTest::keyClick(cidade->view(), Qt::Key_Return);
        EXPECT_EQ(tela.cboCidade.text(), tela.cboCidade.items()[tela.cboCidade.listIndex()]);
        QTest::keyClick(cidade, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(cidade, "Outra");
        EXPECT_EQ(tela.cboCidade.text(), u"Outra");
        EXPECT_EQ(tela.cboCidade.listIndex(), -1);
        EXPECT_EQ(cidade->currentText(), u"Outra");
    });
}

TEST_F(SampleInput, WhatIsTypedWhileAListIsOpenIsTheFields) {
    for (int item = 1; item <= 40; ++item)
        tela.cboCidade.addItem(u"CIDADE %1"_s.arg(item));
    open([&] {
        QTest::keyClick(cidade, Qt::Key_F4);
        ASSERT_TRUE(cidade->view()->isVisible());
        QTest::keyClicks(cidade->view(), "c");
        EXPECT_EQ(tela.cboCidade.text(), u"c");
        EXPECT_FALSE(cidade->view()->isVisible());
        EXPECT_FALSE(tela.cboCidade.isOpen());
        // A page walks by more than one item, and no further than the last.
        QTest::keyClick(cidade, Qt::Key_F4);
        QTest::keyClick(cidade->view(), Qt::Key_Down);
        QTest::keyClick(cidade->view(), Qt::Key_PageDown);
        QTest::keyClick(cidade->view(), Qt::Key_Return);
        EXPECT_EQ(tela.cboCidade.text(), u"CIDADE 16");
        QTest::keyClick(cidade, Qt::Key_PageDown);
        QTest::keyClick(cidade, Qt::Key_PageDown);
        EXPECT_EQ(tela.cboCidade.text(), u"CIDADE 40");
        // Tab leaves, and nothing was chosen.
        QTest::keyClick(cidade, Qt::Key_F4);
        QTest::keyClick(cidade->view(), Qt::Key_Up);
        QTest::keyClick(cidade->view(), Qt::Key_Tab);
        EXPECT_NE(tela.focus(), &tela.cboCidade);
        EXPECT_FALSE(cidade->view()->isVisible());
        EXPECT_EQ(tela.cboCidade.text(), u"CIDADE 40");
    });
}

TEST_F(SampleInput, CursorKeysWalkThroughAFilledList) {
    tela.cboCidade.addItem(u"CAMPINAS"_s);
    tela.cboCidade.addItem(u"SANTOS"_s);
    open([&] {
        put(tela.cboCidade);
        QTest::keyClick(cidade, Qt::Key_Down);
        QTest::keyClick(cidade, Qt::Key_Down);
        QTest::keyClick(cidade, Qt::Key_Down);
        EXPECT_EQ(tela.cboCidade.text(), u"SANTOS");
        EXPECT_EQ(tela.events.count("click cboCidade"), 2);
    });
}

TEST_F(SampleInput, ALockedListOpensNothing) {
    tela.cboCidade.addItem(u"CAMPINAS"_s);
    tela.cboCidade.setLocked(true);
    open([&] {
        QTest::keyClick(cidade, Qt::Key_F4);
        EXPECT_FALSE(cidade->view()->isVisible());
        QTest::keyClick(cidade, Qt::Key_Down);
        QTest::keyClicks(cidade, "x");
        EXPECT_EQ(tela.cboCidade.text(), u"");
    });
}

TEST_F(SampleInput, AnOpenListShowsAndTakesItsChoice) {
    tela.lstLog.addItem(u"um"_s);
    tela.lstLog.addItem(u"dois"_s);
    open([&] {
        EXPECT_EQ(log->model()->rowCount(), 2);
        QTest::mouseClick(log->viewport(), Qt::LeftButton, {}, log->visualRect(log->model()->index(1, 0)).center());
        EXPECT_EQ(tela.lstLog.listIndex(), 1);
        EXPECT_EQ(tela.focus(), &tela.lstLog);
    });
}

} // namespace vorta::test

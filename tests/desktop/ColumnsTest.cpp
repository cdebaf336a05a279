// Columns of a grid under the mouse, and letters typed in one.

#include "SampleWindow.h"
#include "desktop/Settings.h"

#include <QHeaderView>

namespace vorta::test {

class Columns : public SampleWindow {
  protected:
    Columns() { desktop::UserSettings().remove(u"colunas"_s); }

    void fill() {
        tela.Flex.reset({{u"ID"_s, 0}, {u"CGC/CPF"_s, -1}, {u"Nome"_s, -1}, {u"Fone"_s, -1}});
        for (const char* name : {"BRUNO", "CARLOS", "ÁLVARO", "CARLA"})
            tela.Flex.AddItem(u"\t1\t%1\t99"_s.arg(QString::fromUtf8(name)));
        settle();
    }
    QHeaderView& header() { return *grade->horizontalHeader(); }
    int width(int col) { return grade->columnWidth(col); }
    QPoint border(int col) {
        return {header().sectionViewportPosition(col) + header().sectionSize(col) - 1, header().height() / 2};
    }
    /// Draws the right border of a column by so many pixels, and waits until the window has made something of it.
    void drag(int col, int by) {
        QWidget* under = header().viewport();
        const QPoint from = border(col);
        QTest::mouseMove(under, from);
        QTest::mousePress(under, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 4; ++step) {
            const QPoint at = from + QPoint(by * step / 4, 0);
            QMouseEvent move(QEvent::MouseMove, at, under->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(under, &move);
        }
        QTest::mouseRelease(under, Qt::LeftButton, {}, from + QPoint(by, 0));
        QTest::qWait(600);
    }
    int shown() {
        int all = 0;
        for (int col = 0; col < 4; ++col)
            all += width(col);
        return all;
    }
};

TEST_F(Columns, ThatFitAreSpread) {
    open([&] {
        fill();
        EXPECT_NEAR(shown(), grade->viewport()->width(), 4);
        EXPECT_TRUE(grade->isColumnHidden(0));
    });
}

TEST_F(Columns, StayAsWideAsTheUserMakesThem) {
    open([&] {
        fill();
        const int before = width(2);
        drag(2, 60);
        EXPECT_EQ(width(2), before + 60);
        tela.Flex.AddItem(u"\t2\tDANIEL\t88"_s);
        settle();
        EXPECT_EQ(width(2), before + 60) << "behind another row";
        fill();
        EXPECT_EQ(width(2), before + 60) << "behind another search";
        window.resize(window.width() + 80, window.height());
        settle();
        EXPECT_EQ(width(2), before + 60) << "in a wider window";
        EXPECT_NEAR(shown(), grade->viewport()->width(), 4) << "the others share the room";
        const int wide = width(2);
        binder.reset();
        binder = std::make_unique<desktop::Binder>(tela, user, window, window);
        fill();
        EXPECT_EQ(width(2), wide) << "at another opening";
        EXPECT_TRUE(grade->isColumnHidden(0));
    });
}

TEST_F(Columns, ADoubleClickOnTheBorderFits) {
    open([&] {
        fill();
        drag(2, 120);
        const int wide = width(2);
        QTest::mouseDClick(header().viewport(), Qt::LeftButton, {}, border(2));
        QTest::qWait(600);
        EXPECT_LT(width(2), wide);
        EXPECT_GE(width(2), grade->fontMetrics().horizontalAdvance(u"CARLOS"_s));
        EXPECT_EQ(tela.Flex.Row(), 1);
    });
}

TEST_F(Columns, AHiddenOneStaysHidden) {
    open([&] {
        fill();
        QTest::mouseDClick(header().viewport(), Qt::LeftButton, {}, QPoint(0, header().height() / 2));
        drag(1, 40);
        EXPECT_TRUE(grade->isColumnHidden(0));
        EXPECT_EQ(width(0), 0);
    });
}

TEST_F(Columns, LettersLeadToTheFirstNameThatBeginsSo) {
    open([&] {
        fill();
        put(tela.Flex);
        QTest::keyClick(grade, Qt::Key_C, {});
        settle();
        EXPECT_EQ(tela.Flex.Row(), 2);
        QTest::keyClicks(grade, u"arla"_s);
        settle();
        EXPECT_EQ(tela.Flex.Row(), 4);
        QTest::qWait(QApplication::keyboardInputInterval() * 2 + 50);
        QTest::keyClicks(grade, u"al"_s); // neither case nor accents count
        settle();
        EXPECT_EQ(tela.Flex.Row(), 3);
        QTest::keyClicks(grade, u"zz"_s);
        settle();
        EXPECT_EQ(tela.Flex.Row(), 3);
        EXPECT_FALSE(tela.events.contains(u"click Flex"_s));
    });
}

} // namespace vorta::test

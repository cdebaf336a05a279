#include "SampleScreen.h"
#include "base/Literals.h"

using namespace vorta;
using namespace vorta::test;

namespace {

constexpr int foraDaGrade = errorNumber::OutsideGrid;

struct GridTest : testing::Test {
    SampleWorld world;
    Grid& grade = world.tela.grade;
    void SetUp() override { grade.reset({{u"Código"_s, 900}, {u"Nome"_s}, {u"Cidade"_s}}); }
    QStringList linha(int row) const {
        QStringList cells;
        for (int col = 0; col < grade.Cols(); ++col)
            cells += grade.cell(row, col);
        return cells;
    }
};

} // namespace

TEST_F(GridTest, StartsWithItsHeadersOnly) {
    EXPECT_EQ(grade.Rows(), 1);
    EXPECT_EQ(grade.Cols(), 3);
    EXPECT_EQ(grade.Row(), 0);
    EXPECT_EQ(linha(0), QStringList({u"Código"_s, u"Nome"_s, u"Cidade"_s}));
}

TEST_F(GridTest, TabsPartTheCells) {
    grade.AddItem(u"1\tJoão\tSão Vicente"_s);
    grade.AddItem(u"2\tAna"_s);
    grade.AddItem(u"\t\t"_s);
    grade.AddItem(u"4\ta\tb\tsobra"_s);
    EXPECT_EQ(grade.Rows(), 5);
    EXPECT_EQ(linha(1), QStringList({u"1"_s, u"João"_s, u"São Vicente"_s}));
    EXPECT_EQ(linha(2), QStringList({u"2"_s, u"Ana"_s, QString()}));
    EXPECT_EQ(linha(3), QStringList({QString(), QString(), QString()}));
    EXPECT_EQ(linha(4), QStringList({u"4"_s, u"a"_s, u"b"_s}));
}

TEST_F(GridTest, TheFirstAddedRowBecomesCurrent) {
    grade.AddItem(u"1"_s);
    grade.AddItem(u"2"_s);
    EXPECT_EQ(grade.Row(), 1);
    grade.setRow(2);
    grade.setCol(0);
    EXPECT_EQ(grade.currentText(), u"2"_s);
}

TEST_F(GridTest, RemovingRowsKeepsTheOthersAndTheCurrentRowInside) {
    for (const QString& row : {u"1"_s, u"2"_s, u"3"_s})
        grade.AddItem(row);
    grade.setRow(3);
    grade.RemoveItem(2);
    EXPECT_EQ(grade.Rows(), 3);
    EXPECT_EQ(grade.cell(2, 0), u"3"_s);
    EXPECT_EQ(grade.Row(), 2);
    grade.RemoveItem(1);
    grade.RemoveItem(1);
    EXPECT_EQ(grade.Rows(), 1);
    EXPECT_EQ(grade.Row(), 0);
    grade.AddItem(u"9"_s);
    EXPECT_EQ(grade.Row(), 1);
}

TEST_F(GridTest, CellsKeepTheirColumnsWhateverTheyHold) {
    grade.AddRow({u"1"_s, u"Ana\tMaria\n"_s, u"Tatuí"_s});
    EXPECT_EQ(grade.cell(1, 1), u"Ana\tMaria\n"_s);
    EXPECT_EQ(grade.cell(1, 2), u"Tatuí"_s);
    grade.AddRow({{}, {}, u"3"_s});
    EXPECT_EQ(grade.cell(2, 0), QString());
    EXPECT_EQ(grade.cell(2, 2), u"3"_s);
    grade.AddRow({u"4"_s, {}, {}, u"sobra"_s});
    EXPECT_EQ(grade.cell(3, 2), QString());
}

TEST_F(GridTest, PlacesOutsideAreErrors) {
    grade.AddItem(u"1"_s);
    EXPECT_EQ(ErrorOf([&] { grade.cell(2, 0); }), foraDaGrade);
    EXPECT_EQ(ErrorOf([&] { grade.cell(1, 3); }), foraDaGrade);
    EXPECT_EQ(ErrorOf([&] { grade.setRow(2); }), foraDaGrade);
    EXPECT_EQ(ErrorOf([&] { grade.setRow(-1); }), foraDaGrade);
    EXPECT_EQ(ErrorOf([&] { grade.setCol(3); }), foraDaGrade);
    EXPECT_EQ(ErrorOf([&] { grade.RemoveItem(0); }), foraDaGrade);
    EXPECT_EQ(ErrorOf([&] { grade.RemoveItem(2); }), foraDaGrade);
}

TEST_F(GridTest, ResetEmptiesAndEveryChangeCounts) {
    const quint64 before = grade.revision();
    grade.AddItem(u"1"_s);
    EXPECT_GT(grade.revision(), before);
    grade.setTopRow(40);
    EXPECT_EQ(grade.TopRow(), 1);
    grade.reset({{u"Só"_s}});
    EXPECT_EQ(grade.Rows(), 1);
    EXPECT_EQ(grade.Cols(), 1);
    EXPECT_EQ(grade.bytesUsed(), 0);
}

TEST_F(GridTest, AHundredThousandRowsStayPacked) {
    for (int row = 1; row <= 100000; ++row)
        grade.AddItem(QString::number(row) + u"\tNOME\t"_s);
    EXPECT_EQ(grade.cell(100000, 0), u"100000"_s);
    EXPECT_EQ(grade.cell(50000, 1), u"NOME"_s);
    EXPECT_LT(grade.bytesUsed(), 100000 * 48);
}

TEST_F(GridTest, AClickOnTheHeaderIsRowZero) {
    grade.AddItem(u"1\tAna"_s);
    world.platform.whenShown(u"frmAmostra"_s, [&](Screen&) {
        world.user.clickCell(grade, 1, 1);
        EXPECT_EQ(grade.currentText(), u"Ana"_s);
        EXPECT_EQ(world.tela.focus(), &grade);
        world.user.clickCell(grade, 0, 1);
        EXPECT_EQ(grade.Row(), 0);
        world.user.doubleClickCell(grade, 1, 0);
        EXPECT_EQ(grade.Row(), 1);
        EXPECT_EQ(world.tela.events.last(), u"double FlexLista"_s);
    });
    EXPECT_TRUE(world.program.dispatch([&] { world.program.ShowModal(world.tela); }));
    EXPECT_EQ(world.platform.shown.size(), 1);
}

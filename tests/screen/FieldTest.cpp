#include "SampleScreen.h"
#include "base/Literals.h"

using namespace vorta;
using namespace vorta::test;

TEST(Field, StartsFreeAndVisibleInTheColoursOfItsKind) {
    SampleWorld world;
    for (Field* field : world.tela.fields()) {
        EXPECT_TRUE(field->enabled());
        EXPECT_TRUE(field->visible());
        EXPECT_FALSE(field->locked());
        EXPECT_EQ(field->foreground(), colour::WindowText);
    }
    EXPECT_EQ(world.tela.txtNome.background(), colour::Free);
    EXPECT_EQ(world.tela.mskCEP.background(), colour::Free);
    EXPECT_EQ(world.tela.cboCidade.background(), colour::Free);
    EXPECT_EQ(world.tela.cmdSalvar.background(), colour::ButtonFace);
    EXPECT_EQ(colour::ButtonFace, -2147483633);
    EXPECT_EQ(colour::ButtonText, -2147483630);
}

TEST(Field, IsReachedByNameInAnyCase) {
    SampleWorld world;
    EXPECT_EQ(&world.tela.field(u"TXTNOME"_s), &world.tela.txtNome);
    EXPECT_EQ(world.tela.findField(u"txtOutro"_s), nullptr);
    try {
        world.tela.field(u"txtOutro"_s);
        FAIL() << "found a field that is not there";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), errorNumber::NoSuchMember);
        EXPECT_TRUE(error.description().contains(u"frmAmostra"));
        EXPECT_TRUE(error.description().contains(u"txtOutro"));
    }
}

TEST(Field, TellsTheWindowOfEveryChange) {
    struct Observer : ScreenObserver {
        QStringList fields;
        int screens = 0;
        void fieldChanged(Field& field) override { fields += field.name(); }
        void screenChanged(Screen&) override { ++screens; }
    } observer;
    SampleWorld world;
    world.tela.setObserver(&observer);
    const std::vector<std::function<void()>> changes{
        [&] { world.tela.txtNome.setText(u"x"_s); },    [&] { world.tela.txtNome.setEnabled(false); },
        [&] { world.tela.txtNome.setLocked(true); },    [&] { world.tela.txtNome.setVisible(false); },
        [&] { world.tela.txtNome.setBackground(1); },   [&] { world.tela.txtNome.setForeground(1); },
        [&] { world.tela.txtNome.setBold(true); },      [&] { world.tela.txtNome.setMaxLength(5); },
        [&] { world.tela.txtNome.setToolTip(u"d"_s); }, [&] { world.tela.cboCidade.addItem(u"a"_s); },
        [&] { world.tela.cboCidade.setDropWidth(90); }, [&] { world.tela.chkAtivo.setChecked(true); },
        [&] { world.tela.opSim.setValue(true); },       [&] { world.tela.tab.setCurrent(1); },
        [&] { world.tela.mskCEP.setMask({}); },         [&] { world.tela.grade.reset({{u"A"_s}}); },
    };
    for (size_t change = 0; change < changes.size(); ++change) {
        observer.fields.clear();
        changes[change]();
        EXPECT_FALSE(observer.fields.isEmpty()) << "change " << change;
    }
    world.tela.setCaption(u"c"_s);
    world.tela.setBackground(1);
    world.tela.setPointer(Pointer::Hourglass);
    EXPECT_EQ(observer.screens, 3);
}

TEST(Field, SelectionStaysInsideTheText) {
    SampleWorld world;
    world.tela.txtNome.setText(u"MARIA"_s);
    world.tela.txtNome.select(2, 90);
    EXPECT_EQ(world.tela.txtNome.selectionStart(), 2);
    EXPECT_EQ(world.tela.txtNome.selectionLength(), 3);
    world.tela.txtNome.setText(u"M"_s);
    EXPECT_EQ(world.tela.txtNome.selectionStart(), 1);
    EXPECT_EQ(world.tela.txtNome.selectionLength(), 0);
}

TEST(Field, APictureMustBeThere) {
    SampleWorld world;
    EXPECT_EQ(ErrorOf([&] { world.tela.imgFoto.loadPicture(u"/img/a.bmp"_s); }), errorNumber::FileNotFound);
    EXPECT_EQ(world.tela.imgFoto.picture(), QString());
    world.platform.files[u"/img/a.bmp"_s] = {};
    world.tela.imgFoto.loadPicture(u"/img/a.bmp"_s);
    EXPECT_EQ(world.tela.imgFoto.picture(), u"/img/a.bmp"_s);
}

TEST(ListField, ChoosingAnItemTakesItsTextAndClicks) {
    SampleWorld world;
    ListField& lista = world.tela.cboCidade;
    lista.addItem(u"SANTOS"_s);
    lista.addItem(u"CUBATAO"_s);
    lista.setListIndex(1);
    EXPECT_EQ(lista.text(), u"CUBATAO"_s);
    EXPECT_EQ(lista.listIndex(), 1);
    EXPECT_EQ(world.tela.events, QStringList(u"click cboCidade"_s));
    lista.setListIndex(-1);
    EXPECT_EQ(lista.text(), QString());
    EXPECT_EQ(world.tela.events.size(), 1);
    EXPECT_NE(ErrorOf([&] { lista.setListIndex(2); }), 0);
}

TEST(ListField, AnyTextMayStandInIt) {
    SampleWorld world;
    ListField& lista = world.tela.cboCidade;
    lista.addItem(u"SANTOS"_s);
    lista.setText(u"SANTOS"_s);
    EXPECT_EQ(lista.listIndex(), 0);
    lista.setText(u"OUTRA"_s);
    EXPECT_EQ(lista.listIndex(), -1);
    EXPECT_EQ(lista.text(), u"OUTRA"_s);
    EXPECT_TRUE(world.tela.events.isEmpty());
}

TEST(ListField, ClearEmptiesListAndText) {
    SampleWorld world;
    ListField& lista = world.tela.cboCidade;
    lista.addItem(u"SANTOS"_s);
    lista.setListIndex(0);
    lista.clear();
    EXPECT_TRUE(lista.items().isEmpty());
    EXPECT_EQ(lista.text(), QString());
    EXPECT_EQ(lista.listIndex(), -1);
}

TEST(ListField, RemovingAnItemKeepsTheChoice) {
    SampleWorld world;
    ListField& lista = world.tela.cboCidade;
    for (const QString& item : {u"A"_s, u"B"_s, u"C"_s})
        lista.addItem(item);
    lista.setListIndex(2);
    lista.removeItem(0);
    EXPECT_EQ(lista.listIndex(), 1);
    lista.removeItem(1);
    EXPECT_EQ(lista.listIndex(), -1);
    EXPECT_EQ(lista.items(), QStringList(u"B"_s));
    EXPECT_NE(ErrorOf([&] { lista.removeItem(5); }), 0);
}

TEST(Option, OneOfItsGroupIsChosenAndAlwaysClicks) {
    SampleWorld world;
    world.tela.opSim.setValue(true);
    EXPECT_TRUE(world.tela.opSim.value());
    EXPECT_FALSE(world.tela.opNao.value());
    world.tela.opSim.setValue(true);
    EXPECT_EQ(world.tela.events, QStringList({u"click opSim"_s, u"click opSim"_s}));
    world.tela.opSim.setValue(false);
    EXPECT_FALSE(world.tela.opSim.value());
    EXPECT_EQ(world.tela.events.size(), 2);
}

TEST(Check, ClicksOnAChangeOnly) {
    SampleWorld world;
    world.tela.chkAtivo.setChecked(true);
    world.tela.chkAtivo.setChecked(true);
    world.tela.chkAtivo.setChecked(false);
    EXPECT_EQ(world.tela.events.size(), 2);
}

TEST(TabStrip, KnowsItsPages) {
    SampleWorld world;
    EXPECT_EQ(world.tela.grade.strip(), &world.tela.tab);
    EXPECT_EQ(world.tela.grade.page(), 1);
    EXPECT_EQ(world.tela.cmdSalvar.strip(), nullptr);
    world.tela.tab.setCurrent(1);
    EXPECT_EQ(world.tela.tab.current(), 1);
    EXPECT_NE(ErrorOf([&] { world.tela.tab.setCurrent(2); }), 0);
}

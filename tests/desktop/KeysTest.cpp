// The map of keys: what leads where on each screen.

#include "EveryScreen.h"
#include "desktop/Help.h"
#include "desktop/Letters.h"
#include "desktop/ScreenKeys.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QTableWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

namespace vorta::test {

namespace {

/// True when two fields are never in front together.
bool exclude(const screen::Field& one, const screen::Field& other) {
    for (const screen::Field* a = &one; a->strip(); a = a->strip())
        for (const screen::Field* b = &other; b->strip(); b = b->strip())
            if (a->strip() == b->strip() && a->page() != b->page())
                return true;
    return false;
}

const QStringList neverEnabled{u"cmdPESQUISAR"_s, u"cmdIMPRIMIR"_s};

} // namespace

class Keys : public EveryScreen {
  protected:
    /// The keys that lead to a field, wherever they are kept.
    QKeySequence keysOf(const screen::Field& field) {
        const QWidget& widget = widgetOf(field);
        if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
            return button->shortcut();
        if (const auto* shortcut = widget.findChild<const QShortcut*>(QString(), Qt::FindDirectChildrenOnly))
            return shortcut->key();
        const QLabel* label = desktop::LabelOf(widget);
        return label ? QKeySequence::mnemonic(label->text()) : QKeySequence();
    }
};

TEST_P(Keys, DifferAmongAllThatCanBeSeenAtOnce) {
    const auto& fields = tela.fields();
    QSet<QString> own; // of the window as a whole
    for (const QShortcut* shortcut : window.findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
        EXPECT_FALSE(own.contains(shortcut->key().toString())) << shortcut->key().toString();
        own += shortcut->key().toString();
    }
    for (size_t at = 0; at < fields.size(); ++at) {
        const QKeySequence keys = fields[at]->takesFocus() ? keysOf(*fields[at]) : QKeySequence();
        if (keys.isEmpty())
            continue;
        EXPECT_FALSE(own.contains(keys.toString())) << fields[at]->name() << ' ' << keys.toString();
        for (size_t other = at + 1; other < fields.size(); ++other)
            if (fields[other]->takesFocus() && !exclude(*fields[at], *fields[other]))
                EXPECT_NE(keys, keysOf(*fields[other]))
                    << fields[at]->name() << ' ' << fields[other]->name() << ' ' << keys.toString();
    }
}

TEST_P(Keys, NoneBelongsToAButtonThatIsNeverEnabled) {
    for (const QString& name : neverEnabled)
        if (const screen::Field* field = tela.findField(name))
            EXPECT_TRUE(keysOf(*field).isEmpty()) << name;
}

/// Each row of the table has found what it leads to, and a letter stands in what is shown.
TEST_P(Keys, EveryKeyOfTheMapIsThere) {
    for (const desktop::FieldKey& key : desktop::FieldKeys(tela.name())) {
        const screen::Field* field = tela.findField(key.field);
        if (!field)
            continue; // a row for all role screens, of which some have no contacts; see below
        EXPECT_EQ(keysOf(*field), QKeySequence(key.keys)) << key.field;
        const auto* button = qobject_cast<const QAbstractButton*>(&widgetOf(*field));
        if (button && key.keys.startsWith(u"Alt+"))
            EXPECT_TRUE(button->text().contains(key.keys.back(), Qt::CaseInsensitive)) << key.field;
    }
}

TEST_P(Keys, EveryOperationHasOne) {
    for (const screen::Field* field : tela.fields())
        if (field->kind() == screen::FieldKind::Button && !field->strip() && !neverEnabled.contains(field->name()))
            EXPECT_FALSE(keysOf(*field).isEmpty()) << field->name();
}

TEST_P(Keys, TheTableOfTheScreenNamesThem) {
    const QStringList table = desktop::ScreenKeys(window.binder(), window).table();
    EXPECT_EQ(table.value(0), u"F1\to manual");
    EXPECT_EQ(table.value(1), u"Ctrl+/\testas teclas");
    for (const QString& row : table)
        EXPECT_FALSE(row.section(u'\t', 1).isEmpty()) << row;
    for (const screen::Field* field : tela.fields()) {
        if (!field->takesFocus() || !field->visible() || !isInFront(*field) || keysOf(*field).isEmpty())
            continue;
        const QString wanted = keysOf(*field).toString();
        EXPECT_TRUE(std::ranges::any_of(table, [&](const QString& row) { return row.section(u'\t', 0, 0) == wanted; }))
            << field->name() << ' ' << wanted;
    }
}

TEST_P(Keys, F1OpensTheManual) {
    QTest::keyClick(&window, Qt::Key_F1);
    auto* manual = window.findChild<QDialog*>(u"janelaManual"_s);
    ASSERT_TRUE(manual);
    EXPECT_TRUE(manual->isVisible());
    auto* page = manual->findChild<QTextBrowser*>();
    EXPECT_TRUE(page->toPlainText().contains(u"Encontrar uma pessoa"));
    const auto* headings = manual->findChild<QListWidget*>();
    ASSERT_GT(headings->count(), 10);
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(window.findChildren<QDialog*>(u"janelaManual"_s).size(), 1);
    auto* search = manual->findChild<QLineEdit*>();
    QTest::keyClicks(search, u"interno"_s);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_TRUE(page->textCursor().hasSelection());
    manual->close();
}

TEST_P(Keys, TheKeysOfTheScreenAreShown) {
    int rows = 0;
    QTimer::singleShot(0, &window, [&] {
        auto* shown = window.findChild<QDialog*>(u"janelaTeclas"_s);
        ASSERT_TRUE(shown);
        rows = shown->findChild<QTableWidget*>()->rowCount();
        shown->reject();
    });
    QTest::keyClick(&window, Qt::Key_Slash, Qt::ControlModifier);
    EXPECT_GT(rows, 2);
}

INSTANTIATE_TEST_SUITE_P(Screens, Keys, testing::ValuesIn(ScreenNames()),
                         [](const auto& screenName) { return screenName.param; });

TEST(KeysOfAll, AreKeysOfFieldsThatExist) {
    TestPlatform platform;
    Register registro(platform);
    for (const QString& name : registro.context().NomesTelas())
        for (const desktop::FieldKey& key : desktop::FieldKeys(name)) {
            const bool anyRole = key.field.endsWith(u"Contato") && name.startsWith(u"frm");
            EXPECT_TRUE(anyRole || registro.context().Tela(name).findField(key.field)) << name << ' ' << key.field;
        }
}

class KeysOfThePerson : public testing::Test {
  protected:
    KeysOfThePerson() : tela(registro.context().Tela(u"frmPessoas"_s)), window(tela, nullptr) {
        window.show();
        window.complete();
        window.activateWindow();
        settle();
    }
    void settle() {
        window.binder().flush();
        QCoreApplication::processEvents();
    }
    void press(int key, Qt::KeyboardModifiers modifiers) {
        // A field on a page that has gone to the back gets no key.
        QWidget* holder = window.focusWidget();
        QTest::keyClick(holder && holder->isVisible() ? holder : &window, static_cast<Qt::Key>(key), modifiers);
        settle();
    }
    screen::Field& field(const char* name) { return tela.field(QLatin1StringView(name)); }
    QString focused() const { return tela.focus() ? tela.focus()->name() : QString(); }

    TestPlatform platform;
    Register registro{platform};
    screen::Screen& tela;
    desktop::ScreenWindow window;
};

TEST_F(KeysOfThePerson, ALetterLeadsToItsField) {
    press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(focused(), u"txtDescricao");
    press(Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(focused(), u"txtRowID");
    press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(focused(), u"mskCodigo");
    press(Qt::Key_E, Qt::AltModifier);
    EXPECT_EQ(focused(), u"txtFone1");
}

TEST_F(KeysOfThePerson, ALetterMeansTheFieldOfThePageInFront) {
    press(Qt::Key_2, Qt::AltModifier);
    EXPECT_EQ(dynamic_cast<screen::TabStrip&>(field("SSTab2")).current(), 1);
    press(Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(focused(), u"txtNomeContato");
    press(Qt::Key_0, Qt::AltModifier);
    EXPECT_EQ(dynamic_cast<screen::TabStrip&>(field("SSTab2")).current(), 9);
    press(Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(focused(), u"cboProduto");
}

TEST_F(KeysOfThePerson, RolesAndSavingHaveTheirKeys) {
    QStringList clicked;
    for (const char* name : {"cmdCliente", "cmdMotorista", "cmdArquiteto", "cmdSALVAR"})
        field(name).Click = [&clicked, name] { clicked += QLatin1StringView(name); };
    for (const int number : {1, 5, 7}) {
        press(Qt::Key_0 + number, Qt::ControlModifier);
        QTest::qWait(150); // a button is seen to go down for a moment
    }
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(clicked, QStringList({u"cmdCliente"_s, u"cmdMotorista"_s, u"cmdArquiteto"_s, u"cmdSALVAR"_s}));
}

TEST_F(KeysOfThePerson, ANewSearchEmptiesBothCodes) {
    int searches = 0;
    field("cmdPesquisar_Cliente").Click = [&] { ++searches; };
    field("txtRowID").setText(u"12"_s);
    field("txtCodPessExterno").setText(u"X1"_s);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(searches, 1);
    EXPECT_EQ(field("txtRowID").text(), u"");
    EXPECT_EQ(field("txtCodPessExterno").text(), u"");
    // During an inclusion the code is locked, and there is nothing to look for.
    field("txtRowID").setLocked(true);
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(searches, 1);
}

} // namespace vorta::test

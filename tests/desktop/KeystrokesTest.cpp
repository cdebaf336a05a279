// Eight tasks of the office by keyboard alone, at the real windows and a real database, with their strokes counted: the
// manual promises these figures.

#include "Typist.h"
#include "base/Literals.h"
#include "desktop/DesktopApplication.h"
#include "desktop/ScreenWindow.h"
#include "firebird/EmbeddedEngine.h"
#include "kit/Installed.h"
#include "launch/AcessoDados.h"

#include <QFile>
#include <QSettings>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

/// The strokes that the manual promises for a task, from its table of tasks: "| task | keys | strokes |".
int promised(const QString& task) {
    QFile manual(QString::fromUtf8(DOCUMENTS "/manual.md"));
    if (!manual.open(QIODevice::ReadOnly))
        return -1;
    for (const QString& line : QString::fromUtf8(manual.readAll()).split(u'\n')) {
        const QStringList cells = line.split(u'|');
        if (cells.size() == 5 && cells[1].trimmed() == task)
            return cells[3].trimmed().toInt();
    }
    return -1;
}

} // namespace

/// A person of the demonstration and a register of its own.
class Keystrokes : public testing::Test {
  protected:
    Keystrokes() : home_(Installed::copyOf(Installed::demonstration())), typist(home_.home()) {}

    /// Brings a person onto the screen; what that takes is not counted with the task.
    void load(const char* code) {
        typist.then([this, code] {
            screen::User& user = typist.user();
            user.type(typist.field(u"txtRowID"_s), QLatin1StringView(code));
            user.click(typist.field(u"cmdPesquisar_Cliente"_s));
        });
    }
    void parameter(const char* name, const char* value) {
        typist.then([this, name, value] {
            data::Statement insert(
                data::Piece("insert into empr_cnfg (idempr_cnfg, nome_para, valo_para) values (9001, '"));
            insert << QString::fromLatin1(name) << data::Piece("', '") << QString::fromLatin1(value)
                   << data::Piece("')");
            typist.context().ConexaoPrincipal->Execute(insert);
        });
    }
    void expectPromised(const char* task) { EXPECT_EQ(typist.strokes(), promised(QString::fromUtf8(task))); }
    QString text(const char* field) { return typist.field(QLatin1StringView(field)).text(); }
    screen::Grid& grid(const char* name) { return dynamic_cast<screen::Grid&>(typist.field(QLatin1StringView(name))); }

  private:
    Installed home_;

  protected:
    Typist typist;
};

TEST_F(Keystrokes, FindByCode) {
    QString name;
    typist.data(u"2"_s).press(u"Enter"_s).press(u"Enter"_s).then([&] { name = text("txtDescricao"); });
    typist.play();
    EXPECT_EQ(name, u"TINTAS FREIRE LTDA");
    EXPECT_LE(typist.strokes(), 2);
    expectPromised("Encontrar pelo código");
}

TEST_F(Keystrokes, FindByAPartOfTheName) {
    QString name;
    typist.press(u"Ctrl+F"_s).data(u"silva"_s).press(u"Alt+P"_s).press(u"F6"_s).press(u"Enter"_s);
    typist.press(u"Enter"_s).press(u"Enter"_s).then([&] { name = text("txtDescricao"); });
    typist.play();
    EXPECT_TRUE(name.contains(u"SILVA")) << name;
    EXPECT_LE(typist.strokes(), 8);
    expectPromised("Encontrar por parte do nome e carregar");
}

TEST_F(Keystrokes, IncludeACompany) {
    QString code;
    QString street;
    int contacts = 0;
    int branches = 0;
    typist.press(u"Alt+I"_s).press(u"Alt+T"_s).data(u"J"_s).press(u"Enter"_s).data(u"11222333000181"_s);
    typist.press(u"Enter"_s).data(u"Tintas Aurora Ltda"_s).press(u"Enter"_s).data(u"Aurora"_s);
    // The postal code brings street, district, town and state.
    typist.press(u"Alt+C"_s).press(u"Enter"_s).press(u"Enter"_s).data(u"01001000"_s).press(u"Alt+P"_s);
    typist.press(u"F6"_s).press(u"Enter"_s).press(u"Enter"_s).press(u"Alt+M"_s).data(u"120"_s);
    typist.press(u"Alt+E"_s).data(u"1133334444"_s);
    typist.press(u"Alt+2"_s).press(u"Alt+O"_s).data(u"ALMOXARIFE"_s).press(u"Enter"_s).data(u"Rosa"_s);
    typist.press(u"Enter"_s).data(u"1144445555"_s).press(u"Alt+C"_s);
    typist.press(u"Alt+3"_s).press(u"Alt+M"_s).data(u"ALIMENTOS E BEBIDAS"_s).press(u"Alt+C"_s);
    typist.press(u"Ctrl+S"_s).press(u"Enter"_s).then([&] {
        code = text("txtRowID");
        street = text("txtEndereco");
        contacts = grid("Flex").Rows() - 1;
        branches = grid("FlexAtividades").Rows() - 1;
    });
    typist.play();
    EXPECT_GT(code.toInt(), 0);
    EXPECT_FALSE(street.isEmpty());
    EXPECT_EQ(contacts, 1);
    EXPECT_EQ(branches, 1);
    EXPECT_LE(typist.strokes(), 30);
    expectPromised("Incluir uma empresa com CEP, contato e ramo");
}

TEST_F(Keystrokes, LinkACustomer) {
    parameter("PESS_TELA_CLIENTE", "N");
    load("2");
    QString picture;
    typist.press(u"Ctrl+1"_s).press(u"Enter"_s).press(u"Enter"_s).then([&] {
        picture = typist.field(u"cmdCliente"_s).picture();
    });
    typist.play();
    EXPECT_TRUE(picture.contains(u"comvinculo")) << picture;
    EXPECT_LE(typist.strokes(), 3);
    expectPromised("Vincular como cliente, sem tela do vínculo");
}

TEST_F(Keystrokes, AlterAPhone) {
    load("2");
    QString phone;
    typist.press(u"Alt+A"_s).press(u"Alt+E"_s).press(u"Ctrl+A"_s).data(u"1155556666"_s).press(u"Ctrl+S"_s);
    typist.press(u"Enter"_s).then([&] { phone = text("txtFone1"); });
    typist.play();
    EXPECT_EQ(phone, u"1155556666");
    expectPromised("Alterar um telefone");
}

TEST_F(Keystrokes, AddAContact) {
    load("2");
    int before = 0;
    int behind = 0;
    typist.then([&] { before = grid("Flex").Rows(); });
    typist.press(u"Alt+A"_s).press(u"Alt+2"_s).press(u"Alt+O"_s).data(u"ALMOXARIFE"_s).press(u"Enter"_s);
    typist.data(u"Rosa"_s).press(u"Alt+C"_s).press(u"Ctrl+S"_s).press(u"Enter"_s);
    typist.then([&] { behind = grid("Flex").Rows(); });
    typist.play();
    EXPECT_EQ(behind, before + 1);
    expectPromised("Acrescentar um contato");
}

TEST_F(Keystrokes, LookAtTheOrders) {
    load("2");
    int page = 0;
    typist.press(u"Alt+6"_s).press(u"F6"_s).then([&] {
        page = dynamic_cast<screen::TabStrip&>(typist.field(u"SSTab2"_s)).current();
        EXPECT_EQ(typist.field(u"FlexHistClie"_s).screen().focus(), &typist.field(u"FlexHistClie"_s));
    });
    typist.play();
    EXPECT_EQ(page, 5);
    expectPromised("Ver os pedidos de um cliente");
}

TEST_F(Keystrokes, Deactivate) {
    typist.then([this] { // the carrier must be none any more
        typist.context().ConexaoPrincipal->Execute(data::Statement(data::Piece("delete from trpt where idpess = 2")));
    });
    load("2");
    QString day;
    typist.press(u"Alt+D"_s).press(u"Enter"_s).then([&] {
        data::Statement person(data::Piece("select data_desa from pess where idpess = 2"));
        day = AbreLeitura(typist.context(), person).Fields("data_desa").textOr({});
    });
    typist.play();
    EXPECT_FALSE(day.isEmpty());
    expectPromised("Desativar uma pessoa sem vínculos");
}

} // namespace vorta::test

int main(int count, char** arguments) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const vorta::desktop::DesktopApplication application(count, arguments);
    const QTemporaryDir home; // the engine's root and the windows' settings go with the run
    vorta::firebird::PrepareEmbeddedEngine(home.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path());
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}

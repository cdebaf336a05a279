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

/// What the manual tells of a task, from its table of tasks: "| task | keys | strokes |".
struct Told {
    QString keys;
    int strokes = -1;
};
Told toldOf(const QString& task) {
    QFile manual(QString::fromUtf8(DOCUMENTS "/manual.md"));
    if (!manual.open(QIODevice::ReadOnly))
        return {};
    for (const QString& line : QString::fromUtf8(manual.readAll()).split(u'\n')) {
        const QStringList cells = line.split(u'|');
        if (cells.size() == 5 && cells[1].trimmed() == task)
            return {cells[2], cells[3].trimmed().toInt()};
    }
    return {};
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
    /// Does a task by the manual alone: the keys that it lists, as many as it promises.
    Typist& task(const char* name, const QStringList& data, const std::map<int, QString>& pictures = {}) {
        const Told told = toldOf(QString::fromUtf8(name));
        EXPECT_FALSE(told.keys.isEmpty()) << name;
        typist.follow(told.keys, data, pictures);
        EXPECT_EQ(typist.strokes(), told.strokes);
        return typist;
    }
    QString text(const char* field) { return typist.field(QLatin1StringView(field)).text(); }
    screen::Grid& grid(const char* name) { return dynamic_cast<screen::Grid&>(typist.field(QLatin1StringView(name))); }

  private:
    Installed home_;

  protected:
    Typist typist;
};

TEST_F(Keystrokes, FindByCode) {
    QString name;
    task("Encontrar pelo código", {u"2"_s}, {{1, u"codigo-1"_s}, {3, u"codigo-2"_s}}).then([&] {
        name = text("txtDescricao");
    });
    typist.play();
    EXPECT_EQ(name, u"TINTAS FREIRE LTDA");
    EXPECT_LE(typist.strokes(), 2);
}

TEST_F(Keystrokes, FindByAPartOfTheName) {
    QString name;
    task("Encontrar por parte do nome e carregar", {u"silva"_s}, {{2, u"nome-1"_s}, {4, u"nome-2"_s}}).then([&] {
        name = text("txtDescricao");
    });
    typist.play();
    EXPECT_TRUE(name.contains(u"SILVA")) << name;
    EXPECT_LE(typist.strokes(), 8);
}

TEST_F(Keystrokes, IncludeACompany) {
    QString code;
    QString street;
    int contacts = 0;
    int branches = 0;
    // The postal code brings street, district, town and state.
    task("Incluir uma empresa com CEP, contato e ramo",
         {u"J"_s, u"11222333000181"_s, u"Tintas Aurora Ltda"_s, u"Aurora"_s, u"01001000"_s, u"120"_s, u"1133334444"_s,
          u"ALMOXARIFE"_s, u"Rosa"_s, u"1144445555"_s, u"ALIMENTOS E BEBIDAS"_s},
         {{9, u"incluir-1"_s},
          {15, u"incluir-2"_s},
          {21, u"incluir-3"_s},
          {29, u"incluir-4"_s},
          {33, u"incluir-5"_s},
          {34, u"incluir-6"_s}});
    typist.then([&] {
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
}

TEST_F(Keystrokes, LinkACustomer) {
    parameter("PESS_TELA_CLIENTE", "N");
    load("2");
    QString picture;
    task("Vincular como cliente, sem tela do vínculo", {}, {{1, u"vinculo-1"_s}, {3, u"vinculo-2"_s}}).then([&] {
        picture = typist.field(u"cmdCliente"_s).picture();
    });
    typist.play();
    EXPECT_TRUE(picture.contains(u"comvinculo")) << picture;
    EXPECT_LE(typist.strokes(), 3);
}

TEST_F(Keystrokes, AlterAPhone) {
    load("2");
    QString phone;
    task("Alterar um telefone", {u"1155556666"_s}, {{4, u"telefone-1"_s}, {5, u"telefone-2"_s}}).then([&] {
        phone = text("txtFone1");
    });
    typist.play();
    EXPECT_EQ(phone, u"1155556666");
}

TEST_F(Keystrokes, AddAContact) {
    load("2");
    int before = 0;
    int behind = 0;
    typist.then([&] { before = grid("Flex").Rows(); });
    task("Acrescentar um contato", {u"ALMOXARIFE"_s, u"Rosa"_s}, {{6, u"contato-1"_s}, {7, u"contato-2"_s}});
    typist.then([&] { behind = grid("Flex").Rows(); });
    typist.play();
    EXPECT_EQ(behind, before + 1);
}

TEST_F(Keystrokes, LookAtTheOrders) {
    load("40"); // a customer
    int page = 0;
    task("Ver os pedidos de um cliente", {}, {{2, u"pedidos-1"_s}}).then([&] {
        page = dynamic_cast<screen::TabStrip&>(typist.field(u"SSTab2"_s)).current();
        EXPECT_GT(grid("FlexHistClie").Rows(), 1);
        EXPECT_EQ(typist.field(u"FlexHistClie"_s).screen().focus(), &typist.field(u"FlexHistClie"_s));
    });
    typist.play();
    EXPECT_EQ(page, 5);
}

TEST_F(Keystrokes, Deactivate) {
    typist.then([this] { // the carrier must be none any more
        typist.context().ConexaoPrincipal->Execute(data::Statement(data::Piece("delete from trpt where idpess = 2")));
    });
    load("2");
    QString day;
    task("Desativar uma pessoa sem vínculos", {}, {{1, u"desativar-1"_s}, {2, u"desativar-2"_s}}).then([&] {
        data::Statement person(data::Piece("select data_desa from pess where idpess = 2"));
        day = AbreLeitura(typist.context(), person).Fields("data_desa").textOr({});
    });
    typist.play();
    EXPECT_FALSE(day.isEmpty());
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

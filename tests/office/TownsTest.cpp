// Every town of the country is chosen from its list, saved, loaded and found again.

#include "app/Register.h"
#include "base/Literals.h"
#include "base/Windows1252.h"
#include "firebird/EmbeddedEngine.h"
#include "kit/Installed.h"
#include "kit/Reference.h"
#include "kit/Vocabulary.h"
#include "person/frmPessoas.h"
#include "search/frmBROWSE_PESSOAS.h"

#include <QMap>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

const QString savedText = u"Registro Gravado com sucesso!"_s;
const QString notFoundText = u"Nenhum Registro Localizado com esses parâmetros..."_s;

struct KitTown {
    QString code;
    QString name;
};

/// The towns of each state as the kit has them.
QMap<QString, std::vector<KitTown>> townsOfTheStates() {
    QMap<QString, std::vector<KitTown>> states;
    for (const QStringList& row : kit::ReadReference(u"muni_ibge"_s).rows)
        states[row[2]].push_back({row[0], row[1]});
    return states;
}

/// A user with one person, who moves from town to town. No window; every movement is an event of the screens.
class Traveller : public screen::Platform {
  public:
    explicit Traveller(const QString& home) : home_(home), register_(*this) {}

    void travel() {
        register_.start(u"1^1^PRD^False^"_s);
        EXPECT_FALSE(register_.program().failure()) << register_.program().failure()->description();
    }
    int towns() const { return towns_; }

    screen::Answer messageBox(const screen::Box& box) override {
        // The search screen opens on its last search, for a town that the person has left.
        if (opening_)
            EXPECT_EQ(box.text, notFoundText);
        else
            EXPECT_EQ(box.text, savedText);
        return screen::Answer::OK;
    }
    void openAddress(const QString&) override {}
    QString home() const override { return home_; }

    void runModal(screen::Screen& shown) override {
        if (shown.name() == Register::startScreen()) {
            const auto states = townsOfTheStates();
            for (auto state = states.begin(); state != states.end() && !ended(); ++state)
                visit(state.key(), state.value());
        } else {
            find(shown);
        }
        if (!ended())
            shown.Unload();
    }

  private:
    frmPessoas& person() { return static_cast<frmPessoas&>(register_.context().Tela(Register::startScreen())); }
    bool ended() { return register_.program().hasEnded() || testing::Test::HasFailure(); }

    void load() {
        user().type(person().txtRowID, u"1"_s);
        user().click(person().cmdPesquisar_Cliente);
    }

    void visit(const QString& state, const std::vector<KitTown>& towns) {
        load();
        user().click(person().cmdALTERAR);
        user().type(person().cboUF, state);
        user().type(person().cboCidade, {});
        user().dropDown(person().cboCidade);
        const QStringList items = person().cboCidade.items();
        ASSERT_EQ(items.size(), qsizetype(towns.size())) << state;
        for (const KitTown& town : towns) {
            if (ended())
                return;
            ASSERT_TRUE(items.contains(town.name)) << town.name;
            move(static_cast<int>(items.indexOf(town.name)), town, state);
            ++towns_;
        }
    }

    /// Chooses the town in the list that stands open, saves, finds the person by it and loads it for the next one.
    void move(int item, const KitTown& town, const QString& state) {
        frmPessoas& screen = person();
        user().focus(screen.cboCidade);
        user().pick(screen.cboCidade, item);
        user().focus(screen.txtEndereco);
        EXPECT_EQ(screen.lblCodMunIBGE.text(), town.code) << town.name;
        user().click(screen.cmdSALVAR);
        user().type(screen.txtRowID, {});
        user().type(screen.txtCodPessExterno, {});
        wanted_ = town.name;
        opening_ = true;
        user().click(screen.cmdPesquisar_Cliente); // the search screen
        EXPECT_EQ(screen.txtRowID.text(), u"1"_s) << town.name;
        user().click(screen.cmdPesquisar_Cliente);
        EXPECT_EQ(screen.cboCidade.text().toUtf8(), FromWindows1252(kit::Stored(town.name)).toUtf8());
        EXPECT_EQ(screen.cboUF.text(), state);
        EXPECT_EQ(screen.lblCodMunIBGE.text(), town.code) << town.name;
        user().click(screen.cmdALTERAR);
    }

    void find(screen::Screen& shown) {
        opening_ = false;
        auto& search = static_cast<frmBROWSE_PESSOAS&>(shown);
        user().click(search.opCidade);
        user().type(search.cboCod, wanted_);
        user().click(search.cmdPesquisa);
        ASSERT_EQ(search.Flex.Rows(), 2) << wanted_;
        user().doubleClickCell(search.Flex, 1, 2);
    }

    screen::User& user() { return register_.user(); }

    QString home_;
    Register register_;
    QString wanted_;
    bool opening_ = false;
    int towns_ = 0;
};

} // namespace

TEST(Towns, EachIsChosenSavedLoadedAndFoundAgain) {
    const Installed installed = Installed::copyOf(Installed::plain());
    {
        kit::Loader loader(installed.production());
        loader.run(u"INSERT INTO PESS (IDPESS, PSFI_PSJU, CPF0_CNPJ, NOME_PESS, NOME_CONH, ENDE_COML_PESS, "
                   "BAIR_COML_PESS, CIDA_COML_PESS, UF00_COML_PESS, CEP0_COML_PESS, PAIS_COML_PESS) VALUES (1, 'J', "
                   "'11.222.333/0001-81', 'VIAJANTE', 'VIAJANTE', 'RUA UM', 'CENTRO', 'OSASCO', 'SP', '06010-000', "
                   "'BRASIL')"_s);
        loader.commit();
    }
    // The disk is nothing that this test is about.
    firebird::SetForcedWrites(installed.production(), false);
    qputenv("VORTA_HOME", installed.home().toLocal8Bit());
    Traveller traveller(installed.home());
    traveller.travel();
    EXPECT_EQ(traveller.towns(), 5571);
}

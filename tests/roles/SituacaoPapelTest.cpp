#include "base/Literals.h"
#include "roles/PapelTest.h"

/// Deactivation and reactivation of a role row.
namespace vorta::test {

namespace {

using screen::Answer;

struct Caso {
    const char* tela;
    const char* tabela;
    const char* chave;
    const char* colunaPess; ///< kept by the screen itself; empty for none
    bool conferePessoa;
};

const std::vector<Caso> casos{
    {"frmCliente", "CLIE", "IDCLIE", "", true},         {"frmFornecedor", "FORN", "IDFORN", "", true},
    {"frmTransportadora", "TRPT", "IDTRPT", "", true},  {"frmMotorista", "MOTO", "IDMOTO", "IDMOTO", true},
    {"frmVendedor", "VEND", "IDVEND", "", true},        {"frmArquiteto", "ARQT", "IDARQT", "IDARQT", false},
    {"frmDecorador", "DECO", "IDDECO", "IDDECO", false}};

class RoleState : public PapelTest, public ::testing::WithParamInterface<Caso> {
  protected:
    QString statement(const char* colunas) const {
        return u"UPDATE %1 SET %2 WHERE (%3=31)"_s.arg(QLatin1StringView(GetParam().tabela), QLatin1StringView(colunas),
                                                       QLatin1StringView(GetParam().chave));
    }
    bool keepsColumn() const { return *GetParam().colunaPess; }
};

TEST_P(RoleState, Deactivates) {
    for (const char* motor : {"FIREBIRD", "MSSQL"}) {
        connect(QString::fromLatin1(motor));
        roleRows();
        platform.willAnswer(Answer::Yes);
        open(GetParam().tela, [&] { click("cmdEXCLUIR"); });
        QStringList esperado{statement("USER_DESA='7', DATA_DESA='20261120'")};
        if (keepsColumn())
            esperado << u"UPDATE PESS SET %1 = 0 WHERE IDPESS = 5"_s.arg(QLatin1StringView(GetParam().colunaPess));
        EXPECT_EQ(takeWrites(), esperado);
        EXPECT_EQ(lastBox().text, u"Deseja realmente Desativar?");
        EXPECT_EQ(lastBox().buttons, screen::Buttons::YesNo);
        EXPECT_EQ(lastBox().title, u"");
        EXPECT_FALSE(database.sent.contains(u"BEGIN"_s));
    }
}

TEST_P(RoleState, DoesNotDeactivateOnNoNorTwice) {
    roleRows();
    platform.willAnswer(Answer::No);
    open(GetParam().tela, [&] { click("cmdEXCLUIR"); });
    roleRows(test::date(2026, 1, 2));
    open(GetParam().tela, [&] { click("cmdEXCLUIR"); });
    EXPECT_EQ(platform.boxes.news(),
              (QStringList{u"Deseja realmente Desativar?"_s,
                           u"Impossibilidade de Executar o Comando!\nO Registro Já está como Desativado."_s}));
    EXPECT_EQ(takeWrites(), QStringList());
}

TEST_P(RoleState, Reactivates) {
    roleRows(test::date(2026, 1, 2));
    platform.willAnswer(Answer::Yes);
    open(GetParam().tela, [&] {
        EXPECT_EQ(textOf("txtDTDesativa"), u"02/01/2026");
        roleRows();
        click("cmdReativar");
        EXPECT_EQ(textOf("txtDTDesativa"), u"") << "the row is read again";
    });
    QStringList esperado{statement("USER_DESA=NULL, DATA_DESA=NULL, USER_INCL='7', DATA_INCL='20261120'")};
    if (keepsColumn())
        esperado << u"UPDATE PESS SET %1 = 31 WHERE IDPESS = 5"_s.arg(QLatin1StringView(GetParam().colunaPess));
    EXPECT_EQ(takeWrites(), esperado);
    EXPECT_EQ(lastBox().text, u"Deseja realmente Reativar Este Registro ?");
}

TEST_P(RoleState, NoToReactivationReadsAgain) {
    roleRows(test::date(2026, 1, 2));
    platform.willAnswer(Answer::No);
    open(GetParam().tela, [&] {
        database.sent.clear();
        click("cmdReativar");
        EXPECT_EQ(database.sent.filter(u"SELECT * FROM %1 "_s.arg(QLatin1StringView(GetParam().tabela))).size(), 1);
    });
    EXPECT_EQ(platform.boxes.news(), QStringList(u"Deseja realmente Reativar Este Registro ?"_s));
    EXPECT_EQ(takeWrites(), QStringList());
}

TEST_P(RoleState, RefusesToReactivateAnActiveRow) {
    roleRows();
    open(GetParam().tela, [&] { click("cmdReativar"); });
    EXPECT_EQ(lastBox().text, u"Impossibilidade de Executar o Comando!\nO Registro Já está como Ativo.");
    EXPECT_EQ(takeWrites(), QStringList());
}

TEST_P(RoleState, ADeactivatedPersonComesFirst) {
    roleRows(test::date(2026, 1, 2));
    pessoas().lblDataDesa.setText(u"01/01/2026"_s);
    if (!GetParam().conferePessoa)
        platform.willAnswer(Answer::Yes);
    open(GetParam().tela, [&] { click("cmdReativar"); });
    if (!GetParam().conferePessoa) {
        EXPECT_FALSE(takeWrites().isEmpty());
        EXPECT_EQ(platform.boxes.news(), QStringList(u"Deseja realmente Reativar Este Registro ?"_s));
        return;
    }
    EXPECT_EQ(lastBox().text, u"Atenção!!!\nO registro 'Pessoa' deverá ser reativado antes dessa operação!");
    EXPECT_EQ(lastBox().icon, screen::Icon::Critical);
    EXPECT_EQ(lastBox().title, ContextoExecucao::Titulo());
    EXPECT_EQ(takeWrites(), QStringList());
}

TEST_P(RoleState, RefusesToAlterADeactivatedRow) {
    roleRows(test::date(2026, 1, 2));
    open(GetParam().tela, [&] {
        click("cmdALTERAR");
        if (tela().findField(u"Flex"_s)) {
            EXPECT_EQ(focused(), u"Flex");
        }
    });
    EXPECT_EQ(lastBox().text, u"Impossibilidade de Executar o Comando!\nO Registro Está Desativado.");
    EXPECT_NE(contexto.ModoTela, u"A");
    EXPECT_FALSE(program.hasEnded());
}

TEST_P(RoleState, RefusesASecondRow) {
    roleRows();
    open(GetParam().tela, [&] { click("cmdINCLUIR"); });
    EXPECT_EQ(lastBox().text, u"Este Registro já está vinculado!");
    EXPECT_NE(contexto.ModoTela, u"I");
}

TEST_P(RoleState, WithoutARowEachScreenHasItsOwnTest) {
    const QString falta = u"Selecione Um Registro Para Executar esta Operação!"_s;
    const bool pelaPessoa = QStringList{"frmCliente", "frmFornecedor", "frmTransportadora"}.contains(GetParam().tela);
    open(GetParam().tela, [&] {
        click("cmdReativar");
        EXPECT_EQ(lastBox().text,
                  pelaPessoa ? u"Impossibilidade de Executar o Comando!\nO Registro Já está como Ativo."_s : falta);
        if (!pelaPessoa) {
            click("cmdEXCLUIR");
            EXPECT_EQ(lastBox().text, falta);
            click("cmdALTERAR");
            EXPECT_EQ(lastBox().text, falta);
            EXPECT_EQ(platform.boxes.size(), 3u);
            return;
        }
        click("cmdALTERAR");
        EXPECT_EQ(contexto.ModoTela, u"A");
    });
    EXPECT_FALSE(program.hasEnded());
}

INSTANTIATE_TEST_SUITE_P(Roles, RoleState, ::testing::ValuesIn(casos),
                         [](const auto& caso) { return std::string(caso.param.tela); });

} // namespace

} // namespace vorta::test

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
    QString comando(const char* colunas) const {
        return u"UPDATE %1 SET %2 WHERE (%3=31)"_s.arg(QLatin1StringView(GetParam().tabela), QLatin1StringView(colunas),
                                                       QLatin1StringView(GetParam().chave));
    }
    bool guardaColuna() const { return *GetParam().colunaPess; }
};

TEST_P(RoleState, Deactivates) {
    for (const char* motor : {"FIREBIRD", "MSSQL"}) {
        conecta(motor);
        registros();
        plataforma.willAnswer(Answer::Yes);
        abre(GetParam().tela, [&] { clica("cmdEXCLUIR"); });
        QStringList esperado{comando("USER_DESA='7', DATA_DESA='20261120'")};
        if (guardaColuna())
            esperado << u"UPDATE PESS SET %1 = 0 WHERE IDPESS = 5"_s.arg(QLatin1StringView(GetParam().colunaPess));
        EXPECT_EQ(escritas(), esperado);
        EXPECT_EQ(ultimaCaixa().text, u"Deseja realmente Desativar?");
        EXPECT_EQ(ultimaCaixa().buttons, screen::Buttons::YesNo);
        EXPECT_EQ(ultimaCaixa().title, u"");
        EXPECT_FALSE(base.sent.contains(u"BEGIN"_s));
    }
}

TEST_P(RoleState, DoesNotDeactivateOnNoNorTwice) {
    registros();
    plataforma.willAnswer(Answer::No);
    abre(GetParam().tela, [&] { clica("cmdEXCLUIR"); });
    registros(test::date(2026, 1, 2));
    abre(GetParam().tela, [&] { clica("cmdEXCLUIR"); });
    EXPECT_EQ(ultimaCaixa().text, u"Impossibilidade de Executar o Comando!\nO Registro Já está como Desativado.");
    EXPECT_EQ(escritas(), QStringList());
}

TEST_P(RoleState, Reactivates) {
    registros(test::date(2026, 1, 2));
    plataforma.willAnswer(Answer::Yes);
    abre(GetParam().tela, [&] {
        EXPECT_EQ(texto("txtDTDesativa"), u"02/01/2026");
        registros();
        clica("cmdReativar");
        EXPECT_EQ(texto("txtDTDesativa"), u"") << "the row is read again";
    });
    QStringList esperado{comando("USER_DESA=NULL, DATA_DESA=NULL, USER_INCL='7', DATA_INCL='20261120'")};
    if (guardaColuna())
        esperado << u"UPDATE PESS SET %1 = 31 WHERE IDPESS = 5"_s.arg(QLatin1StringView(GetParam().colunaPess));
    EXPECT_EQ(escritas(), esperado);
    EXPECT_EQ(ultimaCaixa().text, u"Deseja realmente Reativar Este Registro ?");
}

TEST_P(RoleState, NoToReactivationReadsAgain) {
    registros(test::date(2026, 1, 2));
    plataforma.willAnswer(Answer::No);
    abre(GetParam().tela, [&] {
        base.sent.clear();
        clica("cmdReativar");
        EXPECT_EQ(base.sent.filter(u"SELECT * FROM %1 "_s.arg(QLatin1StringView(GetParam().tabela))).size(), 1);
    });
    EXPECT_EQ(escritas(), QStringList());
}

TEST_P(RoleState, RefusesToReactivateAnActiveRow) {
    registros();
    abre(GetParam().tela, [&] { clica("cmdReativar"); });
    EXPECT_EQ(ultimaCaixa().text, u"Impossibilidade de Executar o Comando!\nO Registro Já está como Ativo.");
    EXPECT_EQ(escritas(), QStringList());
}

TEST_P(RoleState, ADeactivatedPersonComesFirst) {
    registros(test::date(2026, 1, 2));
    pessoas().lblDataDesa.setText(u"01/01/2026"_s);
    if (!GetParam().conferePessoa)
        plataforma.willAnswer(Answer::Yes);
    abre(GetParam().tela, [&] { clica("cmdReativar"); });
    if (!GetParam().conferePessoa) {
        EXPECT_FALSE(escritas().isEmpty());
        return;
    }
    EXPECT_EQ(ultimaCaixa().text, u"Atenção!!!\nO registro 'Pessoa' deverá ser reativado antes dessa operação!");
    EXPECT_EQ(ultimaCaixa().icon, screen::Icon::Critical);
    EXPECT_EQ(ultimaCaixa().title, ContextoExecucao::Titulo());
    EXPECT_EQ(escritas(), QStringList());
}

TEST_P(RoleState, RefusesToAlterADeactivatedRow) {
    registros(test::date(2026, 1, 2));
    abre(GetParam().tela, [&] {
        clica("cmdALTERAR");
        if (tela().findField(u"Flex"_s)) {
            EXPECT_EQ(foco(), u"Flex");
        }
    });
    EXPECT_EQ(ultimaCaixa().text, u"Impossibilidade de Executar o Comando!\nO Registro Está Desativado.");
    EXPECT_NE(contexto.ModoTela, u"A");
    EXPECT_FALSE(programa.hasEnded());
}

TEST_P(RoleState, RefusesASecondRow) {
    registros();
    abre(GetParam().tela, [&] { clica("cmdINCLUIR"); });
    EXPECT_EQ(ultimaCaixa().text, u"Este Registro já está vinculado!");
    EXPECT_NE(contexto.ModoTela, u"I");
}

TEST_P(RoleState, WithoutARowEachScreenHasItsOwnTest) {
    const QString falta = u"Selecione Um Registro Para Executar esta Operação!"_s;
    const bool pelaPessoa = QStringList{"frmCliente", "frmFornecedor", "frmTransportadora"}.contains(GetParam().tela);
    abre(GetParam().tela, [&] {
        clica("cmdReativar");
        EXPECT_EQ(ultimaCaixa().text,
                  pelaPessoa ? u"Impossibilidade de Executar o Comando!\nO Registro Já está como Ativo."_s : falta);
        if (!pelaPessoa) {
            clica("cmdEXCLUIR");
            EXPECT_EQ(ultimaCaixa().text, falta);
            clica("cmdALTERAR");
            EXPECT_EQ(ultimaCaixa().text, falta);
            EXPECT_EQ(plataforma.boxes.size(), 3u);
            return;
        }
        clica("cmdALTERAR");
        EXPECT_EQ(contexto.ModoTela, u"A");
    });
    EXPECT_FALSE(programa.hasEnded());
}

INSTANTIATE_TEST_SUITE_P(Roles, RoleState, ::testing::ValuesIn(casos),
                         [](const auto& caso) { return std::string(caso.param.tela); });

} // namespace

} // namespace vorta::test

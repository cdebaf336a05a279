#include "base/Literals.h"
#include "person/PessoasFixture.h"

/// The seven role buttons: direct links, the way into the role screens, and what a failing statement leaves behind.
namespace vorta::test {

namespace {

using screen::Answer;

const QString identidade = u"SELECT @@IDENTITY AS 'MAXROWID'"_s;

/// A role with the statements that its button sends for person 5, by user 12 of company 0001, on 20 November 2026.
struct Link {
    const char* botao;
    const char* palavra;
    const char* parametro;
    const char* tela;
    const char* consulta;
    const char* chave;
    const char* gerador; ///< empty where the database gives the key
    const char* inserePrefixo;
    const char* insereColunas;
    const char* insereValores;
    const char* exclui;
    const char* colunaPess;
};

const std::vector<Link> links{
    {"cmdCliente", "Cliente", "PESS_TELA_CLIENTE", "frmCliente", "SELECT IDCLIE FROM CLIE WHERE IDPESS = 5", "IDCLIE",
     "GEN_CLIE", "INSERT INTO CLIE (", "IDPESS, IDTIPO_CLIE, CODI_EMPR, DATA_INCL, USER_INCL",
     "'5', '0', '0001', '20261120', '12'", "UPDATE CLIE SET USER_DESA='12', DATA_DESA='20261120' WHERE (IDCLIE=31)",
     "IDCLIE"},
    {"cmdFornecedor", "Fornecedor", "PESS_TELA_FORNECEDOR", "frmFornecedor", "SELECT IDFORN FROM FORN WHERE IDPESS = 5",
     "IDFORN", "GEN_FORN", "INSERT INTO FORN (", "IDPESS, CODI_EMPR, DATA_INCL, USER_INCL",
     "'5', '0001', '20261120', '12'", "UPDATE FORN SET USER_DESA='12', DATA_DESA='20261120' WHERE (IDFORN=31)",
     "IDFORN"},
    {"cmdTransportadora", "Transportadora", "PESS_TELA_TRANSPORTADORA", "frmTransportadora",
     "SELECT IDTRPT FROM TRPT WHERE IDPESS = 5", "IDTRPT", "GEN_TRPT", "INSERT INTO TRPT (",
     "IDPESS, CODI_EMPR, DATA_INCL, USER_INCL", "'5', '0001', '20261120', '12'",
     "UPDATE TRPT SET USER_DESA='12', DATA_DESA='20261120' WHERE (IDTRPT=31)", "IDTRPT"},
    {"cmdVendedor", "Vendedor", "PESS_TELA_VENDEDOR", "frmVendedor", "SELECT IDVEND FROM VEND WHERE IDPESS = 5",
     "IDVEND", "GEN_VEND", "INSERT INTO VEND (",
     "IDPESS, VALO_SALA, PERC_POOL, PERC_COMS, CODI_EMPR, DATA_INCL, USER_INCL",
     "'5', '0.00', '0.00', '0.00', '0001', '20261120', '12'",
     "UPDATE VEND SET USER_DESA='12', DATA_DESA='20261120' WHERE (IDVEND=31)", "IDVEND"},
    {"cmdArquiteto", "Arquiteto", "PESS_TELA_ARQUITETO", "frmArquiteto", "SELECT IDARQT FROM ARQT WHERE IDPESS = 5",
     "IDARQT", "", "INSERT INTO ARQT (", "IDPESS, CODI_EMPR, DATA_INCL, USER_INCL", "'5', '0001', '20261120', '12'",
     "UPDATE ARQT SET USER_DESA='12', DATA_DESA='20261120' WHERE (IDARQT=31)", "IDARQT"},
    {"cmdDecorador", "Decorador", "PESS_TELA_DECORADOR", "frmDecorador", "SELECT IDDECO FROM DECO WHERE IDPESS = 5",
     "IDDECO", "", "INSERT INTO DECO (", "IDPESS, CODI_EMPR, DATA_INCL, USER_INCL", "'5', '0001', '20261120', '12'",
     "UPDATE DECO SET USER_DESA='12', DATA_DESA='20261120' WHERE (IDDECO=31)", "IDDECO"},
};

class RoleButtons : public PessoasFixture, public ::testing::WithParamInterface<Link> {
  protected:
    RoleButtons() {
        tela.txtRowID.setText(u"5"_s);
        tela.setCaption(u"TITULO"_s);
        platform.shown.clear();
    }

    static QString latin(const char* texto) { return QString::fromLatin1(texto); }
    QString leitura() const { return latin(GetParam().consulta) + u" AND DATA_DESA IS NULL"_s; }
    QString parametroLido() const {
        return u"SELECT * FROM EMPR_CNFG WHERE NOME_PARA='%1'"_s.arg(latin(GetParam().parametro));
    }
    QString colunaGravada(int id) const {
        return u"UPDATE PESS SET %1 = %2 WHERE IDPESS = 5"_s.arg(latin(GetParam().colunaPess)).arg(id);
    }
    void direto() { Parametro(GetParam().parametro, "N"); }
    void vinculado() { database.answer(latin(GetParam().consulta), {{latin(GetParam().chave)}, {{test::number(31)}}}); }
    void clica() { user.click(tela.field(latin(GetParam().botao))); }
    /// What went out before the seven readings of the indicators, of which there must be seven behind it.
    QStringList antesDosIndicadores() {
        QStringList comandos = std::exchange(database.sent, {});
        EXPECT_GE(comandos.size(), 7);
        EXPECT_EQ(comandos.last(7).filter(u" AND DATA_DESA IS NULL"_s).size(), 7);
        return comandos.first(comandos.size() - 7);
    }
};

TEST_P(RoleButtons, LinkAtOnceOnFirebird) {
    direto();
    database.answer(u"gen_id(%1,"_s.arg(latin(GetParam().gerador)), {{"GEN_ID"}, {{test::number(90)}}});
    database.answer(identidade, {{"MaxRowID"}, {{test::number(31)}}});
    platform.willAnswer(Answer::Yes);
    contexto.VinculoAtual = u"S"_s;
    clica();
    const QString chave = latin(GetParam().chave);
    QStringList esperado{parametroLido(), leitura()};
    QString insere = latin(GetParam().inserePrefixo);
    if (*GetParam().gerador) {
        esperado << u"select gen_id(%1, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = '%1'; "_s.arg(
            latin(GetParam().gerador));
        insere += chave + u", "_s;
    }
    esperado << insere + latin(GetParam().insereColunas) + u") VALUES ("_s +
                    (*GetParam().gerador ? u"'90', "_s : QString()) + latin(GetParam().insereValores) + u")"_s
             << identidade << colunaGravada(31);
    EXPECT_EQ(antesDosIndicadores(), esperado);
    ASSERT_EQ(platform.boxes.size(), 2u);
    EXPECT_EQ(platform.boxes[0].text, u"Deseja Criar um Vínculo de %1?"_s.arg(latin(GetParam().palavra)));
    EXPECT_EQ(platform.boxes[0].title, u"TITULO");
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::None);
    EXPECT_EQ(platform.boxes[1].text, u"Vínculo estabelecido com sucesso!");
    EXPECT_EQ(platform.boxes[1].icon, screen::Icon::Information);
    EXPECT_EQ(platform.boxes[1].title, u"TITULO");
}

TEST_P(RoleButtons, LinkAtOnceOnSqlServer) {
    UsaBanco(u"MSSQL"_s);
    direto();
    database.answer(identidade, {{"MaxRowID"}, {{test::number(31)}}});
    platform.willAnswer(Answer::Yes);
    clica();
    const QString insere = latin(GetParam().inserePrefixo) + latin(GetParam().insereColunas) + u") VALUES ("_s +
                           latin(GetParam().insereValores) + u")"_s;
    EXPECT_EQ(database.writes, (QStringList{insere, colunaGravada(31)}));
}

TEST_P(RoleButtons, WithoutAnIdentityTheBackReferenceIsZero) {
    direto();
    platform.willAnswer(Answer::Yes);
    clica();
    EXPECT_EQ(database.writes.last(), colunaGravada(0));
}

TEST_P(RoleButtons, UnlinkAtOnce) {
    direto();
    vinculado();
    platform.willAnswer(Answer::Yes);
    clica();
    EXPECT_EQ(antesDosIndicadores(),
              (QStringList{parametroLido(), leitura(), leitura(), latin(GetParam().exclui), colunaGravada(0)}));
    EXPECT_EQ(platform.boxes[0].text, u"Deseja Exclui o Vínculo de %1?"_s.arg(latin(GetParam().palavra)));
    EXPECT_EQ(platform.boxes[1].text, u"Vínculo excluído com sucesso!");
    EXPECT_TRUE(tela.field(latin(GetParam().botao)).picture().endsWith(u"comvinculo.bmp"_s))
        << "a second active row keeps the button lit";
}

TEST_P(RoleButtons, NoChangesNothingAndRefreshes) {
    direto();
    platform.willAnswer(Answer::No);
    clica();
    EXPECT_EQ(antesDosIndicadores().size(), 2);
    vinculado();
    platform.willAnswer(Answer::No);
    clica();
    EXPECT_EQ(antesDosIndicadores().size(), 2);
    EXPECT_TRUE(database.writes.isEmpty());
    EXPECT_EQ(platform.boxes.size(), 2u);
}

TEST_P(RoleButtons, EveryOtherParameterOpensTheScreen) {
    contexto.RegistraTela(latin(GetParam().tela), [](ContextoExecucao& dono) {
        return std::make_unique<screen::Screen>(dono.program(), latin(GetParam().tela));
    });
    clica();
    for (const char* valor : {"n", "N ", "S", ""}) {
        Parametro(GetParam().parametro, valor);
        clica();
    }
    EXPECT_EQ(platform.shown, QStringList(5, latin(GetParam().tela)));
    EXPECT_EQ(contexto.IdPessoaVinculo, u"5");
    EXPECT_EQ(antesDosIndicadores().filter(u"EMPR_CNFG"_s).size(), 5);
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_P(RoleButtons, NeedAPerson) {
    for (const char* id : {"", "0", "-1", "abc"}) {
        tela.txtRowID.setText(latin(id));
        clica();
        EXPECT_EQ(platform.boxes.back().text, u"Selecione ou Salve um Registro antes de vincular!");
        EXPECT_EQ(platform.boxes.back().icon, screen::Icon::Information);
        EXPECT_EQ(platform.boxes.back().title, u"TITULO");
    }
    EXPECT_TRUE(database.sent.isEmpty());
}

TEST_P(RoleButtons, AFailureBetweenTheStepsLeavesTheRowWritten) {
    direto();
    platform.willAnswer(Answer::Yes);
    database.fail(u"UPDATE PESS"_s, errorNumber::StatementRefused);
    clica();
    EXPECT_EQ(database.writes.size(), 1);
    ASSERT_TRUE(program.failure());
    EXPECT_EQ(program.failure()->number(), errorNumber::StatementRefused);
}

INSTANTIATE_TEST_SUITE_P(Roles, RoleButtons, ::testing::ValuesIn(links),
                         [](const auto& link) { return std::string(link.param.palavra); });

class DriverButton : public PessoasFixture {
  protected:
    DriverButton() { platform.shown.clear(); }
};

TEST_F(DriverButton, OpensItsScreenWithoutQuestionOrRefresh) {
    contexto.RegistraTela(u"frmMotorista"_s, [](ContextoExecucao& dono) {
        return std::make_unique<screen::Screen>(dono.program(), u"frmMotorista"_s);
    });
    tela.txtRowID.setText(u"5"_s);
    contexto.VinculoAtual = u"S"_s;
    user.click(tela.cmdMotorista);
    EXPECT_EQ(platform.shown, QStringList{"frmMotorista"});
    EXPECT_EQ(contexto.IdPessoaVinculo, u"5");
    EXPECT_EQ(contexto.VinculoAtual, u"S");
    EXPECT_TRUE(database.sent.isEmpty());
}

TEST_F(DriverButton, NeedsAPerson) {
    user.click(tela.cmdMotorista);
    EXPECT_EQ(platform.boxes.back().text, u"Selecione um Registro antes de vincular!");
    EXPECT_EQ(platform.boxes.back().icon, screen::Icon::None);
    EXPECT_EQ(platform.boxes.back().title, QString());
    EXPECT_TRUE(platform.shown.isEmpty());
}

} // namespace

} // namespace vorta::test

#include "base/Literals.h"
#include "person/PessoasTest.h"

/// The seven role buttons: direct links, the way into the role screens, and what a failing statement leaves behind.
namespace vorta::test {

namespace {

using screen::Answer;

const QString linkMade = u"Vínculo estabelecido com sucesso!"_s;
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

class RoleButtons : public PessoasTest, public ::testing::WithParamInterface<Link> {
  protected:
    RoleButtons() {
        tela.txtRowID.setText(u"5"_s);
        tela.setCaption(u"TITULO"_s);
        platform.shown.clear();
    }

    static QString latin(const char* texto) { return QString::fromLatin1(texto); }
    QString linkQuestion() const {
        return u"Deseja Criar um Vínculo de %1?"_s.arg(QString::fromUtf8(GetParam().palavra));
    }
    QString roleRead() const { return latin(GetParam().consulta) + u" AND DATA_DESA IS NULL"_s; }
    QString parameterRead() const {
        return u"SELECT * FROM EMPR_CNFG WHERE NOME_PARA='%1'"_s.arg(latin(GetParam().parametro));
    }
    QString columnWritten(int id) const {
        return u"UPDATE PESS SET %1 = %2 WHERE IDPESS = 5"_s.arg(latin(GetParam().colunaPess)).arg(id);
    }
    void linkDirectly() { parameter(GetParam().parametro, "N"); }
    void linked() { database.answer(latin(GetParam().consulta), {{latin(GetParam().chave)}, {{test::number(31)}}}); }
    void clickRole() { user.click(tela.field(latin(GetParam().botao))); }
    /// What went out before the seven readings of the indicators, of which there must be seven behind it.
    QStringList beforeIndicators() {
        QStringList comandos = std::exchange(database.sent, {});
        EXPECT_GE(comandos.size(), 7);
        EXPECT_EQ(comandos.last(7).filter(u" AND DATA_DESA IS NULL"_s).size(), 7);
        return comandos.first(comandos.size() - 7);
    }
};

TEST_P(RoleButtons, LinkAtOnceOnFirebird) {
    linkDirectly();
    database.answer(u"gen_id(%1,"_s.arg(latin(GetParam().gerador)), {{"GEN_ID"}, {{test::number(90)}}});
    database.answer(identidade, {{"MaxRowID"}, {{test::number(31)}}});
    platform.willAnswer(Answer::Yes);
    contexto.VinculoAtual = u"S"_s;
    clickRole();
    const QString chave = latin(GetParam().chave);
    QStringList esperado{parameterRead(), roleRead()};
    QString insere = latin(GetParam().inserePrefixo);
    if (*GetParam().gerador) {
        esperado << u"select gen_id(%1, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = '%1'; "_s.arg(
            latin(GetParam().gerador));
        insere += chave + u", "_s;
    }
    esperado << insere + latin(GetParam().insereColunas) + u") VALUES ("_s +
                    (*GetParam().gerador ? u"'90', "_s : QString()) + latin(GetParam().insereValores) + u")"_s
             << identidade << columnWritten(31);
    EXPECT_EQ(beforeIndicators(), esperado);
    ASSERT_EQ(platform.boxes.size(), 2u);
    EXPECT_EQ(platform.boxes[0].text, u"Deseja Criar um Vínculo de %1?"_s.arg(latin(GetParam().palavra)));
    EXPECT_EQ(platform.boxes[0].title, u"TITULO");
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::None);
    EXPECT_EQ(platform.boxes[1].text, u"Vínculo estabelecido com sucesso!");
    EXPECT_EQ(platform.boxes[1].icon, screen::Icon::Information);
    EXPECT_EQ(platform.boxes[1].title, u"TITULO");
}

TEST_P(RoleButtons, LinkAtOnceOnSqlServer) {
    connect(u"MSSQL"_s);
    linkDirectly();
    database.answer(identidade, {{"MaxRowID"}, {{test::number(31)}}});
    platform.willAnswer(Answer::Yes);
    clickRole();
    const QString insere = latin(GetParam().inserePrefixo) + latin(GetParam().insereColunas) + u") VALUES ("_s +
                           latin(GetParam().insereValores) + u")"_s;
    EXPECT_EQ(database.writes, (QStringList{insere, columnWritten(31)}));
    EXPECT_EQ(platform.boxes.news(), (QStringList{linkQuestion(), linkMade}));
}

TEST_P(RoleButtons, WithoutAnIdentityTheBackReferenceIsZero) {
    linkDirectly();
    platform.willAnswer(Answer::Yes);
    clickRole();
    EXPECT_EQ(database.writes.last(), columnWritten(0));
    EXPECT_EQ(platform.boxes.news(), (QStringList{linkQuestion(), linkMade}));
}

TEST_P(RoleButtons, UnlinkAtOnce) {
    linkDirectly();
    linked();
    platform.willAnswer(Answer::Yes);
    clickRole();
    EXPECT_EQ(beforeIndicators(),
              (QStringList{parameterRead(), roleRead(), roleRead(), latin(GetParam().exclui), columnWritten(0)}));
    EXPECT_EQ(platform.boxes[0].text, u"Deseja Exclui o Vínculo de %1?"_s.arg(latin(GetParam().palavra)));
    EXPECT_EQ(platform.boxes[1].text, u"Vínculo excluído com sucesso!");
    EXPECT_TRUE(tela.field(latin(GetParam().botao)).picture().endsWith(u"comvinculo.bmp"_s))
        << "a second active row keeps the button lit";
}

TEST_P(RoleButtons, NoChangesNothingAndRefreshes) {
    linkDirectly();
    platform.willAnswer(Answer::No);
    clickRole();
    EXPECT_EQ(beforeIndicators().size(), 2);
    EXPECT_EQ(platform.boxes.news(), QStringList(linkQuestion()));
    linked();
    platform.willAnswer(Answer::No);
    clickRole();
    EXPECT_EQ(beforeIndicators().size(), 2);
    EXPECT_TRUE(database.writes.isEmpty());
    EXPECT_EQ(platform.boxes.news(),
              QStringList(u"Deseja Exclui o Vínculo de %1?"_s.arg(QString::fromUtf8(GetParam().palavra))));
}

TEST_P(RoleButtons, EveryOtherParameterOpensTheScreen) {
    contexto.RegistraTela(latin(GetParam().tela), [](ContextoExecucao& dono) {
        return std::make_unique<screen::Screen>(dono.program(), latin(GetParam().tela));
    });
    clickRole();
    for (const char* valor : {"n", "N ", "S", ""}) {
        parameter(GetParam().parametro, valor);
        clickRole();
    }
    EXPECT_EQ(platform.shown, QStringList(5, latin(GetParam().tela)));
    EXPECT_EQ(contexto.IdPessoaVinculo, u"5");
    EXPECT_EQ(beforeIndicators().filter(u"EMPR_CNFG"_s).size(), 5);
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_P(RoleButtons, NeedAPerson) {
    for (const char* id : {"", "0", "-1", "abc"}) {
        tela.txtRowID.setText(latin(id));
        clickRole();
        EXPECT_EQ(platform.boxes.back().text, u"Selecione ou Salve um Registro antes de vincular!");
        EXPECT_EQ(platform.boxes.back().icon, screen::Icon::Information);
        EXPECT_EQ(platform.boxes.back().title, u"TITULO");
    }
    EXPECT_TRUE(database.sent.isEmpty());
}

TEST_P(RoleButtons, AFailureBetweenTheStepsLeavesTheRowWritten) {
    linkDirectly();
    platform.willAnswer(Answer::Yes);
    database.fail(u"UPDATE PESS"_s, errorNumber::StatementRefused);
    clickRole();
    EXPECT_EQ(database.writes.size(), 1);
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
    EXPECT_EQ(platform.boxes.news(), QStringList(linkQuestion()));
}

INSTANTIATE_TEST_SUITE_P(Roles, RoleButtons, ::testing::ValuesIn(links),
                         [](const auto& link) { return std::string(link.param.palavra); });

class DriverButton : public PessoasTest {
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

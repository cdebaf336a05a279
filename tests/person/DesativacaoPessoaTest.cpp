#include "base/Literals.h"
#include "person/PessoasTest.h"

/// Deactivation and reactivation of a person.
namespace vorta::test {

namespace {

using screen::Answer;

class PersonState : public PessoasTest {
  protected:
    PersonState() {
        tela.txtRowID.setText(u"5"_s);
        tela.txtDescricao.setText(u"AURORA"_s);
        contexto.VinculoAtual = u"N"_s;
    }
    bool isCleared() const { return tela.txtRowID.text().isEmpty() && tela.txtDescricao.text().isEmpty(); }
    void isDeactivated() { tela.txtDTDesativa.setText(u"01/02/2026"_s); }
    const screen::Box& lastBox() const { return platform.boxes.back(); }
};

TEST_F(PersonState, DeactivatesAPersonWithoutLinks) {
    platform.willAnswer(Answer::Yes);
    user.click(tela.cmdEXCLUIR);
    EXPECT_EQ(database.sent.first(5),
              (QStringList{"SELECT IDCLIE FROM CLIE WHERE IDPESS = 5 AND DATA_DESA IS NULL",
                           "SELECT IDTRPT FROM TRPT WHERE IDPESS = 5 AND DATA_DESA IS NULL",
                           "SELECT IDVEND FROM VEND WHERE IDPESS = 5 AND DATA_DESA IS NULL",
                           "SELECT IDFORN FROM FORN WHERE IDPESS = 5 AND DATA_DESA IS NULL",
                           "UPDATE PESS SET USER_DESA='12', DATA_DESA='20261120' WHERE (IDPESS=5)"}));
    EXPECT_EQ(lastBox().text, u"Deseja realmente Desativar?");
    EXPECT_EQ(platform.boxes.size(), 1u) << "success has no message";
    EXPECT_TRUE(isCleared());
    EXPECT_FALSE(database.sent.contains(u"BEGIN"_s));
}

TEST_F(PersonState, FourLinksHoldAPersonAndThreeDoNot) {
    struct Caso {
        const char* tabela;
        const char* chave;
        bool segura;
    };
    std::size_t shown = 0;
    for (const Caso& caso : {Caso{"CLIE", "IDCLIE", true}, Caso{"TRPT", "IDTRPT", true}, Caso{"VEND", "IDVEND", true},
                             Caso{"FORN", "IDFORN", true}, Caso{"MOTO", "IDMOTO", false}, Caso{"ARQT", "IDARQT", false},
                             Caso{"DECO", "IDDECO", false}}) {
        PersonState::database.writes.clear();
        tela.txtRowID.setText(u"5"_s);
        const QString consulta = u"FROM %1 WHERE IDPESS"_s.arg(QLatin1StringView(caso.tabela));
        database.answer(consulta, {{QString::fromLatin1(caso.chave)}, {{test::number(9)}}});
        platform.willAnswer(Answer::Yes);
        user.click(tela.cmdEXCLUIR);
        database.answer(consulta, {{QString::fromLatin1(caso.chave)}, {}});
        EXPECT_EQ(platform.boxes[shown++].text, u"Deseja realmente Desativar?");
        EXPECT_EQ(database.writes.isEmpty(), caso.segura) << caso.tabela;
        EXPECT_EQ(tela.txtRowID.text().isEmpty(), !caso.segura) << caso.tabela;
        if (!caso.segura)
            continue;
        ASSERT_EQ(platform.boxes.size(), ++shown);
        EXPECT_EQ(lastBox().text,
                  u"Atenção!!!\nExistem Vinculos com essa 'Pessoa'\nDesfaça os vinculos antes de desativar");
        EXPECT_EQ(lastBox().icon, screen::Icon::Critical);
        EXPECT_EQ(lastBox().title, ContextoExecucao::Titulo());
    }
}

TEST_F(PersonState, NoClearsTheScreen) {
    platform.willAnswer(Answer::No);
    user.click(tela.cmdEXCLUIR);
    EXPECT_TRUE(isCleared());
    tela.txtRowID.setText(u"5"_s);
    isDeactivated();
    platform.willAnswer(Answer::No);
    user.click(tela.cmdReativar);
    EXPECT_EQ(platform.boxes.news(),
              (QStringList{u"Deseja realmente Desativar?"_s, u"Deseja realmente Reativar Este Registro ?"_s}));
    EXPECT_TRUE(isCleared());
    EXPECT_TRUE(database.writes.isEmpty());
}

TEST_F(PersonState, RefusesWhatIsSoAlready) {
    user.click(tela.cmdReativar);
    EXPECT_EQ(lastBox().text, u"Impossibilidade de Executar o Comando!\nO Registro Já está como Ativo.");
    EXPECT_TRUE(isCleared());
    tela.txtRowID.setText(u"5"_s);
    isDeactivated();
    user.click(tela.cmdEXCLUIR);
    EXPECT_EQ(lastBox().text, u"Impossibilidade de Executar o Comando!\nO Registro Já está como Desativado.");
    EXPECT_TRUE(isCleared());
    EXPECT_TRUE(database.writes.isEmpty());
}

TEST_F(PersonState, NeedsAPerson) {
    tela.txtRowID.setText(u"  "_s);
    user.click(tela.cmdEXCLUIR);
    EXPECT_EQ(lastBox().text, u"Selecione Um Registro Para Executar esta Operação!");
    user.click(tela.cmdReativar);
    EXPECT_EQ(lastBox().text, u"Selecione Um Registro Para Executar esta Operação!");
    EXPECT_EQ(tela.txtDescricao.text(), u"AURORA");
}

TEST_F(PersonState, ReactivatesAndOverwritesTheInclusion) {
    isDeactivated();
    platform.willAnswer(Answer::Yes);
    user.click(tela.cmdReativar);
    EXPECT_EQ(lastBox().text, u"Deseja realmente Reativar Este Registro ?");
    EXPECT_EQ(database.writes, QStringList{"UPDATE PESS SET USER_DESA=NULL, DATA_DESA=NULL, USER_INCL='12', "
                                           "DATA_INCL='20261120' WHERE (IDPESS=5)"});
    EXPECT_TRUE(isCleared());
}

TEST_F(PersonState, AFailingStatementEndsTheProgram) {
    database.fail(u"UPDATE PESS"_s, errorNumber::StatementRefused);
    platform.willAnswer(Answer::Yes);
    user.click(tela.cmdEXCLUIR);
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
    EXPECT_EQ(platform.boxes.news(), QStringList(u"Deseja realmente Desativar?"_s));
    EXPECT_EQ(database.sent.last(), u"CLOSE");
}

} // namespace

} // namespace vorta::test

#include "person/ContatosPessoa.h"
#include "person/PessoasFixture.h"

namespace vorta::test {

class GravaPessoa : public PessoasFixture {
  protected:
    void SetUp() override {
        PreenchePessoa();
        PreparaGridContatos(tela);
        PreparaGridAtividades(tela);
        tela.Flex.AddItem(QStringLiteral("\tCOMPRAS\tAna\t\t\t"));
        tela.FlexAtividades.AddItem(QStringLiteral("\tCOMERCIO\t"));
        database.answer(QStringLiteral("FROM ativ"), {{QStringLiteral("idAtiv")}, {{number(33)}}});
        database.sent.clear();
    }

    /// The beginnings of what reached the database between BEGIN and the end.
    QStringList Passos() const {
        QStringList passos;
        for (const QString& texto : database.sent.mid(database.sent.indexOf(u"BEGIN"_qs)))
            passos << texto.left(21);
        return passos;
    }
};

TEST_F(GravaPessoa, InclusionOnFirebird) {
    contexto.ModoTela = QStringLiteral("I");
    Clica(tela.cmdSALVAR);
    EXPECT_EQ(Passos(), (QStringList{"BEGIN", "select gen_id(GEN_PES", "INSERT INTO PESS (IDP", "select gen_id(GEN_PES",
                                     "SELECT ativ.idativ, a", "INSERT INTO PESS_ATIV", "select gen_id(GEN_PES",
                                     "INSERT INTO PESS_CONT", "COMMIT"}));
    EXPECT_EQ(tela.txtRowID.text(), u"501");
    EXPECT_EQ(contexto.ModoTela, u" ");
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, u"Registro Gravado com sucesso!");
    EXPECT_TRUE(platform.boxes[0].title.isEmpty());
    EXPECT_EQ(tela.pointer(), screen::Pointer::Default);
    EXPECT_TRUE(tela.txtDescricao.locked());
    EXPECT_FALSE(tela.cmdSALVAR.enabled());
    EXPECT_TRUE(tela.cmdALTERAR.enabled());
}

TEST_F(GravaPessoa, InclusionOnSqlServerReadsTheKeyBehindTheInsert) {
    UsaBanco(QStringLiteral("MS-SQL"));
    database.sent.clear();
    database.answer(QStringLiteral("@@IDENTITY"), {{QStringLiteral("MAXROWID")}, {{number(902)}}});
    contexto.ModoTela = QStringLiteral("I");
    Clica(tela.cmdSALVAR);
    EXPECT_EQ(Passos(), (QStringList{"BEGIN", "INSERT INTO PESS (PSF", "SELECT @@IDENTITY AS ", "SELECT ativ.idativ, a",
                                     "INSERT INTO PESS_ATIV", "INSERT INTO PESS_CONT", "COMMIT"}));
    EXPECT_EQ(tela.txtRowID.text(), u"902");
    EXPECT_TRUE(database.sent.contains(u"SELECT @@IDENTITY AS 'MAXROWID'"_qs));
}

TEST_F(GravaPessoa, AlterationDeletesAndRewritesBothLists) {
    contexto.ModoTela = QStringLiteral("A");
    tela.txtRowID.setText(QStringLiteral("44"));
    Clica(tela.cmdSALVAR);
    EXPECT_EQ(Passos(), (QStringList{"BEGIN", "UPDATE PESS SET CPF0_", "DELETE FROM PESS_ATIV", "DELETE FROM PESS_CONT",
                                     "select gen_id(GEN_PES", "SELECT ativ.idativ, a", "INSERT INTO PESS_ATIV",
                                     "select gen_id(GEN_PES", "INSERT INTO PESS_CONT", "COMMIT"}));
    EXPECT_EQ(contexto.ModoTela, u" ");
}

TEST_F(GravaPessoa, TextsGoOutInCapitalsAndWithoutAccents) {
    contexto.ModoTela = QStringLiteral("I");
    tela.txtDescricao.setText(QStringLiteral("José Conceição"));
    Clica(tela.cmdSALVAR);
    EXPECT_TRUE(database.writes[0].contains(u"'JOSE CONCEICAO'"));
    contexto.PreservaAcentos = true;
    contexto.ModoTela = QStringLiteral("I");
    Clica(tela.cmdSALVAR);
    EXPECT_TRUE(database.writes[3].contains(u"'JOSÉ CONCEIÇÃO'"));
}

TEST_F(GravaPessoa, AFailingStatementEndsTheProcessAndNothingIsCommitted) {
    contexto.ModoTela = QStringLiteral("A");
    tela.txtRowID.setText(QStringLiteral("44"));
    database.fail(QStringLiteral("INSERT INTO PESS_CONT"), errorNumber::StatementRefused);
    Clica(tela.cmdSALVAR);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.exitCode(), 1);
    ASSERT_TRUE(program.failure());
    EXPECT_EQ(program.failure()->number(), errorNumber::StatementRefused);
    EXPECT_FALSE(database.sent.contains(u"COMMIT"_qs));
    EXPECT_EQ(database.sent.last(), u"CLOSE");
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_TRUE(platform.boxes[0].text.contains(u"-2147217900"));
}

TEST_F(GravaPessoa, AnApostropheInAnUnguardedFieldReachesNoEngine) {
    contexto.ModoTela = QStringLiteral("I");
    tela.txtNumero.setText(QStringLiteral("10'A"));
    Clica(tela.cmdSALVAR);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.failure()->number(), errorNumber::StatementRefused);
    EXPECT_TRUE(database.writes.isEmpty());
}

TEST_F(GravaPessoa, AValueCannotExtendItsStatement) {
    contexto.ModoTela = QStringLiteral("A");
    tela.txtRowID.setText(QStringLiteral("44"));
    tela.txtFone2.setText(QStringLiteral("1', NOME_PESS='X"));
    Clica(tela.cmdSALVAR);
    EXPECT_EQ(program.failure()->number(), errorNumber::StatementRefused);
    EXPECT_TRUE(database.writes.isEmpty());
}

} // namespace vorta::test

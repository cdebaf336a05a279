#include "base/Literals.h"
#include "person/ContatosPessoa.h"
#include "person/PessoasFixture.h"

namespace vorta::test {

class GravaPessoa : public PessoasFixture {
  protected:
    void SetUp() override {
        PreenchePessoa();
        tela.contatos.PreparaGridContatos();
        PreparaGridAtividades(tela);
        tela.contatos.Flex.AddItem(u"\tCOMPRAS\tAna\t\t\t"_s);
        tela.FlexAtividades.AddItem(u"\tCOMERCIO\t"_s);
        database.answer(u"FROM ativ"_s, {{u"idAtiv"_s}, {{number(33)}}});
        database.sent.clear();
    }

    /// The beginnings of what reached the database between BEGIN and the end.
    QStringList Passos() const {
        QStringList passos;
        for (const QString& texto : database.sent.mid(database.sent.indexOf(u"BEGIN"_s)))
            passos << texto.left(21);
        return passos;
    }
};

TEST_F(GravaPessoa, InclusionOnFirebird) {
    contexto.ModoTela = u"I"_s;
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
    UsaBanco(u"MS-SQL"_s);
    database.sent.clear();
    database.answer(u"@@IDENTITY"_s, {{u"MAXROWID"_s}, {{number(902)}}});
    contexto.ModoTela = u"I"_s;
    Clica(tela.cmdSALVAR);
    EXPECT_EQ(Passos(), (QStringList{"BEGIN", "INSERT INTO PESS (PSF", "SELECT @@IDENTITY AS ", "SELECT ativ.idativ, a",
                                     "INSERT INTO PESS_ATIV", "INSERT INTO PESS_CONT", "COMMIT"}));
    EXPECT_EQ(tela.txtRowID.text(), u"902");
    EXPECT_TRUE(database.sent.contains(u"SELECT @@IDENTITY AS 'MAXROWID'"_s));
}

TEST_F(GravaPessoa, AlterationDeletesAndRewritesBothLists) {
    contexto.ModoTela = u"A"_s;
    tela.txtRowID.setText(u"44"_s);
    Clica(tela.cmdSALVAR);
    EXPECT_EQ(Passos(), (QStringList{"BEGIN", "UPDATE PESS SET CPF0_", "DELETE FROM PESS_ATIV", "DELETE FROM PESS_CONT",
                                     "select gen_id(GEN_PES", "SELECT ativ.idativ, a", "INSERT INTO PESS_ATIV",
                                     "select gen_id(GEN_PES", "INSERT INTO PESS_CONT", "COMMIT"}));
    EXPECT_EQ(contexto.ModoTela, u" ");
}

TEST_F(GravaPessoa, TextsGoOutInCapitalsAndWithoutAccents) {
    contexto.ModoTela = u"I"_s;
    tela.txtDescricao.setText(u"José Conceição"_s);
    Clica(tela.cmdSALVAR);
    EXPECT_TRUE(database.writes[0].contains(u"'JOSE CONCEICAO'"));
    contexto.PreservaAcentos = true;
    contexto.ModoTela = u"I"_s;
    Clica(tela.cmdSALVAR);
    EXPECT_TRUE(database.writes[3].contains(u"'JOSÉ CONCEIÇÃO'"));
}

TEST_F(GravaPessoa, AFailingStatementEndsTheProcessAndNothingIsCommitted) {
    contexto.ModoTela = u"A"_s;
    tela.txtRowID.setText(u"44"_s);
    database.fail(u"INSERT INTO PESS_CONT"_s, errorNumber::StatementRefused);
    Clica(tela.cmdSALVAR);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.exitCode(), 1);
    ASSERT_TRUE(program.failure());
    EXPECT_EQ(program.failure()->number(), errorNumber::StatementRefused);
    EXPECT_FALSE(database.sent.contains(u"COMMIT"_s));
    EXPECT_EQ(database.sent.last(), u"CLOSE");
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_TRUE(platform.boxes[0].text.contains(u"-2147217900"));
}

TEST_F(GravaPessoa, AnApostropheInAnUnguardedFieldReachesNoEngine) {
    contexto.ModoTela = u"I"_s;
    tela.txtNumero.setText(u"10'A"_s);
    Clica(tela.cmdSALVAR);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.failure()->number(), errorNumber::StatementRefused);
    EXPECT_TRUE(database.writes.isEmpty());
}

TEST_F(GravaPessoa, AValueCannotExtendItsStatement) {
    contexto.ModoTela = u"A"_s;
    tela.txtRowID.setText(u"44"_s);
    tela.txtFone2.setText(u"1', NOME_PESS='X"_s);
    Clica(tela.cmdSALVAR);
    EXPECT_EQ(program.failure()->number(), errorNumber::StatementRefused);
    EXPECT_TRUE(database.writes.isEmpty());
}

} // namespace vorta::test

#include "base/Literals.h"
#include "person/ContatosPessoa.h"
#include "person/PessoasTest.h"

namespace vorta::test {

const QString saved = u"Registro Gravado com sucesso!"_s;

class GravaPessoa : public PessoasTest {
  protected:
    void SetUp() override {
        fillPerson();
        tela.contatos.PreparaGridContatos();
        PreparaGridAtividades(tela);
        tela.contatos.Flex.AddItem(u"\tCOMPRAS\tAna\t\t\t"_s);
        tela.FlexAtividades.AddItem(u"\tCOMERCIO\t"_s);
        database.answer(u"FROM ativ"_s, {{u"idAtiv"_s}, {{number(33)}}});
        forget();
    }

    /// The beginnings of what reached the database between BEGIN and the end.
    QStringList steps() const {
        QStringList passos;
        for (const QString& texto : database.sent.mid(database.sent.indexOf(u"BEGIN"_s)))
            passos << texto.left(21);
        return passos;
    }
};

TEST_F(GravaPessoa, InclusionOnFirebird) {
    contexto.ModoTela = u"I"_s;
    click(tela.cmdSALVAR);
    EXPECT_EQ(steps(), (QStringList{"BEGIN", "select gen_id(GEN_PES", "INSERT INTO PESS (IDP", "select gen_id(GEN_PES",
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
    connect(u"MS-SQL"_s);
    forget();
    database.answer(u"@@IDENTITY"_s, {{u"MAXROWID"_s}, {{number(902)}}});
    contexto.ModoTela = u"I"_s;
    click(tela.cmdSALVAR);
    EXPECT_EQ(steps(), (QStringList{"BEGIN", "INSERT INTO PESS (PSF", "SELECT @@IDENTITY AS ", "SELECT ativ.idativ, a",
                                    "INSERT INTO PESS_ATIV", "INSERT INTO PESS_CONT", "COMMIT"}));
    EXPECT_EQ(tela.txtRowID.text(), u"902");
    EXPECT_EQ(platform.boxes.news(), QStringList(saved));
    EXPECT_TRUE(database.sent.contains(u"SELECT @@IDENTITY AS 'MAXROWID'"_s));
}

TEST_F(GravaPessoa, AlterationDeletesAndRewritesBothLists) {
    contexto.ModoTela = u"A"_s;
    tela.txtRowID.setText(u"44"_s);
    click(tela.cmdSALVAR);
    EXPECT_EQ(steps(), (QStringList{"BEGIN", "UPDATE PESS SET CPF0_", "DELETE FROM PESS_ATIV", "DELETE FROM PESS_CONT",
                                    "select gen_id(GEN_PES", "SELECT ativ.idativ, a", "INSERT INTO PESS_ATIV",
                                    "select gen_id(GEN_PES", "INSERT INTO PESS_CONT", "COMMIT"}));
    EXPECT_EQ(platform.boxes.news(), QStringList(saved));
    EXPECT_EQ(contexto.ModoTela, u" ");
}

TEST_F(GravaPessoa, TextsGoOutInCapitalsAndWithoutAccents) {
    contexto.ModoTela = u"I"_s;
    tela.txtDescricao.setText(u"José Conceição"_s);
    click(tela.cmdSALVAR);
    EXPECT_TRUE(database.writes[0].contains(u"'JOSE CONCEICAO'"));
    contexto.PreservaAcentos = true;
    contexto.ModoTela = u"I"_s;
    click(tela.cmdSALVAR);
    EXPECT_TRUE(database.writes[3].contains(u"'JOSÉ CONCEIÇÃO'"));
    EXPECT_EQ(platform.boxes.news(), (QStringList{saved, saved}));
}

TEST_F(GravaPessoa, AFailingStatementEndsTheProcessAndNothingIsCommitted) {
    contexto.ModoTela = u"A"_s;
    tela.txtRowID.setText(u"44"_s);
    database.fail(u"INSERT INTO PESS_CONT"_s, errorNumber::StatementRefused);
    click(tela.cmdSALVAR);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
    EXPECT_FALSE(database.sent.contains(u"COMMIT"_s));
    EXPECT_EQ(database.sent.last(), u"CLOSE");
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_TRUE(platform.boxes[0].text.contains(u"-2147217900"));
}

TEST_F(GravaPessoa, AnApostropheInAnUnguardedFieldReachesNoEngine) {
    contexto.ModoTela = u"I"_s;
    tela.txtNumero.setText(u"10'A"_s);
    click(tela.cmdSALVAR);
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
    EXPECT_TRUE(database.writes.isEmpty());
}

TEST_F(GravaPessoa, AValueCannotExtendItsStatement) {
    contexto.ModoTela = u"A"_s;
    tela.txtRowID.setText(u"44"_s);
    tela.txtFone2.setText(u"1', NOME_PESS='X"_s);
    click(tela.cmdSALVAR);
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
    EXPECT_TRUE(database.writes.isEmpty());
}

} // namespace vorta::test

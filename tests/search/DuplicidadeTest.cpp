#include "base/Literals.h"
#include "search/BuscaTest.h"

#include "base/RuntimeError.h"

namespace vorta::test {

namespace {

using Tela = frmPESSOAS_INCL;
using screen::Answer;

const QString nobodyFound =
    u"Cadastro não localizado, A Inclusão Poderá ser Realizada.\nDeseja Iniciar o Cadastramento?\n"
    u"os dados [nome] e [cnpj/cpf] serão transportados para a próxima tela."_s;
const QStringList colunasDocumento{u"IDPESS"_s, u"NOME_PESS"_s};

} // namespace

class DuplicidadeTest : public BuscaTest {
  protected:
    void openCheck(const std::function<void(Tela&)>& faz) { open<Tela>("frmPESSOAS_INCL", faz); }

    void documentExists(const char* documento, const QList<const char*>& nomes) {
        QList<QList<data::Value>> linhas;
        for (const char* nome : nomes)
            linhas += {number(1), text(nome)};
        database.answer(u"CPF0_CNPJ='%1'"_s.arg(QString::fromLatin1(documento)), {colunasDocumento, linhas});
    }
    void nameExists(const char* nome) {
        database.answer(u"PESS.NOME_PESS='%1'"_s.arg(QString::fromUtf8(nome)), {{u"idpess"_s}, {{number(3)}}});
        database.answer(u"CPF0_CNPJ FROM PESS WHERE PESS.NOME_PESS='%1'"_s.arg(QString::fromUtf8(nome)),
                        {{u"cpf0_cnpj"_s}, {{text("529.982.247-25")}}});
    }
    void knownNameExists(const char* nome) {
        database.answer(u"PESS.NOME_CONH='%1'"_s.arg(QString::fromUtf8(nome)), {{u"idpess"_s}, {{number(3)}}});
    }
};

TEST_F(DuplicidadeTest, Load) {
    openCheck([&](Tela& tela) {
        EXPECT_EQ(tela.caption(), u"ERP VORTA - Nexoria - Release 2015.07.24"_s);
        EXPECT_EQ(tela.Label2.text(), u"Inclusão de Pessoas - Fase 1 (Verificação de Duplicidade de Cadastros)"_s);
        EXPECT_TRUE(tela.Option2.value());
        EXPECT_EQ(tela.mskCodigo.mask(), u"###.###.###-##"_s);
        EXPECT_EQ(tela.mskCodigo.text(), u"___.___.___-__"_s);
        EXPECT_EQ(tela.cmdPesquisa.text(), u"Verificar"_s);
        EXPECT_EQ(tela.Command1.text(), u"Cancelar"_s);
    });
}

TEST_F(DuplicidadeTest, KindChangesTheMaskAndEmptiesTheDocument) {
    openCheck([&](Tela& tela) {
        user.type(tela.mskCodigo, u"52998224725"_s);
        user.click(tela.Option1);
        EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##"_s);
        EXPECT_EQ(tela.mskCodigo.text(), u"__.___.___/____-__"_s);
        user.click(tela.Option2);
        EXPECT_EQ(tela.mskCodigo.text(), u"___.___.___-__"_s);
    });
}

TEST_F(DuplicidadeTest, EmptyNameAndDocumentAskTheTwoNameLookupsOnly) {
    openCheck([&](Tela& tela) {
        forget();
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(database.sent, (QStringList{u"SELECT IDPESS FROM PESS WHERE PESS.NOME_PESS=''"_s,
                                              u"SELECT IDPESS FROM PESS WHERE PESS.NOME_CONH=''"_s}));
        EXPECT_TRUE(tela.lstLog.items().isEmpty());
        EXPECT_EQ(tela.mskCodigo.mask(), QString()) << "without a document the mask is not put back";
        EXPECT_EQ(tela.mskCodigo.text(), u"___.___.___-__"_s);
        user.focus(tela.mskCodigo);
        user.focus(tela.cboCod);
        EXPECT_TRUE(tela.Option1.value()) << "leaving the field without its mask gives it the company's";
        EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##"_s);
    });
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_EQ(contexto.RetornoPesquisa, QString());
}

TEST_F(DuplicidadeTest, DocumentsThatCountAsNotGiven) {
    openCheck([&](Tela& tela) {
        for (const QString& vazio :
             {u"000.000.000-00"_s, u"00.000.000/000-00"_s, u"__.___.___/____-__"_s, u"   "_s, QString()}) {
            tela.mskCodigo.setMask({});
            tela.mskCodigo.setText(vazio);
            forget();
            user.click(tela.cmdPesquisa);
            EXPECT_EQ(sentWith("CPF0_CNPJ").size(), 0) << vazio;
        }
        user.click(tela.Option1);
        user.type(tela.mskCodigo, u"00000000000000"_s);
        forget();
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(database.sent.value(0),
                  u"SELECT PESS.IDPESS, PESS.NOME_PESS FROM PESS WHERE PESS.CPF0_CNPJ='00.000.000/0000-00'"_s);
        EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##"_s);
    });
}

TEST_F(DuplicidadeTest, DocumentFound) {
    documentExists("529.982.247-25", {"MARIA SILVA"});
    nameExists("MARIA SILVA");
    knownNameExists("MARIA SILVA");
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"outra"_s);
        user.type(tela.mskCodigo, u"52998224725"_s);
        forget();
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(database.sent,
                  (QStringList{u"SELECT PESS.IDPESS, PESS.NOME_PESS FROM PESS WHERE PESS.CPF0_CNPJ='529.982.247-25'"_s,
                               u"SELECT IDPESS FROM PESS WHERE PESS.NOME_PESS='MARIA SILVA'"_s,
                               u"SELECT CPF0_CNPJ FROM PESS WHERE PESS.NOME_PESS='MARIA SILVA'"_s,
                               u"SELECT IDPESS FROM PESS WHERE PESS.NOME_CONH='MARIA SILVA'"_s}));
        EXPECT_EQ(tela.cboCod.text(), u"MARIA SILVA"_s);
        EXPECT_EQ(tela.lstLog.items(), (QStringList{u"Já Existe Cadastro com este CNPJ/CPF"_s, u"MARIA SILVA"_s,
                                                    u"Já Existe Cadastro Com Esta Razão Social"_s,
                                                    u"Já Existe Cadastro Com Este Nome Fantasia"_s}));
        EXPECT_EQ(tela.mskCodigo.mask(), QString());
        EXPECT_EQ(tela.mskCodigo.text(), u"529.982.247-25"_s);
    });
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_EQ(contexto.RetornoPesquisa, u"[ID]MARIA SILVA"_s);
}

TEST_F(DuplicidadeTest, DoubleDocumentIsToldInTheLog) {
    documentExists("529.982.247-25", {"A", "B"});
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"nova"_s);
        user.type(tela.mskCodigo, u"52998224725"_s);
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.lstLog.items(),
                  QStringList{u"Atenção! Você está com problemas de cadastros, duplicidades de CNPJ/CPF "
                              "foram detectados!"_s});
        EXPECT_EQ(tela.cboCod.text(), u"NOVA"_s);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(DuplicidadeTest, NamesakeShowsItsDocumentWithoutAMask) {
    nameExists("MARIA SILVA");
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"maria silva"_s);
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.lstLog.items(), QStringList{u"Já Existe Cadastro Com Esta Razão Social"_s});
        EXPECT_EQ(tela.mskCodigo.mask(), QString());
        EXPECT_EQ(tela.mskCodigo.text(), u"529.982.247-25"_s);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(DuplicidadeTest, FreeNameAndDocumentGoToThePersonScreen) {
    platform.willAnswer(Answer::Yes);
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"maria silva "_s);
        user.type(tela.mskCodigo, u"52998224725"_s);
        user.click(tela.cmdPesquisa);
        EXPECT_FALSE(tela.isLoaded());
    });
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, nobodyFound);
    EXPECT_EQ(platform.boxes[0].title, u"ERP VORTA - Nexoria - Release 2015.07.24"_s);
    EXPECT_EQ(platform.boxes[0].buttons, screen::Buttons::YesNo);
    EXPECT_EQ(pessoas().txtDescricao.text(), u"MARIA SILVA "_s);
    EXPECT_EQ(pessoas().txtNomeFantasia.text(), u"MARIA SILVA "_s);
    EXPECT_EQ(pessoas().cboFisJur.text(), u"Física"_s);
    EXPECT_EQ(pessoas().mskCodigo.text(), u"529.982.247-25"_s);
    EXPECT_EQ(contexto.RetornoPesquisa, u"[OK]"_s);
}

TEST_F(DuplicidadeTest, WithoutADocumentTheZerosGoOver) {
    platform.willAnswer(Answer::Yes);
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"a"_s);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(pessoas().mskCodigo.text(), u"000.000.000-00"_s);
    platform.willAnswer(Answer::Yes);
    openCheck([&](Tela& tela) {
        user.click(tela.Option1);
        user.type(tela.cboCod, u"b"_s);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(pessoas().cboFisJur.text(), u"Jurídica"_s);
    EXPECT_EQ(pessoas().mskCodigo.text(), u"00.000.000/0000-00"_s);
    EXPECT_EQ(platform.boxes.news(), (QStringList{nobodyFound, nobodyFound}));
}

TEST_F(DuplicidadeTest, NoKeepsTheScreenAndWritesNothing) {
    platform.willAnswer(Answer::No);
    contexto.RetornoPesquisa = u"[OK]"_s;
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"a"_s);
        user.click(tela.cmdPesquisa);
        EXPECT_TRUE(tela.isLoaded());
        EXPECT_EQ(pessoas().txtDescricao.text(), QString());
        user.click(tela.Command1);
        EXPECT_FALSE(tela.isLoaded());
    });
    EXPECT_EQ(platform.boxes.news(), QStringList(nobodyFound));
    EXPECT_EQ(contexto.RetornoPesquisa, u"[OK]"_s) << "an earlier inclusion's answer survives a cancel";
}

TEST_F(DuplicidadeTest, OtherCallers) {
    registerCaller("frmClienteExpress");
    contexto.TelaChamadora = u"frmClienteExpress"_s;
    platform.willAnswer(Answer::Yes);
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"x"_s);
        user.click(tela.cmdPesquisa);
        EXPECT_FALSE(tela.isLoaded());
    });
    auto& express = static_cast<TelaQueChama&>(contexto.Tela(u"frmClienteExpress"_s));
    EXPECT_EQ(express.txtDescricao.text(), u"X"_s);
    EXPECT_EQ(express.txtNomeFantasia.text(), QString());
    EXPECT_EQ(express.mskCodigo.text(), u"000.000.000-00"_s);

    contexto.TelaChamadora = u"frmOutra"_s;
    contexto.RetornoPesquisa.clear();
    platform.willAnswer(Answer::Yes);
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"x"_s);
        user.click(tela.cmdPesquisa);
        EXPECT_TRUE(tela.isLoaded());
    });
    EXPECT_EQ(platform.boxes.news(), (QStringList{nobodyFound, nobodyFound}));
    EXPECT_EQ(contexto.RetornoPesquisa, QString());
}

TEST_F(DuplicidadeTest, ListOfCustomersDropsDownWide) {
    database.answer(u"FROM CLIE, PESS"_s, {{u"NOME_PESS"_s, u"CPF0_CNPJ"_s, u"IDPESS"_s, u"IDCLIE"_s},
                                           {{text("MARIA"), null(), number(7), number(8)}}});
    openCheck([&](Tela& tela) {
        tela.cboCod.setText(u" mar "_s);
        forget();
        user.dropDown(tela.cboCod);
        EXPECT_EQ(tela.cboCod.dropWidth(), 580);
        EXPECT_EQ(
            database.sent,
            QStringList{
                u"SELECT PESS.IDPESS, PESS.NOME_PESS, PESS.NOME_CONH, PESS.PSFI_PSJU, PESS.CPF0_CNPJ, CLIE.IDCLIE FROM "
                "CLIE, PESS WHERE CLIE.IDPESS = PESS.IDPESS  AND (CLIE.DATA_DESA IS NULL) AND (PESS.NOME_PESS LIKE "
                "'%MAR%') ORDER BY PESS.NOME_PESS"_s});
        EXPECT_EQ(tela.cboCod.items(),
                  QStringList{u"MARIA"_s.leftJustified(50) + u'|' + QString(20, u' ') + u"|7         |8         "_s});
    });
}

TEST_F(DuplicidadeTest, EnterMovesOn) {
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"a"_s);
        forget();
        user.key(tela.cboCod, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.Option2) << "the chosen kind of document";
        EXPECT_EQ(tela.cboCod.text(), u"A"_s);
        user.focus(tela.cmdPesquisa);
        user.key(tela.cmdPesquisa, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.Command1);
        EXPECT_TRUE(database.sent.isEmpty());
    });
}

TEST_F(DuplicidadeTest, AnApostropheInTheNameEndsTheProgram) {
    openCheck([&](Tela& tela) {
        user.type(tela.cboCod, u"d'avila"_s);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
}

} // namespace vorta::test

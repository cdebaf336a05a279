#include "search/BuscaTest.h"

#include "base/RuntimeError.h"

namespace vorta::test {

namespace {

using Tela = frmPESSOAS_INCL;
using screen::Answer;

const QStringList colunasDocumento{u"IDPESS"_qs, u"NOME_PESS"_qs};

} // namespace

class DuplicidadeTest : public BuscaTest {
  protected:
    void abreCheque(const std::function<void(Tela&)>& faz) { abre<Tela>("frmPESSOAS_INCL", faz); }

    void existeDocumento(const char* documento, const QList<const char*>& nomes) {
        QList<QList<data::Value>> linhas;
        for (const char* nome : nomes)
            linhas += {number(1), text(nome)};
        database.answer(QStringLiteral("CPF0_CNPJ='%1'").arg(QString::fromLatin1(documento)),
                        {colunasDocumento, linhas});
    }
    void existeNome(const char* nome) {
        database.answer(QStringLiteral("PESS.NOME_PESS='%1'").arg(QString::fromUtf8(nome)),
                        {{u"idpess"_qs}, {{number(3)}}});
        database.answer(QStringLiteral("CPF0_CNPJ FROM PESS WHERE PESS.NOME_PESS='%1'").arg(QString::fromUtf8(nome)),
                        {{u"cpf0_cnpj"_qs}, {{text("529.982.247-25")}}});
    }
    void existeFantasia(const char* nome) {
        database.answer(QStringLiteral("PESS.NOME_CONH='%1'").arg(QString::fromUtf8(nome)),
                        {{u"idpess"_qs}, {{number(3)}}});
    }
};

TEST_F(DuplicidadeTest, Load) {
    abreCheque([&](Tela& tela) {
        EXPECT_EQ(tela.caption(), u"ERP VORTA - Nexoria - Release 2015.07.24"_qs);
        EXPECT_EQ(tela.Label2.text(), u"Inclusão de Pessoas - Fase 1 (Verificação de Duplicidade de Cadastros)"_qs);
        EXPECT_TRUE(tela.Option2.value());
        EXPECT_EQ(tela.mskCodigo.mask(), u"###.###.###-##"_qs);
        EXPECT_EQ(tela.mskCodigo.text(), u"___.___.___-__"_qs);
        EXPECT_EQ(tela.cmdPesquisa.text(), u"Verificar"_qs);
        EXPECT_EQ(tela.Command1.text(), u"Cancelar"_qs);
    });
}

TEST_F(DuplicidadeTest, KindChangesTheMaskAndEmptiesTheDocument) {
    abreCheque([&](Tela& tela) {
        user.type(tela.mskCodigo, u"52998224725"_qs);
        user.click(tela.Option1);
        EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##"_qs);
        EXPECT_EQ(tela.mskCodigo.text(), u"__.___.___/____-__"_qs);
        user.click(tela.Option2);
        EXPECT_EQ(tela.mskCodigo.text(), u"___.___.___-__"_qs);
    });
}

TEST_F(DuplicidadeTest, EmptyNameAndDocumentAskTheTwoNameLookupsOnly) {
    abreCheque([&](Tela& tela) {
        esquece();
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(database.sent, (QStringList{u"SELECT IDPESS FROM PESS WHERE PESS.NOME_PESS=''"_qs,
                                              u"SELECT IDPESS FROM PESS WHERE PESS.NOME_CONH=''"_qs}));
        EXPECT_TRUE(tela.lstLog.items().isEmpty());
        EXPECT_EQ(tela.mskCodigo.mask(), QString()) << "without a document the mask is not put back";
        EXPECT_EQ(tela.mskCodigo.text(), u"___.___.___-__"_qs);
        user.focus(tela.mskCodigo);
        user.focus(tela.cboCod);
        EXPECT_TRUE(tela.Option1.value()) << "leaving the field without its mask gives it the company's";
        EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##"_qs);
    });
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_EQ(contexto.RetornoPesquisa, QString());
}

TEST_F(DuplicidadeTest, DocumentsThatCountAsNotGiven) {
    abreCheque([&](Tela& tela) {
        for (const QString& vazio :
             {u"000.000.000-00"_qs, u"00.000.000/000-00"_qs, u"__.___.___/____-__"_qs, u"   "_qs, QString()}) {
            tela.mskCodigo.setMask({});
            tela.mskCodigo.setText(vazio);
            esquece();
            user.click(tela.cmdPesquisa);
            EXPECT_EQ(enviados("CPF0_CNPJ").size(), 0) << vazio;
        }
        user.click(tela.Option1);
        user.type(tela.mskCodigo, u"00000000000000"_qs);
        esquece();
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(database.sent.value(0),
                  u"SELECT PESS.IDPESS, PESS.NOME_PESS FROM PESS WHERE PESS.CPF0_CNPJ='00.000.000/0000-00'"_qs);
        EXPECT_EQ(tela.mskCodigo.mask(), u"##.###.###/####-##"_qs);
    });
}

TEST_F(DuplicidadeTest, DocumentFound) {
    existeDocumento("529.982.247-25", {"MARIA SILVA"});
    existeNome("MARIA SILVA");
    existeFantasia("MARIA SILVA");
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"outra"_qs);
        user.type(tela.mskCodigo, u"52998224725"_qs);
        esquece();
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(database.sent,
                  (QStringList{u"SELECT PESS.IDPESS, PESS.NOME_PESS FROM PESS WHERE PESS.CPF0_CNPJ='529.982.247-25'"_qs,
                               u"SELECT IDPESS FROM PESS WHERE PESS.NOME_PESS='MARIA SILVA'"_qs,
                               u"SELECT CPF0_CNPJ FROM PESS WHERE PESS.NOME_PESS='MARIA SILVA'"_qs,
                               u"SELECT IDPESS FROM PESS WHERE PESS.NOME_CONH='MARIA SILVA'"_qs}));
        EXPECT_EQ(tela.cboCod.text(), u"MARIA SILVA"_qs);
        EXPECT_EQ(tela.lstLog.items(), (QStringList{u"Já Existe Cadastro com este CNPJ/CPF"_qs, u"MARIA SILVA"_qs,
                                                    u"Já Existe Cadastro Com Esta Razão Social"_qs,
                                                    u"Já Existe Cadastro Com Este Nome Fantasia"_qs}));
        EXPECT_EQ(tela.mskCodigo.mask(), QString());
        EXPECT_EQ(tela.mskCodigo.text(), u"529.982.247-25"_qs);
    });
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_EQ(contexto.RetornoPesquisa, u"[ID]MARIA SILVA"_qs);
}

TEST_F(DuplicidadeTest, DoubleDocumentIsToldInTheLog) {
    existeDocumento("529.982.247-25", {"A", "B"});
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"nova"_qs);
        user.type(tela.mskCodigo, u"52998224725"_qs);
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.lstLog.items(),
                  QStringList{u"Atenção! Você está com problemas de cadastros, duplicidades de CNPJ/CPF "
                              "foram detectados!"_qs});
        EXPECT_EQ(tela.cboCod.text(), u"NOVA"_qs);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(DuplicidadeTest, NamesakeShowsItsDocumentWithoutAMask) {
    existeNome("MARIA SILVA");
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"maria silva"_qs);
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.lstLog.items(), QStringList{u"Já Existe Cadastro Com Esta Razão Social"_qs});
        EXPECT_EQ(tela.mskCodigo.mask(), QString());
        EXPECT_EQ(tela.mskCodigo.text(), u"529.982.247-25"_qs);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(DuplicidadeTest, FreeNameAndDocumentGoToThePersonScreen) {
    platform.willAnswer(Answer::Yes);
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"maria silva "_qs);
        user.type(tela.mskCodigo, u"52998224725"_qs);
        user.click(tela.cmdPesquisa);
        EXPECT_FALSE(tela.isLoaded());
    });
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text,
              u"Cadastro não localizado, A Inclusão Poderá ser Realizada.\nDeseja Iniciar o "
              "Cadastramento?\nos dados [nome] e [cnpj/cpf] serão transportados para a próxima tela."_qs);
    EXPECT_EQ(platform.boxes[0].title, u"ERP VORTA - Nexoria - Release 2015.07.24"_qs);
    EXPECT_EQ(platform.boxes[0].buttons, screen::Buttons::YesNo);
    EXPECT_EQ(pessoas().txtDescricao.text(), u"MARIA SILVA "_qs);
    EXPECT_EQ(pessoas().txtNomeFantasia.text(), u"MARIA SILVA "_qs);
    EXPECT_EQ(pessoas().cboFisJur.text(), u"Física"_qs);
    EXPECT_EQ(pessoas().mskCodigo.text(), u"529.982.247-25"_qs);
    EXPECT_EQ(contexto.RetornoPesquisa, u"[OK]"_qs);
}

TEST_F(DuplicidadeTest, WithoutADocumentTheZerosGoOver) {
    platform.willAnswer(Answer::Yes);
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"a"_qs);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(pessoas().mskCodigo.text(), u"000.000.000-00"_qs);
    platform.willAnswer(Answer::Yes);
    abreCheque([&](Tela& tela) {
        user.click(tela.Option1);
        user.type(tela.cboCod, u"b"_qs);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(pessoas().cboFisJur.text(), u"Jurídica"_qs);
    EXPECT_EQ(pessoas().mskCodigo.text(), u"00.000.000/0000-00"_qs);
}

TEST_F(DuplicidadeTest, NoKeepsTheScreenAndWritesNothing) {
    platform.willAnswer(Answer::No);
    contexto.RetornoPesquisa = u"[OK]"_qs;
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"a"_qs);
        user.click(tela.cmdPesquisa);
        EXPECT_TRUE(tela.isLoaded());
        EXPECT_EQ(pessoas().txtDescricao.text(), QString());
        user.click(tela.Command1);
        EXPECT_FALSE(tela.isLoaded());
    });
    EXPECT_EQ(contexto.RetornoPesquisa, u"[OK]"_qs) << "an earlier inclusion's answer survives a cancel";
}

TEST_F(DuplicidadeTest, OtherCallers) {
    registraChamadora("frmClienteExpress");
    contexto.TelaChamadora = u"frmClienteExpress"_qs;
    platform.willAnswer(Answer::Yes);
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"x"_qs);
        user.click(tela.cmdPesquisa);
        EXPECT_FALSE(tela.isLoaded());
    });
    auto& express = static_cast<TelaQueChama&>(contexto.Tela(u"frmClienteExpress"_qs));
    EXPECT_EQ(express.txtDescricao.text(), u"X"_qs);
    EXPECT_EQ(express.txtNomeFantasia.text(), QString());
    EXPECT_EQ(express.mskCodigo.text(), u"000.000.000-00"_qs);

    contexto.TelaChamadora = u"frmOutra"_qs;
    contexto.RetornoPesquisa.clear();
    platform.willAnswer(Answer::Yes);
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"x"_qs);
        user.click(tela.cmdPesquisa);
        EXPECT_TRUE(tela.isLoaded());
    });
    EXPECT_EQ(contexto.RetornoPesquisa, QString());
}

TEST_F(DuplicidadeTest, ListOfCustomersDropsDownWide) {
    database.answer(u"FROM CLIE, PESS"_qs, {{u"NOME_PESS"_qs, u"CPF0_CNPJ"_qs, u"IDPESS"_qs, u"IDCLIE"_qs},
                                            {{text("MARIA"), null(), number(7), number(8)}}});
    abreCheque([&](Tela& tela) {
        tela.cboCod.setText(u" mar "_qs);
        esquece();
        user.dropDown(tela.cboCod);
        EXPECT_EQ(tela.cboCod.dropWidth(), 580);
        EXPECT_EQ(
            database.sent,
            QStringList{
                u"SELECT PESS.IDPESS, PESS.NOME_PESS, PESS.NOME_CONH, PESS.PSFI_PSJU, PESS.CPF0_CNPJ, CLIE.IDCLIE FROM "
                "CLIE, PESS WHERE CLIE.IDPESS = PESS.IDPESS  AND (CLIE.DATA_DESA IS NULL) AND (PESS.NOME_PESS LIKE "
                "'%MAR%') ORDER BY PESS.NOME_PESS"_qs});
        EXPECT_EQ(tela.cboCod.items(),
                  QStringList{u"MARIA"_qs.leftJustified(50) + u'|' + QString(20, u' ') + u"|7         |8         "_qs});
    });
}

TEST_F(DuplicidadeTest, EnterMovesOn) {
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"a"_qs);
        esquece();
        user.key(tela.cboCod, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.Option2) << "the chosen kind of document";
        EXPECT_EQ(tela.cboCod.text(), u"A"_qs);
        user.focus(tela.cmdPesquisa);
        user.key(tela.cmdPesquisa, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.Command1);
        EXPECT_TRUE(database.sent.isEmpty());
    });
}

TEST_F(DuplicidadeTest, AnApostropheInTheNameEndsTheProgram) {
    abreCheque([&](Tela& tela) {
        user.type(tela.cboCod, u"d'avila"_qs);
        user.click(tela.cmdPesquisa);
    });
    EXPECT_EQ(falha(), errorNumber::StatementRefused);
}

} // namespace vorta::test

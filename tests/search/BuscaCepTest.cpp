#include "base/Literals.h"
#include "search/BuscaTest.h"

#include "base/RuntimeError.h"

namespace vorta::test {

namespace {

using Tela = frmBROWSE_CEPS;

const QStringList colunasLogr{u"CEP8_LOGR"_s, u"NOME_LOGR"_s, u"UF00_LOGR"_s,
                              u"CHAV_TIPO"_s, u"CHAV_LOCA"_s, u"CHAV_BAIR"_s};
const QString arquivoCep = u"/vorta/config/server_cep.ini"_s;
const QString transferred =
    u"Os Dados Estão sendo Transferidos!\nNão Esquecer de Complementar o Endereço com o [Número]!"_s;
const QString titulo = u"ERP VORTA - Nexoria - Release 2015.07.24"_s;

} // namespace

class BuscaCepTest : public BuscaTest {
  protected:
    BuscaCepTest() {
        platform.files[u"/vorta/config/server_aplic.ini"_s] = {u"^^"_s};
        configure("servidor^ceps^sa^senha^FIREBIRD^cep.fdb^True");
        database.answer(u"FROM LOGR"_s,
                        {colunasLogr,
                         {{text("01310100"), text("PAULISTA"), text("SP"), text("81"), text("9668"), text("44")},
                          {text("01310900"), text("PAULISTA 2"), text("SP"), text("x"), text("y"), null()}}});
        database.answer(u"CHAV_TIPO = '81'"_s, {{u"NOME_TIPO"_s, u"ABRV_TIPO"_s}, {{text("AVENIDA"), text("AV")}}});
        database.answer(u"CHAV_BAIR = '44'"_s, {{u"NOME_BAIR"_s}, {{text("BELA VISTA")}}});
        database.answer(u"CHAV_LOCA = '9668'"_s, {{u"NOME_LOCA"_s}, {{text("SAO PAULO")}}});
        database.answer(u"FROM BAIR WHERE CHAV_BAIR = '44'"_s, {{u"NOME_BAIR"_s, u"ABRV_BAIR"_s, u"UF00_BAIR"_s},
                                                                {{text("BELA VISTA"), text("B VISTA"), text("SP")}}});
    }

    void configure(const char* linha) { platform.files[arquivoCep] = {QString::fromUtf8(linha)}; }
    void openSearch(const std::function<void(Tela&)>& faz) { open<Tela>("frmBROWSE_CEPS", faz); }
    void searchStreet(Tela& tela, const QString& nome) {
        tela.txtEndereco.setText(nome);
        user.click(tela.cmdPesquisa);
    }
};

TEST_F(BuscaCepTest, Load) {
    openSearch([&](Tela& tela) {
        EXPECT_EQ(tela.caption(), titulo);
        EXPECT_EQ(rowOf(tela.Flex, 0),
                  (QStringList{{}, u"CEP"_s, u"Tipo"_s, u"Endereço"_s, u"Bairro"_s, u"Cidade"_s, u"UF"_s}));
        EXPECT_EQ(tela.Flex.columns()[0].width, 0);
        EXPECT_EQ(tela.Flex.Rows(), 1);
    });
    EXPECT_TRUE(database.sent.isEmpty());
}

TEST_F(BuscaCepTest, TheBarMovesWhileTheEngineLooksForStreets) {
    openSearch([&](Tela& tela) {
        Thinking thinking(database);
        platform.whenProgressed = [&] { thinking.end(); };
        searchStreet(tela, u"paulista"_s);
        EXPECT_TRUE(thinking.wasEnded());
    });
    ASSERT_FALSE(platform.heardOfReads.empty());
    EXPECT_EQ(platform.heardOfReads.front(), 0);
    EXPECT_EQ(platform.progressed, (std::vector<std::pair<qint64, qint64>>{{0, 2}, {0, 0}}));
}

TEST_F(BuscaCepTest, NothingGivenIsRefused) {
    openSearch([&](Tela& tela) {
        tela.txtCEP.setText(u"  "_s);
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(tela.focus(), &tela.txtCEP);
    });
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, u"É obrigatório Informar o CEP ou Parte do Endereço Para Realizar a Pesquisa!"_s);
    EXPECT_EQ(platform.boxes[0].title, titulo);
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Information);
    EXPECT_TRUE(database.sent.isEmpty());
}

TEST_F(BuscaCepTest, AHyphenIsRefusedEvenWithAStreet) {
    openSearch([&](Tela& tela) {
        tela.txtCEP.setText(u"01310-100"_s);
        searchStreet(tela, u"paulista"_s);
        EXPECT_EQ(tela.focus(), &tela.txtCEP);
    });
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, u"O CEP deve ser digitado sem o hífen!"_s);
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Information);
    EXPECT_TRUE(database.sent.isEmpty());
}

TEST_F(BuscaCepTest, AStreetWinsOverAPostalCode) {
    openSearch([&](Tela& tela) {
        tela.txtCEP.setText(u"99999999"_s);
        searchStreet(tela, u" paulista "_s);
        EXPECT_EQ(
            database.sent,
            (QStringList{
                u"SELECT CEP8_LOGR, NOME_LOGR, UF00_LOGR, CHAV_TIPO, CHAV_LOCA, CHAV_BAIR FROM LOGR  WHERE NOME_LOGR "
                u"LIKE "
                "'%PAULISTA%'"_s,
                u"SELECT NOME_TIPO, ABRV_TIPO FROM TIPO WHERE CHAV_TIPO = '81'"_s,
                u"SELECT NOME_BAIR, ABRV_BAIR, UF00_BAIR FROM BAIR WHERE CHAV_BAIR = '44' AND CHAV_LOCA = '9668'"_s,
                u"SELECT NOME_LOCA FROM LOCA WHERE CHAV_LOCA = '9668'"_s,
                u"SELECT NOME_TIPO, ABRV_TIPO FROM TIPO WHERE CHAV_TIPO = 'X'"_s,
                u"SELECT NOME_BAIR, ABRV_BAIR, UF00_BAIR FROM BAIR WHERE CHAV_BAIR = '' AND CHAV_LOCA = 'Y'"_s,
                u"SELECT NOME_LOCA FROM LOCA WHERE CHAV_LOCA = 'Y'"_s, u"CLOSE"_s}));
        EXPECT_EQ(rowOf(tela.Flex, 1),
                  (QStringList{{}, u"01310100"_s, u"AV"_s, u"PAULISTA"_s, u"BELA VISTA"_s, u"SAO PAULO"_s, u"SP"_s}));
        EXPECT_EQ(rowOf(tela.Flex, 2), (QStringList{{}, u"01310900"_s, {}, u"PAULISTA 2"_s, {}, {}, u"SP"_s}));
        EXPECT_EQ(tela.Flex.Rows(), 3);
        EXPECT_EQ(tela.Flex.Row(), 0);
        EXPECT_EQ(tela.pointer(), screen::Pointer::Default);
        EXPECT_EQ(contexto.ConexaoCEP, nullptr);
    });
}

TEST_F(BuscaCepTest, PostalCodeIsComparedWhole) {
    openSearch([&](Tela& tela) {
        tela.txtCEP.setText(u" 01310100 "_s);
        user.click(tela.cmdPesquisa);
        EXPECT_EQ(database.sent.value(0),
                  u"SELECT CEP8_LOGR, NOME_LOGR, UF00_LOGR, CHAV_TIPO, CHAV_LOCA, CHAV_BAIR FROM LOGR  WHERE "
                  "CEP8_LOGR = '01310100'"_s);
    });
}

TEST_F(BuscaCepTest, NothingFoundSaysNothing) {
    database.answer(u"FROM LOGR"_s, {colunasLogr, {}});
    openSearch([&](Tela& tela) {
        searchStreet(tela, u"nenhuma"_s);
        EXPECT_EQ(tela.Flex.Rows(), 1);
    });
    EXPECT_TRUE(platform.boxes.empty());
    EXPECT_EQ(failure(), 0);
}

TEST_F(BuscaCepTest, TheConnectionFieldsAreRewrittenForGood) {
    configure("outro^ceps^u^p^MSSQL^^True");
    openSearch([&](Tela& tela) { searchStreet(tela, u"a"_s); });
    EXPECT_EQ(contexto.TipoBanco, u"MSSQL"_s);
    EXPECT_EQ(contexto.Servidor, u"outro"_s);
    EXPECT_EQ(contexto.BaseDados, u"ceps"_s);
    EXPECT_EQ(contexto.UsuarioBanco, u"u"_s);
    EXPECT_EQ(contexto.SenhaBanco, u"p"_s);
    EXPECT_EQ(contexto.StringConexaoFirebird, QString());
    EXPECT_TRUE(contexto.PreservaAcentos);
    EXPECT_FALSE(contexto.isFirebird()) << "later statements follow the dialect of the postal-code file";
    EXPECT_EQ(database.opened.back().engine, data::Engine::SqlServer);
    EXPECT_EQ(database.opened.back().timeout, 400);
    EXPECT_EQ(database.opened.back().connectionString, u"driver={SQL Server};server=outro;uid=u;pwd=p;database=ceps"_s);
    EXPECT_TRUE(contexto.principal().IsOpen()) << "the main connection goes on";
}

TEST_F(BuscaCepTest, ATagThatIsUnknownHereOpensNothing) {
    configure("s^b^u^p^MS-SQL2008WEB^^True");
    openSearch([&](Tela& tela) { searchStreet(tela, u"a"_s); });
    EXPECT_EQ(failure(), errorNumber::ObjectNotSet);
}

TEST_F(BuscaCepTest, AMissingBaseEndsTheProcessWithItsBox) {
    database.refuseOpen = true;
    openSearch([&](Tela& tela) { searchStreet(tela, u"a"_s); });
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(failure(), 0);
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, u"O Servidor CEP de dados não está respondendo.\n\n"
                                      "Verifique se o servidor NT/SQL/Linux (servidor) está ligado."_s);
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Critical);
}

TEST_F(BuscaCepTest, AnEmptyFileEndsTheProcessWithItsBox) {
    configure("  ");
    openSearch([&](Tela& tela) { searchStreet(tela, u"a"_s); });
    EXPECT_TRUE(program.hasEnded());
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].title, u"Falha de Conexão com o Servidor"_s);
}

TEST_F(BuscaCepTest, MoreThan5461RowsOverflowTheFieldNumber) {
    QList<QList<data::Value>> linhas(5461, {text("1"), text("R"), text("SP"), null(), null(), null()});
    database.answer(u"FROM LOGR"_s, {colunasLogr, linhas});
    openSearch([&](Tela& tela) {
        searchStreet(tela, u"r"_s);
        EXPECT_EQ(tela.Flex.Rows(), 5462);
        EXPECT_EQ(tela.Flex.cell(5461, 6), u"SP"_s);
    });
    EXPECT_EQ(failure(), 0);
    linhas += linhas.front();
    database.answer(u"FROM LOGR"_s, {colunasLogr, linhas});
    openSearch([&](Tela& tela) { searchStreet(tela, u"r"_s); });
    EXPECT_EQ(failure(), errorNumber::Overflow);
}

struct CasoBloco {
    const char* alvo;
    const char* prefixo;
    const char* pais;
};

TEST_F(BuscaCepTest, TheChoiceGoesIntoTheBlockThatAsked) {
    for (const CasoBloco& caso : {CasoBloco{"COML", "", "cboPais_Coml"}, CasoBloco{"COBR", "Cob_", "cboPais_Cobr"},
                                  CasoBloco{"ENTG", "Ent_", "cboPais_Entg"}}) {
        SCOPED_TRACE(caso.alvo);
        contexto.EnderecoAlvoCep = QString::fromLatin1(caso.alvo);
        platform.boxes.clear();
        openSearch([&](Tela& tela) {
            searchStreet(tela, u"paulista"_s);
            user.doubleClickCell(tela.Flex, 0, 1);
            EXPECT_TRUE(tela.isLoaded());
            user.doubleClickCell(tela.Flex, 1, 1);
            EXPECT_FALSE(tela.isLoaded());
        });
        EXPECT_EQ(contexto.ListaCamposCep, u"^01310100^AV^PAULISTA^BELA VISTA^SAO PAULO^SP^"_s);
        const auto campo = [&](const char* tipo, const char* nome) {
            return pessoas()
                .field(QString::fromLatin1(tipo) + QString::fromLatin1(caso.prefixo) + QString::fromLatin1(nome))
                .text();
        };
        EXPECT_EQ(campo("msk", "CEP"), u"01310-100"_s);
        EXPECT_EQ(campo("txt", "Endereco"), u"AV PAULISTA"_s);
        EXPECT_EQ(campo("txt", "Bairro"), u"BELA VISTA"_s);
        EXPECT_EQ(campo("cbo", "Cidade"), u"SAO PAULO"_s);
        EXPECT_EQ(campo("cbo", "UF"), u"SP"_s);
        EXPECT_EQ(pessoas().field(QString::fromLatin1(caso.pais)).text(), u"Brasil"_s);
        ASSERT_EQ(platform.boxes.size(), 1u);
        EXPECT_EQ(platform.boxes[0].text, transferred);
        EXPECT_EQ(platform.boxes[0].title, titulo);
        EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Information);
    }
}

TEST_F(BuscaCepTest, AStreetWithoutPartnersGoesBackWithItsBlank) {
    contexto.EnderecoAlvoCep = u"COML"_s;
    openSearch([&](Tela& tela) {
        searchStreet(tela, u"paulista"_s);
        user.doubleClickCell(tela.Flex, 2, 1);
    });
    EXPECT_EQ(platform.boxes.news(), QStringList(transferred));
    EXPECT_EQ(pessoas().txtEndereco.text(), u" PAULISTA 2"_s);
    EXPECT_EQ(pessoas().cboCidade.text(), QString());
}

TEST_F(BuscaCepTest, WithoutATargetNothingIsWrittenButTheScreenCloses) {
    for (const auto& [chamadora, alvo] : {std::pair(u"frmPessoas"_s, QString()), std::pair(u"frmOutra"_s, u"COML"_s)}) {
        contexto.TelaChamadora = chamadora;
        contexto.EnderecoAlvoCep = alvo;
        platform.boxes.clear();
        openSearch([&](Tela& tela) {
            searchStreet(tela, u"paulista"_s);
            user.doubleClickCell(tela.Flex, 1, 1);
            EXPECT_FALSE(tela.isLoaded());
        });
        EXPECT_EQ(pessoas().txtEndereco.text(), QString());
        EXPECT_EQ(platform.boxes.news(), QStringList(transferred));
    }
}

TEST_F(BuscaCepTest, EnterOnTheButtonMovesOn) {
    openSearch([&](Tela& tela) {
        user.focus(tela.cmdPesquisa);
        user.key(tela.cmdPesquisa, screen::Key::Enter);
        EXPECT_EQ(tela.focus(), &tela.Flex);
    });
    EXPECT_TRUE(platform.boxes.empty());
}

TEST_F(BuscaCepTest, AnApostropheEndsTheProgram) {
    openSearch([&](Tela& tela) { searchStreet(tela, u"d'avila"_s); });
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
}

} // namespace vorta::test

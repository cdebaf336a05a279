#include "maintenance/frmInfoPess.h"
#include "base/Literals.h"

#include "screen/User.h"
#include "support/World.h"

namespace vorta::test {

namespace {

const QString atualizacao =
    u"UPDATE PESS SET CODI_MUNI_COML_PESS='%1', CODI_MUNI_ENTG_PESS='%2', CODI_MUNI_COBR_PESS='%3' WHERE (IDPESS=%4)"_s;
const QString busca = u"SELECT CODI_MUNI_IBGE FROM MUNI_IBGE WHERE DESC_MUNI_IBGE = '%1' AND UF00_MUNI_IBGE = '%2'"_s;

} // namespace

/// A register with the statistics screen; five tables without rows until told otherwise.
struct InfoPessWorld : World {
    InfoPessWorld() {
        RegistraTelasManutencao(contexto);
        connect();
        contexto.Ambiente = u"PRD"_s;
        contexto.NomeUsuario = u"MARIA"_s;
        countRows(0, 0, 0, 0, 0);
    }

    void countRows(int pess, int clie, int forn, int vend, int trpt) {
        const std::pair<const char*, int> tabelas[]{
            {"PESS", pess}, {"CLIE", clie}, {"FORN", forn}, {"VEND", vend}, {"TRPT", trpt}};
        for (const auto& [tabela, quantos] : tabelas)
            database.answer(u"'QT' FROM %1 "_s.arg(QLatin1StringView(tabela)), {{u"QT"_s}, {{number(quantos)}}});
    }
    void personRows(const QList<QList<data::Value>>& linhas) {
        database.answer(u"FROM PESS ORDER BY"_s,
                        {{u"IDPESS"_s, u"CIDA_COML_PESS"_s, u"UF00_COML_PESS"_s, u"CIDA_ENTG_PESS"_s,
                          u"UF00_ENTG_PESS"_s, u"CIDA_COBR_PESS"_s, u"UF00_COBR_PESS"_s},
                         linhas});
    }
    void townRow(const QString& nome, const QString& uf, const char* codigo) {
        database.answer(busca.arg(nome, uf), {{u"codi_muni_ibge"_s}, {{text(codigo)}}});
    }
    bool open(const std::function<void(frmInfoPess&)>& faz) {
        platform.whenShown(u"frmInfoPess"_s, [faz](screen::Screen& tela) { faz(static_cast<frmInfoPess&>(tela)); });
        return run([&] { contexto.MostraTela(u"frmInfoPess"_s); });
    }
};

class InfoPessTest : public ::testing::Test, protected InfoPessWorld {};

TEST_F(InfoPessTest, CountsTheActiveRows) {
    countRows(10, 4, 3, 2, 1);
    open([&](frmInfoPess& tela) {
        EXPECT_EQ(database.sent, (QStringList{u"SELECT COUNT(*) 'QT' FROM PESS WHERE DATA_DESA IS NULL"_s,
                                              u"SELECT COUNT(*) 'QT' FROM CLIE WHERE DATA_DESA IS NULL"_s,
                                              u"SELECT COUNT(*) 'QT' FROM FORN WHERE DATA_DESA IS NULL"_s,
                                              u"SELECT COUNT(*) 'QT' FROM VEND WHERE DATA_DESA IS NULL"_s,
                                              u"SELECT COUNT(*) 'QT' FROM TRPT WHERE DATA_DESA IS NULL"_s}));
        const screen::Label* descricoes[]{&tela.lblDesc1, &tela.lblDesc2, &tela.lblDesc3, &tela.lblDesc4,
                                          &tela.lblDesc5};
        const screen::Label* quantidades[]{&tela.lblQt1, &tela.lblQt2, &tela.lblQt3, &tela.lblQt4, &tela.lblQt5};
        const char16_t* nomes[]{u"Pessoas", u"Clientes", u"Fornecedores", u"Vendedores", u"Transportadoras"};
        const char16_t* quantos[]{u"10", u"4", u"3", u"2", u"1"};
        for (int linha = 0; linha < 5; ++linha) {
            EXPECT_EQ(descricoes[linha]->text(), QString::fromUtf16(nomes[linha]));
            EXPECT_EQ(quantidades[linha]->text(), QString::fromUtf16(quantos[linha]));
            EXPECT_TRUE(descricoes[linha]->visible() && quantidades[linha]->visible());
        }
        EXPECT_EQ(tela.caption(), ContextoExecucao::Titulo() + u" (PRD) - Informação de Pessoas (/MARIA)"_s);
        EXPECT_EQ(tela.lblDataHora.text(), u"20/11/2026 14:30"_s);
        EXPECT_EQ(tela.lblDescSemVinc.text(), u"Sem Vínculo"_s);
        EXPECT_EQ(tela.lblQtSemVinc.text(), u"0"_s);
        for (const screen::Label* rotulo : {&tela.lblDesc6, &tela.lblQt6, &tela.lblDescSemVinc, &tela.lblQtSemVinc})
            EXPECT_FALSE(rotulo->visible()) << rotulo->name();
        EXPECT_EQ(tela.lblDesc6.text() + tela.lblQt6.text(), QString());
    });
}

TEST_F(InfoPessTest, PersonsWithoutARoleNeverFallBelowZero) {
    countRows(10, 2, 1, 1, 1);
    open([](frmInfoPess& tela) { EXPECT_EQ(tela.lblQtSemVinc.text(), u"5"_s); });
    countRows(3, 2, 1, 1, 1);
    open([](frmInfoPess& tela) { EXPECT_EQ(tela.lblQtSemVinc.text(), u"0"_s); });
}

TEST_F(InfoPessTest, IsHeardOfWhileTheEngineCounts) {
    countRows(10, 4, 3, 2, 1);
    Thinking thinking(database);
    int told = 0;
    platform.whenProgressed = [&] {
        if (++told > 1) // the first is told before the first count begins
            thinking.end();
    };
    open([](frmInfoPess& tela) { EXPECT_EQ(tela.lblQt1.text(), u"10"_s); });
    EXPECT_TRUE(thinking.wasEnded());
}

TEST_F(InfoPessTest, LooksUpTheCodesOfEveryPerson) {
    personRows({{number(1), text("SAO PAULO"), text("SP"), text(" Campinas "), text(" sp "), text("NADA"), text("XX")},
                {number(2), text("SAO PAULO "), text("SP"), text(""), text(""), text("SAO PAULO"), text("SP")}});
    townRow(u"SÃO PAULO"_s, u"SP"_s, "3550308");
    townRow(u"CAMPINAS"_s, u"SP"_s, "3509502");
    open([&](frmInfoPess& tela) {
        EXPECT_EQ(platform.progressed,
                  (std::vector<std::pair<qint64, qint64>>{{0, 5}, {1, 5}, {2, 5}, {3, 5}, {4, 5}, {5, 5}, {0, 0}}));
        platform.progressed.clear();
        database.sent.clear();
        user.click(tela.cmdEspecialMun);
        EXPECT_EQ(
            database.sent,
            (QStringList{u"SELECT * FROM PESS ORDER BY IDPESS"_s, busca.arg(u"SÃO PAULO"_s, u"SP"_s),
                         busca.arg(u"CAMPINAS"_s, u"SP"_s), busca.arg(u"NADA"_s, u"XX"_s),
                         atualizacao.arg(u"3550308"_s, u"3509502"_s, u""_s, u"1"_s), busca.arg(u"SAO PAULO"_s, u"SP"_s),
                         busca.arg(u""_s, u""_s), busca.arg(u"SÃO PAULO"_s, u"SP"_s),
                         atualizacao.arg(u""_s, u""_s, u"3550308"_s, u"2"_s)}))
            << "only the exact name gets its accent back, and no transaction is opened";
        ASSERT_EQ(platform.boxes.size(), 1u);
        EXPECT_EQ(platform.boxes[0].text, u"2 registros foram atualizados!"_s);
        EXPECT_EQ(platform.boxes[0].title, tela.caption());
        EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Information);
        EXPECT_EQ(platform.boxes[0].buttons, screen::Buttons::OK);
        EXPECT_EQ(platform.progressed, (std::vector<std::pair<qint64, qint64>>{{1, 2}, {2, 2}, {0, 0}}));
        EXPECT_EQ(tela.pointer(), screen::Pointer::Default);
        EXPECT_EQ(tela.lblQt1.text(), u"0"_s) << "nothing counts anew";
    });
}

TEST_F(InfoPessTest, AnEmptyRegister) {
    open([&](frmInfoPess& tela) { user.click(tela.cmdEspecialMun); });
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, u"0 registros foram atualizados!"_s);
    EXPECT_TRUE(database.writes.isEmpty());
}

TEST_F(InfoPessTest, ANullCityOrStateEndsTheRunBehindThePersonsBefore) {
    const QList<data::Value> inteira{number(1), text("A"), text("SP"), text("B"), text("SP"), text("C"), text("SP")};
    for (int coluna = 1; coluna <= 6; ++coluna) {
        InfoPessWorld world;
        SCOPED_TRACE(coluna);
        QList<data::Value> quebrada = inteira;
        quebrada[0] = number(2);
        quebrada[coluna] = null();
        QList<data::Value> depois = inteira;
        depois[0] = number(3);
        world.personRows({inteira, quebrada, depois});
        world.open([&](frmInfoPess& tela) { world.user.click(tela.cmdEspecialMun); });
        EXPECT_EQ(world.failure(), errorNumber::InvalidNull);
        EXPECT_EQ(world.database.writes, QStringList(atualizacao.arg(u""_s, u""_s, u""_s, u"1"_s)));
        ASSERT_EQ(world.platform.boxes.size(), 1u) << "the box of the error alone";
        EXPECT_FALSE(world.platform.boxes[0].text.contains(u"registros foram atualizados"));
    }
}

TEST_F(InfoPessTest, AFailingWriteEndsTheRun) {
    const QList<data::Value> linha{number(1), text("A"), text("SP"), text("B"), text("SP"), text("C"), text("SP")};
    personRows({linha, linha});
    database.fail(u"UPDATE PESS"_s, errorNumber::StatementRefused);
    open([&](frmInfoPess& tela) { user.click(tela.cmdEspecialMun); });
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
    EXPECT_EQ(database.sent.filter(u"UPDATE PESS"_s).size(), 1);
    EXPECT_TRUE(database.writes.isEmpty());
}

TEST_F(InfoPessTest, TheButtonCloses) {
    open([&](frmInfoPess& tela) {
        user.click(tela.cmdSAIR);
        EXPECT_FALSE(tela.isLoaded());
    });
    EXPECT_EQ(failure(), 0);
}

} // namespace vorta::test

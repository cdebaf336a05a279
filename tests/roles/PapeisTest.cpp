#include "shared/Papeis.h"

#include "base/Literals.h"
#include "kit/Schema.h"
#include "roles/TelaPapel.h"
#include "support/RegisterWorld.h"

#include <gtest/gtest.h>

namespace vorta::test {

namespace {

/// The whole register: a role is asked of every part that must know it.
class PapeisTest : public ::testing::TestWithParam<Papel>, protected RegisterWorld {
  protected:
    screen::Field* field(const char* nomeTela, const char* nome) {
        return telaDe(QString::fromLatin1(nomeTela)).findField(QString::fromLatin1(nome));
    }
};

const kit::Table* tableOf(data::Piece nome) {
    return kit::FindTable(nome.toString());
}

void hasColumns(const kit::Table& tabela, const QStringList& colunas) {
    for (const QString& coluna : colunas)
        EXPECT_TRUE(tabela.column(coluna)) << qPrintable(tabela.name + u'.' + coluna);
}

/// Where no generator is told, the database itself must fill the key.
void givesKeys(const kit::Table& tabela, const std::optional<data::Piece>& gerador) {
    if (gerador)
        EXPECT_EQ(tabela.generator, gerador->toString());
    else
        EXPECT_TRUE(tabela.filledByDatabase) << qPrintable(tabela.name);
}

} // namespace

TEST_P(PapeisTest, HasItsTable) {
    const Papel& papel = GetParam();
    const kit::Table* tabela = tableOf(papel.tabela);
    ASSERT_TRUE(tabela);
    EXPECT_EQ(tabela->columns.front().name.compare(papel.chave.toString(), Qt::CaseInsensitive), 0);
    hasColumns(*tabela, {u"idpess"_s, u"data_incl"_s, u"user_incl"_s, u"data_desa"_s, u"user_desa"_s});
    givesKeys(*tabela, papel.gerador);
    hasColumns(*kit::FindTable(u"PESS"_s), {papel.chave.toString()});
    for (const ColunaInicial& inicial : papel.iniciais)
        hasColumns(*tabela, {inicial.coluna.toString()});
    if (papel.parametroTela)
        hasColumns(*tabela, {u"codi_empr"_s});
}

TEST_P(PapeisTest, HasItsTableOfContacts) {
    const Papel& papel = GetParam();
    auto& tela = dynamic_cast<TelaPapel&>(contexto().Tela(QString::fromLatin1(papel.tela)));
    EXPECT_EQ(tela.findField(u"Flex"_s) != nullptr, papel.contatos.has_value())
        << "contacts on the screen and in the base";
    if (!papel.contatos)
        return;
    const kit::Table* tabela = tableOf(papel.contatos->tabela);
    ASSERT_TRUE(tabela);
    const QString nome = papel.contatos->tabela.toString();
    hasColumns(*tabela, {u"id"_s + nome, papel.chave.toString(), u"carg_"_s + nome, u"nome_"_s + nome,
                         u"tele_"_s + nome, u"emai_"_s + nome, u"data_nasc"_s, u"data_incl"_s, u"user_incl"_s});
    givesKeys(*tabela, papel.contatos->gerador);
}

TEST_P(PapeisTest, HasItsScreenItsButtonAndItsOption) {
    const Papel& papel = GetParam();
    ASSERT_TRUE(contexto().ConheceTela(QString::fromLatin1(papel.tela)));
    EXPECT_TRUE(dynamic_cast<TelaPapel*>(&contexto().Tela(QString::fromLatin1(papel.tela))));
    const auto* botao = dynamic_cast<screen::Button*>(field("frmPessoas", papel.botao));
    ASSERT_TRUE(botao);
    EXPECT_TRUE(botao->Click);
    const auto* opcao = dynamic_cast<screen::Option*>(field("frmBROWSE_PESSOAS", papel.opcao));
    ASSERT_TRUE(opcao);
    EXPECT_EQ(opcao->group(), u"papel"_s);
}

TEST_P(PapeisTest, SharesNoNameWithAnotherRole) {
    const Papel& papel = GetParam();
    EXPECT_EQ(&PapelDe(papel.tipo) - papeis.data(), static_cast<int>(papel.tipo));
    for (const Papel& outro : papeis) {
        if (outro.tipo == papel.tipo)
            continue;
        EXPECT_NE(papel.palavra, outro.palavra);
        EXPECT_NE(papel.tabela.toString(), outro.tabela.toString());
        for (const auto nome : {&Papel::tela, &Papel::botao, &Papel::opcao, &Papel::parametroBotao})
            EXPECT_STRNE(papel.*nome, outro.*nome);
        for (const QStringView pedido : papel.pedidos)
            EXPECT_EQ(std::ranges::count(outro.pedidos, pedido), 0) << qPrintable(pedido.toString());
    }
}

INSTANTIATE_TEST_SUITE_P(Cada, PapeisTest, ::testing::ValuesIn(papeis),
                         [](const auto& caso) { return std::string(caso.param.nome); });

/// No role screen, role button or role option stands beside the table.
TEST(Papeis, NothingIsARoleThatHasNoRow) {
    TestPlatform platform;
    Register registro(platform);
    ContextoExecucao& contexto = registro.context();
    qsizetype telas = 0;
    for (const QString& nome : contexto.NomesTelas())
        telas += dynamic_cast<TelaPapel*>(&contexto.Tela(nome)) ? 1 : 0;
    EXPECT_EQ(telas, qsizetype(papeis.size()));
    qsizetype opcoes = 0;
    for (const screen::Field* campo : contexto.Tela(u"frmBROWSE_PESSOAS"_s).fields()) {
        const auto* opcao = dynamic_cast<const screen::Option*>(campo);
        opcoes += opcao && opcao->group() == u"papel" ? 1 : 0;
    }
    EXPECT_EQ(opcoes, qsizetype(papeis.size()) + 2) << "besides everybody and prospects";
}

} // namespace vorta::test

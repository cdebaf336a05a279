#include "shared/Preenchimento.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

namespace {

using C = ContextoExecucao;
using screen::ListField;

struct Tela : screen::Screen {
    explicit Tela(screen::Program& program) : Screen(program, u"frmTeste"_s) {}
    ListField lista{this, "cboTipoCli"};
    ListField precos{this, "cboTabelaPrecos"};
};

/// A filler, the text that it sends, and the column that it shows.
struct Lista {
    const char* nome;
    void (*preenche)(C& contexto, Tela& tela);
    const char* enviado;
    const char* coluna;
};

template <auto funcao>
void comTexto(C& contexto, Tela& tela) {
    funcao(contexto, u" Me "_s, tela.lista);
}
template <auto funcao>
void semTexto(C& contexto, Tela& tela) {
    funcao(contexto, u"  "_s, tela.lista);
}
template <auto funcao>
void fixa(C& contexto, Tela& tela) {
    funcao(contexto, tela.lista);
}

const std::vector<Lista> listas{
    {"PreencheTipoCliente", [](C& contexto, Tela& tela) { PreencheTipoCliente(contexto, tela); },
     "SELECT DESC_TIPO_CLIE FROM TIPO_CLIE WHERE DATA_DESA IS NULL ORDER BY DESC_TIPO_CLIE", "desc_tipo_clie"},
    {"PreencheCargos", comTexto<PreencheCargos>,
     "SELECT DESC_CARG FROM CARG WHERE DATA_DESA IS NULL AND DESC_CARG LIKE 'ME%' ORDER BY DESC_CARG", "desc_carg"},
    {"PreencheCargos empty", semTexto<PreencheCargos>,
     "SELECT DESC_CARG FROM CARG WHERE DATA_DESA IS NULL AND DESC_CARG LIKE '%' ORDER BY DESC_CARG", "desc_carg"},
    {"PreencheAtividades", comTexto<PreencheAtividades>,
     "SELECT DESC_ATIV FROM ATIV WHERE DATA_DESA IS NULL AND DESC_ATIV LIKE 'ME%' ORDER BY DESC_ATIV", "desc_ativ"},
    {"PreencheAtividades empty", semTexto<PreencheAtividades>,
     "SELECT DESC_ATIV FROM ATIV WHERE DATA_DESA IS NULL ORDER BY DESC_ATIV", "desc_ativ"},
    {"PreencheVendedores", comTexto<PreencheVendedores>,
     "SELECT PESS.NOME_CONH FROM PESS, VEND WHERE PESS.IDPESS = VEND.IDPESS AND PESS.NOME_CONH LIKE 'ME%' "
     "AND VEND.DATA_DESA IS NULL ORDER BY PESS.NOME_CONH",
     "NOME_CONH"},
    {"PreencheVendedores empty", semTexto<PreencheVendedores>,
     "SELECT PESS.NOME_CONH FROM PESS, VEND WHERE PESS.IDPESS = VEND.IDPESS AND VEND.DATA_DESA IS NULL "
     "ORDER BY PESS.NOME_CONH",
     "NOME_CONH"},
    {"PreencheTransportadoras", comTexto<PreencheTransportadoras>,
     "SELECT PESS.NOME_CONH FROM PESS, TRPT WHERE PESS.IDPESS = TRPT.IDPESS AND TRPT.DATA_DESA IS NULL "
     "AND PESS.NOME_CONH LIKE 'ME%' ORDER BY PESS.NOME_CONH",
     "NOME_CONH"},
    {"PreencheTipoProduto", fixa<PreencheTipoProduto>, "SELECT DESC_TIPO_PROD FROM TIPO_PROD WHERE DATA_DESA IS NULL",
     "DESC_TIPO_PROD"},
    {"PreencheRegimeEspecial", fixa<PreencheRegimeEspecial>,
     "SELECT DESC_REGI_ESPE_ICMS FROM REGI_ESPE_ICMS WHERE DATA_DESA IS NULL ORDER BY DESC_REGI_ESPE_ICMS",
     "Desc_regi_espe_icms"},
    {"PreenchePaises", comTexto<PreenchePaises>,
     "SELECT NOME_PAIS FROM PAIS  WHERE DATA_DESA IS NULL AND (PAIS.NOME_PAIS LIKE '%ME%') ORDER BY NOME_PAIS",
     "nome_pais"},
    {"PreencheMunicipios",
     [](C& contexto, Tela& tela) { PreencheMunicipios(contexto, u" SP "_s, u" Sant "_s, tela.lista); },
     "SELECT * FROM MUNI_IBGE  WHERE DATA_DESA IS NULL AND UF00_MUNI_IBGE = 'SP' "
     "AND (MUNI_IBGE.DESC_MUNI_IBGE LIKE '%SANT%') ORDER BY DESC_MUNI_IBGE",
     "desc_muni_ibge"},
    {"PreencheCargosContem", comTexto<PreencheCargosContem>,
     "SELECT DESC_CARG FROM CARG  WHERE DATA_DESA IS NULL AND (CARG.DESC_CARG LIKE '%ME%') ORDER BY DESC_CARG",
     "desc_carg"},
    {"PreencheCargosContem empty", semTexto<PreencheCargosContem>,
     "SELECT DESC_CARG FROM CARG  WHERE DATA_DESA IS NULL ORDER BY DESC_CARG", "desc_carg"},
    {"PreencheColecoes", comTexto<PreencheColecoes>,
     "SELECT DESC_COLE FROM COLE WHERE DATA_DESA IS NULL AND (DESC_COLE LIKE '%ME%') ORDER BY DESC_COLE", "desc_cole"},
    {"PreencheBancosOuCartoes by name",
     [](C& contexto, Tela& tela) { PreencheBancosOuCartoes(contexto, u" Itau "_s, u"BOLETO"_s, tela.lista); },
     "SELECT NOME_BANC FROM BANC WHERE DATA_DESA IS NULL AND NOME_BANC LIKE '%ITAU%' ORDER BY NOME_BANC", "nome_banc"},
    {"PreencheBancosOuCartoes by code",
     [](C& contexto, Tela& tela) { PreencheBancosOuCartoes(contexto, u" 34"_s, u"DOC"_s, tela.lista); },
     "SELECT NOME_BANC FROM BANC WHERE DATA_DESA IS NULL AND CODI_BANC LIKE '34%' ORDER BY NOME_BANC", "nome_banc"},
    {"PreencheBancosOuCartoes empty",
     [](C& contexto, Tela& tela) { PreencheBancosOuCartoes(contexto, {}, u"TED"_s, tela.lista); },
     "SELECT NOME_BANC FROM BANC WHERE DATA_DESA IS NULL ORDER BY NOME_BANC", "nome_banc"},
    {"PreencheBancosOuCartoes card",
     [](C& contexto, Tela& tela) { PreencheBancosOuCartoes(contexto, u"Vis"_s, u"CARTAO"_s, tela.lista); },
     "SELECT NOME_CART FROM CART WHERE DATA_DESA IS NULL AND NOME_CART LIKE '%VIS%' ORDER BY NOME_CART", "nome_cart"},
    {"PreencheBancosOuCartoes card, empty",
     [](C& contexto, Tela& tela) { PreencheBancosOuCartoes(contexto, {}, u"CARTAO"_s, tela.lista); },
     "SELECT NOME_CART FROM CART WHERE DATA_DESA IS NULL ORDER BY NOME_CART", "nome_cart"},
};

} // namespace

TEST(Preenchimento, EachSendsItsOneStatement) {
    for (const Lista& lista : listas) {
        World world;
        world.connect();
        Tela tela(world.program);
        lista.preenche(world.contexto, tela);
        EXPECT_EQ(world.database.sent, QStringList(QString::fromUtf8(lista.enviado))) << lista.nome;
    }
}

TEST(Preenchimento, TheListIsEmptiedAndTakesTheRowsInTheirOrder) {
    for (const Lista& lista : listas) {
        World world;
        world.connect();
        world.database.answer(u""_s, {{QString::fromUtf8(lista.coluna)}, {{text("ZETA")}, {text("ÁLVARO")}}});
        Tela tela(world.program);
        tela.lista.addItem(u"VELHO"_s);
        tela.lista.setText(u"VELHO"_s);
        lista.preenche(world.contexto, tela);
        EXPECT_EQ(tela.lista.items(), QStringList({u"ZETA"_s, u"ÁLVARO"_s})) << lista.nome;
        EXPECT_EQ(tela.lista.text(), QString()) << lista.nome;
    }
}

TEST(Preenchimento, ANullNameIsSkippedForSalespersonsOnly) {
    for (const Lista& lista : listas) {
        World world;
        world.connect();
        world.database.answer(u""_s, {{QString::fromUtf8(lista.coluna)}, {{null()}, {text("ANA")}}});
        Tela tela(world.program);
        const bool pula = QLatin1String(lista.nome).startsWith(QLatin1String("PreencheVendedores"));
        EXPECT_EQ(ErrorOf([&] { lista.preenche(world.contexto, tela); }), pula ? 0 : errorNumber::InvalidNull)
            << lista.nome;
        if (pula) {
            EXPECT_EQ(tela.lista.items(), QStringList(u"ANA"_s));
        }
    }
}

TEST(Preenchimento, StatesBeginWithABlankItem) {
    World world;
    world.connect();
    Tela tela(world.program);
    PreencheUFs(world.contexto, tela.lista);
    EXPECT_EQ(tela.lista.items(), QStringList(u"  "_s));
    EXPECT_EQ(
        world.database.sent,
        QStringList(
            u"SELECT UF00.IDUF00, UF00.CODI_UF00 FROM UF00 WHERE (UF00.DATA_DESA IS NULL) ORDER BY UF00.CODI_UF00"_s));
    world.database.answer(u"UF00"_s,
                          {{u"IDUF00"_s, u"CODI_UF00"_s}, {{number(1), text("AC")}, {number(2), text("AL")}}});
    PreencheUFs(world.contexto, tela.lista);
    EXPECT_EQ(tela.lista.items(), QStringList({u"  "_s, u"AC"_s, u"AL"_s}));
}

TEST(Preenchimento, TenPriceTables) {
    World world;
    Tela tela(world.program);
    PreencheTabelasPreco(tela);
    PreencheTabelasPreco(tela);
    EXPECT_EQ(tela.precos.items(),
              QStringList({u"Tabela A"_s, u"Tabela B"_s, u"Tabela C"_s, u"Tabela D"_s, u"Tabela E"_s, u"Tabela F"_s,
                           u"Tabela G"_s, u"Tabela H"_s, u"Tabela I"_s, u"Tabela J"_s}));
}

TEST(Preenchimento, OtherWaysOfPayingLeaveTheListEmpty) {
    World world;
    world.connect();
    Tela tela(world.program);
    for (const QString& forma : {u"DINHEIRO"_s, u"boleto"_s, QString()}) {
        tela.lista.addItem(u"VELHO"_s);
        PreencheBancosOuCartoes(world.contexto, u"1"_s, forma, tela.lista);
        EXPECT_TRUE(tela.lista.items().isEmpty());
    }
    EXPECT_TRUE(world.database.sent.isEmpty());
    for (const QString& forma : {u"BOLETO"_s, u"CHEQUE"_s, u"TRANSFERENCIA"_s, u"TED"_s, u"DOC"_s})
        PreencheBancosOuCartoes(world.contexto, u"1"_s, forma, tela.lista);
    EXPECT_EQ(world.database.sent.size(), 5);
}

TEST(Preenchimento, CustomersInColumns) {
    World world;
    world.connect();
    Tela tela(world.program);
    const QString inicio =
        u"SELECT PESS.IDPESS, PESS.NOME_PESS, PESS.NOME_CONH, PESS.PSFI_PSJU, PESS.CPF0_CNPJ, CLIE.IDCLIE "
        "FROM CLIE, PESS WHERE CLIE.IDPESS = PESS.IDPESS  AND (CLIE.DATA_DESA IS NULL) "_s;
    PreencheListaClientes(world.contexto, u"  "_s, tela.lista);
    PreencheListaClientes(world.contexto, u" 111. "_s, tela.lista);
    PreencheListaClientes(world.contexto, u" mar "_s, tela.lista);
    EXPECT_EQ(world.database.sent,
              QStringList({inicio + u"ORDER BY PESS.NOME_PESS"_s,
                           inicio + u"AND (PESS.CPF0_CNPJ LIKE '%111.%') ORDER BY PESS.NOME_PESS"_s,
                           inicio + u"AND (PESS.NOME_PESS LIKE '%MAR%') ORDER BY PESS.NOME_PESS"_s}));
    world.database.answer(u"FROM CLIE"_s, {{u"IDPESS"_s, u"NOME_PESS"_s, u"CPF0_CNPJ"_s, u"IDCLIE"_s},
                                           {{number(7), text("MARIA"), null(), number(12)}}});
    PreencheListaClientes(world.contexto, {}, tela.lista);
    ASSERT_EQ(tela.lista.items().size(), 1);
    EXPECT_EQ(tela.lista.items().first(),
              u"MARIA"_s + QString(45, u' ') + u'|' + QString(20, u' ') + u"|7         |12        "_s);
}

TEST(Preenchimento, CustomersByADocumentWithLettersNeedTheSwitch) {
    const auto pedido = [](const char* valor, const QString& texto) {
        World world;
        world.connect();
        world.database.answer(u"PESS_CNPJ_ALFANUMERICO"_s,
                              {{u"nome_para"_s, u"valo_para"_s}, {{text("x"), text(valor)}}});
        Tela tela(world.program);
        PreencheListaClientes(world.contexto, texto, tela.lista);
        return world.database.sent;
    };
    for (const char* texto : {"ab.c", "AB.CDE", "AB.CDE.", "AB.CDE.FG1", "AB.CDE.FG1/0001-2"}) {
        const QString busca = QString::fromLatin1(texto);
        const QString filtro = u"LIKE '%%1%'"_s.arg(busca.toUpper());
        EXPECT_TRUE(pedido("S", busca).last().contains(u"PESS.CPF0_CNPJ "_s + filtro)) << texto;
        EXPECT_TRUE(pedido("s", busca).last().contains(u"PESS.NOME_PESS "_s + filtro)) << texto;
    }
    for (const char* texto : {"AB", "AB.", "A.B", "ABC.D", "AB CD", "AB.CDEF", "AB.COMERCIAL", "AB.CD E"}) {
        const QStringList enviados = pedido("S", QString::fromLatin1(texto));
        ASSERT_EQ(enviados.size(), 1) << texto << ": the switch is not asked";
        EXPECT_TRUE(enviados.first().contains(u"PESS.NOME_PESS LIKE"_s)) << texto;
    }
}

TEST(Preenchimento, ProductsInColumns) {
    World world;
    world.connect();
    Tela tela(world.program);
    PreencheListaProdutos(world.contexto, {}, tela.lista);
    PreencheListaProdutos(world.contexto, u" mesa "_s, tela.lista);
    EXPECT_EQ(
        world.database.sent,
        QStringList({u"SELECT DESC_PROD, CODI_PROD, IDPROD FROM PROD  WHERE DATA_DESA IS NULL ORDER BY DESC_PROD"_s,
                     u"SELECT DESC_PROD, CODI_PROD, IDPROD FROM PROD  WHERE DATA_DESA IS NULL AND (PROD.DESC_PROD "
                     "LIKE '%MESA%') ORDER BY DESC_PROD"_s}));
    world.database.answer(u"FROM PROD"_s,
                          {{u"desc_prod"_s, u"codi_prod"_s, u"idprod"_s}, {{text("MESA"), text("M1"), number(3)}}});
    PreencheListaProdutos(world.contexto, {}, tela.lista);
    EXPECT_EQ(tela.lista.items(), QStringList(u"MESA"_s + QString(66, u' ') + u"|M1             |3         "_s));
}

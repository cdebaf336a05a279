#include "shared/Totais.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

namespace {

using C = ContextoExecucao;

/// A total over items of quantity times unit price, and its one statement.
struct Total {
    const char* nome;
    double (*soma)(C& contexto);
    const char* enviado;
};

const std::vector<Total> totais{
    {"TotalPedidoVenda",
     [](C& contexto) {
         QString id = u"7"_s;
         return TotalPedidoVenda(contexto, id, u"C"_s);
     },
     "SELECT pedi_veds_deta.idpedi_veds, pedi_veds_deta.idprod, pedi_veds_deta.qtde, pedi_veds_deta.valo_liqu, "
     "pedi_veds_deta.idnff0 FROM pedi_veds_deta Where (pedi_veds_deta.idpedi_veds = 7) And (pedi_veds_deta.data_desa "
     "Is "
     "Null) "},
    {"TotalPedidoVenda, pending",
     [](C& contexto) {
         QString id = u"7"_s;
         return TotalPedidoVenda(contexto, id, u"S"_s);
     },
     "SELECT pedi_veds_deta.idpedi_veds, pedi_veds_deta.idprod, pedi_veds_deta.qtde, pedi_veds_deta.valo_liqu, "
     "pedi_veds_deta.idnff0 FROM pedi_veds_deta Where (pedi_veds_deta.idpedi_veds = 7) And (pedi_veds_deta.data_desa "
     "Is "
     "Null)  AND (pedi_veds_deta.idnff0 Is Null)"},
    {"TotalOrcamento", [](C& contexto) { return TotalOrcamento(contexto, u"7"_s); },
     "SELECT * FROM orca_veds_deta Where idorca_veds = 7 And data_desa Is Null"},
    {"TotalOS", [](C& contexto) { return TotalOS(contexto, u"7"_s); },
     "SELECT * FROM os_veds_deta Where idos_veds = 7 And data_desa Is Null"},
    {"TotalPedidoCompra", [](C& contexto) { return TotalPedidoCompra(contexto, u"7"_s); },
     "SELECT pedi_comp_deta.idpedi_comp, pedi_comp_deta.idprod, pedi_comp_deta.qtde, pedi_comp_deta.valo_liqu FROM "
     "pedi_comp_deta Where (pedi_comp_deta.idpedi_comp = 7) And (pedi_comp_deta.data_desa Is Null)"},
};

} // namespace

TEST(Totais, QuantityTimesUnitPriceOfEveryItem) {
    for (const Total& total : totais) {
        World world;
        world.connect();
        EXPECT_EQ(total.soma(world.contexto), 0) << total.nome;
        EXPECT_EQ(world.database.sent, QStringList(QString::fromUtf8(total.enviado))) << total.nome;
        world.database.answer(u"deta"_s,
                              {{u"qtde"_s, u"valo_liqu"_s}, {{number(2), amount(1050)}, {amount(150), amount(1000)}}});
        EXPECT_DOUBLE_EQ(total.soma(world.contexto), 36.0) << total.nome;
    }
}

TEST(Totais, ANullInsideATotalIsAnError) {
    for (const Total& total : totais)
        for (const QList<data::Value>& linha : {QList<data::Value>{null(), amount(1)}, {number(1), null()}}) {
            World world;
            world.connect();
            world.database.answer(u"deta"_s, {{u"qtde"_s, u"valo_liqu"_s}, {linha}});
            EXPECT_EQ(ErrorOf([&] { total.soma(world.contexto); }), errorNumber::InvalidNull) << total.nome;
        }
}

TEST(Totais, AnEmptyDocumentIsDocumentZero) {
    World world;
    world.connect();
    QString id;
    EXPECT_EQ(TotalPedidoVenda(world.contexto, id, u"C"_s), 0);
    EXPECT_EQ(id, u"0"_s);
    EXPECT_TRUE(world.database.sent.first().contains(u"idpedi_veds = 0)"));
}

TEST(Totais, ItemCountsLeaveNullsOut) {
    World world;
    world.connect();
    world.database.answer(u"_DETA"_s, {{u"IDPROD"_s, u"QTDE"_s},
                                       {{number(1), number(2)}, {number(2), null()}, {number(3), amount(150)}}});
    EXPECT_DOUBLE_EQ(QtdeItensPedidoVenda(world.contexto, 7, 0), 3.5);
    EXPECT_DOUBLE_EQ(QtdeItensPedidoCompra(world.contexto, 7), 3.5);
    ASSERT_EQ(world.database.sent.size(), 2);
    EXPECT_EQ(world.database.sent[0], u"SELECT IDPROD, QTDE FROM PEDI_VEDS_DETA WHERE IDPEDI_VEDS = 7"_s);
    EXPECT_EQ(world.database.sent[1], u"SELECT IDPROD, QTDE FROM PEDI_COMP_DETA WHERE IDPEDI_COMP = 7"_s);
    world.database.answer(u"IDPROD='3'"_s, {{u"idmarc"_s}, {{number(9)}}});
    EXPECT_DOUBLE_EQ(QtdeItensPedidoVenda(world.contexto, 7, 9), 1.5) << "of one brand only";
}

TEST(Totais, WhatCanBeSold) {
    World world;
    world.connect();
    EXPECT_EQ(EstoqueDisponivel(world.contexto, 7, u"0001"_s), 0);
    EXPECT_EQ(QtdePedidosAbertos(world.contexto, 7, u"0001"_s), 0);
    for (const QString& enviado : world.database.sent)
        EXPECT_EQ(enviado, u"SELECT * FROM PROD_EMPR WHERE IDPROD = 7 AND CODI_EMPR='0001'"_s);
    const QStringList colunas{u"qtde_disp"_s,      u"qtde_disp_0002"_s,   u"QTDE_ESTO_COPR"_s,
                              u"QTDE_ESTO_EMB1"_s, u"QTDE_ESTO_EMB2"_s,   u"QTDE_ESTO_EMB3"_s,
                              u"QTDE_PEDI_ABER"_s, u"qtde_esto_consig"_s, u"qtde_esto_demonstr"_s};
    world.database.answer(u"PROD_EMPR"_s, {colunas,
                                           {{number(1), number(2), number(4), number(8), number(16), number(32),
                                             number(64), number(128), null()}}});
    EXPECT_DOUBLE_EQ(EstoqueDisponivel(world.contexto, 7, u"0001"_s), 63 - 192);
    EXPECT_DOUBLE_EQ(QtdePedidosAbertos(world.contexto, 7, u"0001"_s), 64);
}

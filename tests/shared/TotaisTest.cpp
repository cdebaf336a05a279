#include "shared/Totais.h"

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
         QString id = QStringLiteral("7");
         return TotalPedidoVenda(contexto, id, u"C"_qs);
     },
     "SELECT pedi_veds_deta.idpedi_veds, pedi_veds_deta.idprod, pedi_veds_deta.qtde, pedi_veds_deta.valo_liqu, "
     "pedi_veds_deta.idnff0 FROM pedi_veds_deta Where (pedi_veds_deta.idpedi_veds = 7) And (pedi_veds_deta.data_desa "
     "Is "
     "Null) "},
    {"TotalPedidoVenda, pending",
     [](C& contexto) {
         QString id = QStringLiteral("7");
         return TotalPedidoVenda(contexto, id, u"S"_qs);
     },
     "SELECT pedi_veds_deta.idpedi_veds, pedi_veds_deta.idprod, pedi_veds_deta.qtde, pedi_veds_deta.valo_liqu, "
     "pedi_veds_deta.idnff0 FROM pedi_veds_deta Where (pedi_veds_deta.idpedi_veds = 7) And (pedi_veds_deta.data_desa "
     "Is "
     "Null)  AND (pedi_veds_deta.idnff0 Is Null)"},
    {"TotalOrcamento", [](C& contexto) { return TotalOrcamento(contexto, u"7"_qs); },
     "SELECT * FROM orca_veds_deta Where idorca_veds = 7 And data_desa Is Null"},
    {"TotalOS", [](C& contexto) { return TotalOS(contexto, u"7"_qs); },
     "SELECT * FROM os_veds_deta Where idos_veds = 7 And data_desa Is Null"},
    {"TotalPedidoCompra", [](C& contexto) { return TotalPedidoCompra(contexto, u"7"_qs); },
     "SELECT pedi_comp_deta.idpedi_comp, pedi_comp_deta.idprod, pedi_comp_deta.qtde, pedi_comp_deta.valo_liqu FROM "
     "pedi_comp_deta Where (pedi_comp_deta.idpedi_comp = 7) And (pedi_comp_deta.data_desa Is Null)"},
};

} // namespace

TEST(Totais, QuantityTimesUnitPriceOfEveryItem) {
    for (const Total& total : totais) {
        World mundo;
        mundo.connect();
        EXPECT_EQ(total.soma(mundo.contexto), 0) << total.nome;
        EXPECT_EQ(mundo.database.sent, QStringList(QString::fromUtf8(total.enviado))) << total.nome;
        mundo.database.answer(
            u"deta"_qs, {{u"qtde"_qs, u"valo_liqu"_qs}, {{number(2), amount(1050)}, {amount(150), amount(1000)}}});
        EXPECT_DOUBLE_EQ(total.soma(mundo.contexto), 36.0) << total.nome;
    }
}

TEST(Totais, ANullInsideATotalIsAnError) {
    for (const Total& total : totais)
        for (const QList<data::Value>& linha : {QList<data::Value>{null(), amount(1)}, {number(1), null()}}) {
            World mundo;
            mundo.connect();
            mundo.database.answer(u"deta"_qs, {{u"qtde"_qs, u"valo_liqu"_qs}, {linha}});
            EXPECT_EQ(errorOf([&] { total.soma(mundo.contexto); }), errorNumber::InvalidNull) << total.nome;
        }
}

TEST(Totais, AnEmptyDocumentIsDocumentZero) {
    World mundo;
    mundo.connect();
    QString id;
    EXPECT_EQ(TotalPedidoVenda(mundo.contexto, id, u"C"_qs), 0);
    EXPECT_EQ(id, u"0"_qs);
    EXPECT_TRUE(mundo.database.sent.first().contains(u"idpedi_veds = 0)"));
}

TEST(Totais, ItemCountsLeaveNullsOut) {
    World mundo;
    mundo.connect();
    mundo.database.answer(u"_DETA"_qs, {{u"IDPROD"_qs, u"QTDE"_qs},
                                        {{number(1), number(2)}, {number(2), null()}, {number(3), amount(150)}}});
    EXPECT_DOUBLE_EQ(QtdeItensPedidoVenda(mundo.contexto, 7, 0), 3.5);
    EXPECT_DOUBLE_EQ(QtdeItensPedidoCompra(mundo.contexto, 7), 3.5);
    ASSERT_EQ(mundo.database.sent.size(), 2);
    EXPECT_EQ(mundo.database.sent[0], u"SELECT IDPROD, QTDE FROM PEDI_VEDS_DETA WHERE IDPEDI_VEDS = 7"_qs);
    EXPECT_EQ(mundo.database.sent[1], u"SELECT IDPROD, QTDE FROM PEDI_COMP_DETA WHERE IDPEDI_COMP = 7"_qs);
    mundo.database.answer(u"IDPROD='3'"_qs, {{u"idmarc"_qs}, {{number(9)}}});
    EXPECT_DOUBLE_EQ(QtdeItensPedidoVenda(mundo.contexto, 7, 9), 1.5) << "of one brand only";
}

TEST(Totais, WhatCanBeSold) {
    World mundo;
    mundo.connect();
    EXPECT_EQ(EstoqueDisponivel(mundo.contexto, 7, u"0001"_qs), 0);
    EXPECT_EQ(QtdePedidosAbertos(mundo.contexto, 7, u"0001"_qs), 0);
    for (const QString& enviado : mundo.database.sent)
        EXPECT_EQ(enviado, u"SELECT * FROM PROD_EMPR WHERE IDPROD = 7 AND CODI_EMPR='0001'"_qs);
    const QStringList colunas{u"qtde_disp"_qs,      u"qtde_disp_0002"_qs,   u"QTDE_ESTO_COPR"_qs,
                              u"QTDE_ESTO_EMB1"_qs, u"QTDE_ESTO_EMB2"_qs,   u"QTDE_ESTO_EMB3"_qs,
                              u"QTDE_PEDI_ABER"_qs, u"qtde_esto_consig"_qs, u"qtde_esto_demonstr"_qs};
    mundo.database.answer(u"PROD_EMPR"_qs, {colunas,
                                            {{number(1), number(2), number(4), number(8), number(16), number(32),
                                              number(64), number(128), null()}}});
    EXPECT_DOUBLE_EQ(EstoqueDisponivel(mundo.contexto, 7, u"0001"_qs), 63 - 192);
    EXPECT_DOUBLE_EQ(QtdePedidosAbertos(mundo.contexto, 7, u"0001"_qs), 64);
}

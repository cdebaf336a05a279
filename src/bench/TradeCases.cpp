#include "bench/TradeCases.h"

#include "base/Literals.h"
#include "bench/ScreenBench.h"
#include "person/HistoricoPessoa.h"
#include "person/frmPessoas.h"
#include "search/frmBROWSE_PRODUTO.h"

namespace vorta::bench {

namespace {

constexpr int orders = 2000; ///< of five items each
constexpr int products = 20000;
constexpr int rounds = 5;

/// One person who is customer and supplier: orders with their notes, a quarter as many quotations and purchases, a
/// tenth as many service orders.
const QByteArray busyPerson =
    "execute block as declare d integer = 1; declare i integer; begin "
    "insert into pess (idpess, nome_pess, nome_conh) values (9000001, 'MUITO ATIVA', 'ATIVA'); "
    "insert into clie (idclie, idpess) values (9000001, 9000001); "
    "insert into forn (idforn, idpess) values (9000001, 9000001); "
    "while (d <= 2000) do begin "
    "insert into nff (idnff, nume_nff) values (9000000 + :d, :d); "
    "insert into pedi_veds (idpedi_veds, idclie, nume_pedi, data_pedi, idnff0) "
    "values (9000000 + :d, 9000001, :d, date '2015-01-01' + :d, 9000000 + :d); "
    "if (mod(d, 4) = 0) then insert into orca_veds (idorca_veds, idclie, data_orca_veds) "
    "values (9000000 + :d, 9000001, date '2015-01-01' + :d); "
    "if (mod(d, 10) = 0) then insert into os_veds (idos_veds, idclie, data_os) "
    "values (9000000 + :d, 9000001, date '2015-01-01' + :d); "
    "if (mod(d, 4) = 0) then insert into pedi_comp (idpedi_comp, idforn, data_pedi_comp, user_incl) "
    "values (9000000 + :d, 9000001, date '2015-01-01' + :d, 1); "
    "i = 0; while (i < 5) do begin "
    "insert into pedi_veds_deta (idpedi_veds_deta, idpedi_veds, idprod, qtde, valo_liqu) "
    "values (9000000 + :d * 5 + :i, 9000000 + :d, 9000001 + :i, 2, 10.50); "
    "if (mod(d, 4) = 0) then begin "
    "insert into orca_veds_deta (idorca_veds_deta, idorca_veds, qtde, valo_liqu) "
    "values (9000000 + :d * 5 + :i, 9000000 + :d, 2, 10.50); "
    "insert into pedi_comp_deta (idpedi_comp_deta, idpedi_comp, idprod, qtde, valo_unit, valo_liqu) "
    "values (9000000 + :d * 5 + :i, 9000000 + :d, 9000001 + :i, 2, 9, 8.50); end "
    "if (mod(d, 10) = 0) then insert into os_veds_deta (idos_veds_deta, idos_veds, qtde, valo_liqu) "
    "values (9000000 + :d * 5 + :i, 9000000 + :d, 1, 80); "
    "i = i + 1; end d = d + 1; end end";

const QByteArray manyProducts =
    "execute block as declare p integer = 1; begin while (p <= 20000) do begin "
    "insert into prod (idprod, codi_prod, desc_prod, codi_refe_prod, idtipo_prod) "
    "values (9000000 + :p, 'P' || :p, 'PRODUTO DA MEDIDA ' || :p, 'R' || :p, 1 + mod(:p, 6)); "
    "insert into prod_empr (idprod_empr, idprod, codi_empr, qtde_disp, qtde_pedi_aber, valo_veds, valo_veds_b, "
    "valo_veds_c, loca_fisi_armazem) values (9000000 + :p, 9000000 + :p, '0099', 12, 3, 10, 9, 8, 'MATRIZ'); "
    "p = p + 1; end end";

/// The two screens on one installation.
struct TradeBench : ScreenBench {
    TradeBench() : ScreenBench(0) {
        bare->send(manyProducts);
        bare->send(busyPerson);
        // The engine's choice of indexes must not depend on how the rows came in.
        bare->send("execute block as declare n varchar(31); begin for select rdb$index_name from rdb$indices "
                   "where coalesce(rdb$system_flag, 0) = 0 into :n do execute statement 'set statistics index ' || n; "
                   "end");
        pessoa.txtRowID.setText(u"9000001"_s);
        produtos.lblCodiEmpresa.setText(u"0099"_s);
        produtos.Option1.setValue(true);
    }

    void history() {
        MontaGradesHistorico(pessoa);
        CarregaHistoricoPorId(pessoa);
        expects(pessoa.FlexHistClie, orders);
    }
    void search() {
        produtos.cmdPesquisa.Click();
        expects(produtos.Flex, products);
    }

    frmPessoas pessoa{contexto};
    frmBROWSE_PRODUTO produtos{contexto};

  private:
    static void expects(const screen::Grid& grid, int rows) {
        if (grid.Rows() != rows + 1)
            throw std::logic_error("the measured work does not do what it should");
    }
};

} // namespace

std::vector<Case> TradeCases() {
    const auto bench = std::make_shared<TradeBench>();
    return {bench->work(
                u"trade: history of 2,000 orders, all tabs"_s, u"us/order"_s, orders, [bench] { bench->history(); },
                0.5, rounds),
            bench->work(
                u"trade: search of 20,000 products"_s, u"us/product"_s, products, [bench] { bench->search(); }, 0.5,
                rounds)};
}

} // namespace vorta::bench

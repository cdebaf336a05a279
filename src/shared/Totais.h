#pragma once

#include "launch/ContextoExecucao.h"

/// Totals of documents and stock balances, summed on the client row by row. The tables belong to other programs of the
/// ERP. A failing statement is not caught; a null amount or quantity inside a total raises 94.
namespace vorta {

/// Quantity times net unit price over the active items of a sales order. An empty `id` becomes "0" in the caller's
/// variable. With `soPendentes` "S" only items that stand on no invoice count.
double TotalPedidoVenda(ContextoExecucao& contexto, QString& id, const QString& soPendentes);
double TotalOrcamento(ContextoExecucao& contexto, const QString& id);    ///< of a quotation
double TotalOS(ContextoExecucao& contexto, const QString& id);           ///< of a service order
double TotalPedidoCompra(ContextoExecucao& contexto, const QString& id); ///< of a purchase order

/// Sum of the quantities of a sales order, deactivated items included, nulls left out. `marca` from 1 counts that brand
/// only.
double QtdeItensPedidoVenda(ContextoExecucao& contexto, qint32 id, qint32 marca);
/// The same of a purchase order.
double QtdeItensPedidoCompra(ContextoExecucao& contexto, qint32 id);

/// What a company can sell of a product: its balances less open orders, consignments and demonstrations; nulls count 0,
/// it can be negative.
double EstoqueDisponivel(ContextoExecucao& contexto, qint32 idprod, const QString& codiEmpr);
/// Quantity of a product in open orders; 0 for a null or a missing row.
double QtdePedidosAbertos(ContextoExecucao& contexto, qint32 idprod, const QString& codiEmpr);

} // namespace vorta

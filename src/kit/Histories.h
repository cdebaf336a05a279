#pragma once

#include "kit/Keys.h"
#include "kit/Random.h"
#include "kit/Trade.h"

namespace vorta::kit {

/// How much business the persons do.
struct Density {
    int customersWithDocuments; ///< of a hundred
    int mostDocuments;          ///< of each kind, for those who have some
    int mostItems;              ///< of each document
};
inline constexpr Density liveliness{85, 9, 5};     ///< a small company that one wants to look at
inline constexpr Density massLiveliness{12, 2, 2}; ///< a large register that one wants to measure

/// Writes the documents of customers and suppliers: orders with their notes, quotations, service orders, purchases.
class Histories {
  public:
    Histories(Loader& loader, Keys& keys, const std::vector<Product>& products, const Density& density);

    void customer(Random& random, qint64 idclie);
    void supplier(Random& random, qint64 idforn);

  private:
    qint64 documents(Random& random);
    const Product& product(Random& random, bool service);
    void orders(Random& random, qint64 idclie);
    void orderItems(Random& random, qint64 order, qint64 note);
    void quotations(Random& random, qint64 idclie);
    void serviceOrders(Random& random, qint64 idclie);
    void purchaseItems(Random& random, qint64 purchase, QDate arrived);

    Keys& keys_;
    const Density& density_;
    std::vector<Product> goods_, services_;
    RowLoader notes_, orders_, orderItems_, quotations_, quotationItems_, serviceOrders_, serviceItems_, purchases_,
        purchaseItems_;
};

} // namespace vorta::kit

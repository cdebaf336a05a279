#include "kit/Histories.h"

namespace vorta::kit {

namespace {

const QDate firstDay(2019, 1, 7);
const QDate lastDay(2026, 6, 30);

const Table& tableOf(const char* name) {
    return *FindTable(QString::fromLatin1(name));
}

QDate day(Random& random) {
    return firstDay.addDays(random.below(firstDay.daysTo(lastDay)));
}

Hundredths pieces(Random& random) {
    return {random.between(1, 8) * 100};
}

/// A price between full and fifteen percent off.
Hundredths soldAt(Random& random, const Product& product) {
    return {product.price.value * random.between(85, 100) / 100};
}

const Table& notes() {
    static const Table& table = tableOf("nff");
    return table;
}
const Table& orders() {
    static const Table& table = tableOf("PEDI_VEDS");
    return table;
}
const Table& orderItems() {
    static const Table& table = tableOf("pedi_veds_deta");
    return table;
}
const Table& quotations() {
    static const Table& table = tableOf("ORCA_VEDS");
    return table;
}
const Table& quotationItems() {
    static const Table& table = tableOf("orca_veds_deta");
    return table;
}
const Table& serviceOrders() {
    static const Table& table = tableOf("OS_VEDS");
    return table;
}
const Table& serviceItems() {
    static const Table& table = tableOf("os_veds_deta");
    return table;
}
const Table& purchases() {
    static const Table& table = tableOf("PEDI_COMP");
    return table;
}
const Table& purchaseItems() {
    static const Table& table = tableOf("PEDI_COMP_DETA");
    return table;
}

} // namespace

Histories::Histories(Loader& loader, Keys& keys, const std::vector<Product>& products, const Density& density)
    : keys_(keys), density_(density), notes_(loader, kit::notes()), orders_(loader, kit::orders()),
      orderItems_(loader, kit::orderItems()), quotations_(loader, kit::quotations()),
      quotationItems_(loader, kit::quotationItems()), serviceOrders_(loader, kit::serviceOrders()),
      serviceItems_(loader, kit::serviceItems()), purchases_(loader, kit::purchases()),
      purchaseItems_(loader, kit::purchaseItems()) {
    for (const Product& product : products)
        (product.service ? services_ : goods_).push_back(product);
}

qint64 Histories::documents(Random& random) {
    return random.chance(density_.customersWithDocuments) ? random.between(1, density_.mostDocuments) : 0;
}

const Product& Histories::product(Random& random, bool service) {
    return random.of(service ? services_ : goods_);
}

void Histories::customer(Random& random, qint64 idclie) {
    orders(random, idclie);
    quotations(random, idclie);
    serviceOrders(random, idclie);
}

void Histories::orders(Random& random, qint64 idclie) {
    for (qint64 left = documents(random); left > 0; --left) {
        const qint64 order = keys_.next(kit::orders());
        const bool invoiced = random.chance(70);
        const qint64 note = invoiced ? keys_.next(kit::notes()) : 0;
        if (invoiced) {
            notes_ << note << QByteArray::number(20000 + note);
            notes_.send();
        }
        orders_ << order << idclie << QByteArray::number(1000 + order) << day(random);
        orders_ << (invoiced ? std::optional<qint64>(note) : std::nullopt);
        orders_ << (random.chance(4) ? lastDay : QDate());
        orders_.send();
        orderItems(random, order, note);
    }
}

void Histories::orderItems(Random& random, qint64 order, qint64 note) {
    for (qint64 left = random.between(1, density_.mostItems); left > 0; --left) {
        const Product& sold = product(random, false);
        orderItems_ << keys_.next(kit::orderItems()) << order << sold.id << pieces(random) << soldAt(random, sold);
        orderItems_ << (note ? std::optional<qint64>(note) : std::nullopt);
        orderItems_ << (random.chance(3) ? lastDay : QDate());
        orderItems_.send();
    }
}

void Histories::quotations(Random& random, qint64 idclie) {
    for (qint64 left = documents(random) / 2; left > 0; --left) {
        const qint64 quotation = keys_.next(kit::quotations());
        quotations_ << quotation << idclie << day(random) << (random.chance(5) ? lastDay : QDate());
        quotations_.send();
        for (qint64 item = random.between(1, density_.mostItems); item > 0; --item) {
            quotationItems_ << keys_.next(kit::quotationItems()) << quotation << pieces(random)
                            << soldAt(random, product(random, false)) << QDate();
            quotationItems_.send();
        }
    }
}

void Histories::serviceOrders(Random& random, qint64 idclie) {
    for (qint64 left = documents(random) / 3; left > 0; --left) {
        const qint64 order = keys_.next(kit::serviceOrders());
        serviceOrders_ << order << idclie << day(random) << QDate();
        serviceOrders_.send();
        for (qint64 item = random.between(1, 2); item > 0; --item) {
            serviceItems_ << keys_.next(kit::serviceItems()) << order << Hundredths{100}
                          << soldAt(random, product(random, true)) << QDate();
            serviceItems_.send();
        }
    }
}

void Histories::supplier(Random& random, qint64 idforn) {
    for (qint64 left = documents(random); left > 0; --left) {
        const qint64 purchase = keys_.next(kit::purchases());
        const QDate ordered = day(random);
        const QDate arrived = random.chance(80) ? ordered.addDays(random.between(5, 40)) : QDate();
        purchases_ << purchase << idforn << ordered << ordered.addDays(30) << arrived
                   << (random.chance(20) ? "ENTREGAR NA MATRIZ" : "") << 1 << (random.chance(4) ? lastDay : QDate());
        purchases_.send();
        purchaseItems(random, purchase, arrived);
    }
}

void Histories::purchaseItems(Random& random, qint64 purchase, QDate arrived) {
    for (qint64 left = random.between(1, density_.mostItems); left > 0; --left) {
        const Product& bought = product(random, false);
        const Hundredths price{bought.price.value * random.between(45, 60) / 100};
        const Hundredths discount{price.value * random.below(8) / 100};
        const Hundredths net{price.value - discount.value};
        const qint64 count = random.between(2, 40);
        const Hundredths received{arrived.isValid() ? (random.chance(90) ? count : count / 2) * 100 : 0};
        purchaseItems_ << keys_.next(kit::purchaseItems()) << purchase << bought.id << Hundredths{count * 100} << price
                       << discount << net << Hundredths{net.value * count} << arrived << received << QDate();
        purchaseItems_.send();
    }
}

} // namespace vorta::kit

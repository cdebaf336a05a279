#include "kit/Trade.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "kit/Pictures.h"
#include "kit/Random.h"
#include "kit/Reference.h"

#include <QFile>
#include <QHash>

namespace vorta::kit {

namespace {

enum Field { Code, Description, Reference, Type, Collection, Price };

constexpr quint64 stockSeed = 7;
constexpr int picturedProducts = 8;
constexpr int views = 3;
constexpr int smallWidth = 120;
constexpr int largeWidth = 240;
/// One product in so many is out of sale.
constexpr int outOfSale = 16;

QHash<QString, int> keysOf(const char* table) {
    QHash<QString, int> keys;
    for (const QStringList& row : ReadReference(QString::fromLatin1(table)).rows)
        keys.insert(row[0], int(keys.size()) + 1);
    return keys;
}

Hundredths hundredths(const QString& amount) {
    return {qRound64(amount.toDouble() * 100)};
}

void writeStock(RowLoader& stock, const Product& product) {
    Random random(stockSeed, quint64(product.id));
    const auto pieces = [&](qint64 most) {
        return product.service ? Hundredths{0} : Hundredths{random.below(most + 1) * 100};
    };
    stock << product.id << product.id << "0001" << pieces(120) << pieces(20) << pieces(30) << pieces(6) << pieces(4)
          << pieces(2) << pieces(25) << pieces(5) << pieces(3);
    stock << product.price << Hundredths{product.price.value * 95 / 100} << Hundredths{product.price.value * 90 / 100};
    if (product.service)
        stock << nullptr << nullptr << nullptr << nullptr << nullptr << nullptr;
    else
        stock << "MATRIZ" << (random.chance(70) ? "TERREO" : "MEZANINO") << QByteArray(1, char('A' + random.below(5)))
              << QByteArray::number(random.between(1, 12)) << QByteArray::number(random.between(1, 20))
              << QByteArray::number(random.between(1, 6));
    stock.send();
}

void save(const QString& path, const QByteArray& bitmap) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bitmap) != bitmap.size())
        throw RuntimeError(errorNumber::PathRefused, u"Não foi possível gravar %1: %2"_s.arg(path, file.errorString()));
}

} // namespace

std::vector<Product> LoadProducts(Loader& loader) {
    const QHash<QString, int> types = keysOf("TIPO_PROD"), collections = keysOf("cole");
    RowLoader products(loader, *FindTable(u"prod"_s));
    RowLoader stock(loader, *FindTable(u"prod_empr"_s));
    std::vector<Product> all;
    for (const QStringList& row : ReadReference(u"produtos"_s).rows) {
        const Product product{int(all.size()) + 1, hundredths(row[Price]), row[Code].startsWith(u"SV")};
        products << product.id << row[Code] << row[Description] << row[Reference] << product.id % 4 + 1
                 << types.value(row[Type]);
        if (const int collection = collections.value(row[Collection]))
            products << collection;
        else
            products << nullptr;
        products << nullptr << nullptr << nullptr << (product.id % outOfSale == 0 ? QDate(2024, 6, 28) : QDate());
        products.send();
        writeStock(stock, product);
        all.push_back(product);
    }
    return all;
}

void DrawProducts(const Layout& layout) {
    const std::vector<QStringList> rows = ReadReference(u"produtos"_s).rows;
    const auto draw = [&](int number, const QString& suffix, int look) {
        const QString name = rows[size_t(number)][Code] + suffix + PictureSuffix();
        save(layout.images() + name, ProductBitmap(look, smallWidth));
        save(layout.largeImages() + name, ProductBitmap(look, largeWidth));
    };
    for (int number = 0; number < picturedProducts; ++number)
        draw(number, {}, number);
    for (int view = 0; view < views; ++view)
        draw(0, u"_%1"_s.arg(view + 2), picturedProducts + view);
}

} // namespace vorta::kit

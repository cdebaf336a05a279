#include "kit/Demonstration.h"

#include "base/Literals.h"
#include "kit/People.h"
#include "kit/Together.h"
#include "kit/Trade.h"

#include <array>

namespace vorta::kit {

namespace {

/// The demonstration is always the same, so that what is written about it stays true.
constexpr quint64 demonstrationSeed = 2015;
/// Persons in one transaction.
constexpr qint64 personsToCommit = 20'000;

/// Company switches that change nothing while they are off: the demonstration has them on.
constexpr std::array switchesOn{"PESS_CNPJ_ALFANUMERICO", "PESS_RASCUNHO"};

void writeSwitches(Loader& loader, Keys& keys) {
    const Table& table = *FindTable(u"EMPR_CNFG"_s);
    RowLoader rows(loader, table);
    for (const char* name : switchesOn) {
        rows << keys.next(table) << name << "S";
        rows.send();
    }
}

/// Writes the persons of a load, as far as the loader's part goes; a transaction ends here and there.
void writePeople(Loader& loader, Keys& keys, const std::vector<Product>& products, const Contents& contents,
                 const Progress& progress) {
    People people(loader, keys, products, massLiveliness, contents.seed);
    for (qint64 done = 0; done < contents.people; done += personsToCommit) {
        const Progress whole = [&](const QString& what, qint64 part, qint64) {
            if (progress)
                progress(what, done + part, contents.people);
        };
        people.write(done, std::min(personsToCommit, contents.people - done), whole);
        loader.commit();
    }
}

/// The engine is the slow side and works for each connection apart: one thread writes the persons, the other all that
/// hangs on them. Both invent the same persons, which costs little and keeps every key in its place.
void writePeopleTogether(const QString& base, const std::vector<Product>& products, const Contents& contents,
                         const Progress& progress) {
    const Table* const persons = FindTable(u"PESS"_s);
    Loader loader(base, [persons](const Table& table) { return &table == persons; });
    Loader restLoader(base, [persons](const Table& table) { return &table != persons; });
    Keys keys(loader), restKeys(restLoader); // both before the first row
    Together together;
    together.run([&] { writePeople(loader, keys, products, contents, together.told(progress)); },
                 [&] { writePeople(restLoader, restKeys, products, contents, together.told()); });
    keys.setGenerators();
    loader.commit();
}

} // namespace

void LoadDemonstration(const Layout& layout, const QString& base, const Contents& contents, const Progress& progress) {
    if (!contents.demo && contents.people == 0)
        return;
    std::vector<Product> products;
    {
        Loader loader(base);
        Keys keys(loader);
        products = LoadProducts(loader);
        if (contents.demo) {
            writeSwitches(loader, keys);
            People(loader, keys, products, liveliness, demonstrationSeed, true).write(0, demonstrationPeople, progress);
            DrawProducts(layout);
        }
        keys.setGenerators();
        loader.commit();
    }
    if (contents.people > 0)
        writePeopleTogether(base, products, contents, progress);
}

} // namespace vorta::kit

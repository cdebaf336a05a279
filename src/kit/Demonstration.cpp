#include "kit/Demonstration.h"

#include "kit/People.h"
#include "kit/Trade.h"

namespace vorta::kit {

namespace {

/// The demonstration is always the same, so that what is written about it stays true.
constexpr quint64 demonstrationSeed = 2015;
/// A transaction ends here and there, so that a million persons do not weigh on one.
constexpr qint64 personsToCommit = 20'000;

} // namespace

void LoadDemonstration(const Layout& layout, const QString& base, const Contents& contents, const Progress& progress) {
    if (!contents.demo && contents.people == 0)
        return;
    Loader loader(base);
    Keys keys(loader);
    const std::vector<Product> products = LoadProducts(loader);
    if (contents.demo) {
        People(loader, keys, products, liveliness, demonstrationSeed).write(0, demonstrationPeople, progress);
        DrawProducts(layout);
    }
    loader.commit();
    if (contents.people > 0) {
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
    keys.setGenerators();
    loader.commit();
}

} // namespace vorta::kit

#pragma once

#include "kit/Create.h"
#include "kit/Histories.h"
#include "kit/Vocabulary.h"

namespace vorta::kit {

/// Invents persons and writes them with their addresses, contacts, branches, roles and histories. The same seed makes
/// the same persons.
class People {
  public:
    /// `lettered` persons have some companies among them whose document has letters.
    People(Loader& loader, Keys& keys, const std::vector<Product>& products, const Density& density, quint64 seed,
           bool lettered = false);

    /// Writes `count` persons, the `first`-th (from 0) of the seed and those behind it.
    void write(qint64 first, qint64 count, const Progress& progress);

  private:
    struct Person;
    struct Roles;

    Person invent(Random& random, qint64 number);
    void nameNatural(Random& random, Person& person);
    void nameLegal(Random& random, Person& person);
    Roles rolesOf(Random& random, const Person& person, qint64 number);
    void writePerson(Random& random, const Person& person, const Roles& roles);
    void writeAddress(Random& random, const Person& person, bool given);
    void writeReach(Random& random, const Person& person);
    void writeTerms(Random& random, const Person& person, const Roles& roles);
    void writeLists(Random& random, const Person& person);
    void writeRoles(Random& random, const Person& person, const Roles& roles);
    void writeTradeRoles(Random& random, const Person& person, const Roles& roles);
    void writeStaffRoles(Random& random, const Person& person, const Roles& roles);
    QByteArray fullName(Random& random, const std::vector<QByteArray>& firstNames) {
        const QByteArray& first = random.of(firstNames);
        return first + ' ' + random.of(words_.surnames);
    }
    QByteArray phone(Random& random, const Person& person, bool mobile);

    Keys& keys_;
    quint64 seed_;
    bool lettered_;
    Vocabulary words_;
    Histories histories_;
    std::vector<qint64> sellers_, carriers_; ///< the first ones, for the customers' terms
    RowLoader persons_, contacts_, branches_, customers_, suppliers_, carriersRows_, drivers_, sellersRows_,
        architects_, decorators_;
};

} // namespace vorta::kit

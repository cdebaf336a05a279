#include "kit/People.h"

#include "base/Literals.h"
#include "kit/Documents.h"

namespace vorta::kit {

namespace {

constexpr qint64 progressStep = 2000;
constexpr size_t mostSellers = 20;
constexpr size_t mostCarriers = 20;

const Table& tableOf(const char* name) {
    return *FindTable(QString::fromLatin1(name));
}

const QDate firstInclusion(2016, 1, 4);
constexpr int daysOfInclusion = 3700;
constexpr qint64 companiesToLetters = 9;
const QDate deactivation(2026, 5, 29);

/// Who put a role in and, for a deactivated person, who took it out the day before.
void close(RowLoader& row, QDate included, bool deactivated) {
    row << included << 1 << (deactivated ? deactivation.addDays(-1) : QDate())
        << (deactivated ? std::optional<qint64>(1) : std::nullopt);
    row.send();
}

/// One of the keys, or none where there are none.
std::optional<qint64> anyOf(Random& random, const std::vector<qint64>& keys) {
    return keys.empty() ? std::nullopt : std::optional<qint64>(random.of(keys));
}

QByteArray twoDigits(qint64 number) {
    return QByteArray::number(number).rightJustified(2, '0');
}

QByteArray dayAndMonth(Random& random) {
    const QByteArray day = twoDigits(random.between(1, 28));
    return day + '/' + twoDigits(random.between(1, 12));
}

/// A name as it stands in an address of electronic mail.
QByteArray mailWord(QByteArray text) {
    text.replace(' ', "");
    return text;
}

} // namespace

struct People::Person {
    qint64 id = 0;
    bool legal = false;
    bool woman = false;
    QByteArray name, known, document, mailName, mailHost;
    const Town* town = nullptr;
    const Branch* branch = nullptr;
    QByteArray street, district, cep;
    qint64 houseNumber = 0;
    QDate included;
    bool deactivated = false;
};

/// The key of each role's row; 0 for a role that the person has not.
struct People::Roles {
    qint64 customer = 0, supplier = 0, carrier = 0, driver = 0, seller = 0, architect = 0, decorator = 0;
};

People::People(Loader& loader, Keys& keys, const std::vector<Product>& products, const Density& density, quint64 seed,
               bool lettered)
    : keys_(keys), seed_(seed), lettered_(lettered), words_(ReadVocabulary()),
      histories_(loader, keys, products, density), persons_(loader, tableOf("PESS")),
      contacts_(loader, tableOf("PESS_CONT")), branches_(loader, tableOf("PESS_ATIV")),
      customers_(loader, tableOf("CLIE")), suppliers_(loader, tableOf("FORN")), carriersRows_(loader, tableOf("TRPT")),
      drivers_(loader, tableOf("MOTO")), sellersRows_(loader, tableOf("VEND")), architects_(loader, tableOf("ARQT")),
      decorators_(loader, tableOf("DECO")) {}

void People::write(qint64 first, qint64 count, const Progress& progress) {
    for (qint64 number = first; number < first + count; ++number) {
        Random random(seed_, quint64(number));
        const Person person = invent(random, number);
        const Roles roles = rolesOf(random, person, number);
        writePerson(random, person, roles);
        writeLists(random, person);
        writeRoles(random, person, roles);
        const qint64 done = number - first + 1;
        if (progress && (done % progressStep == 0 || done == count))
            progress(u"pessoas"_s, done, count);
    }
}

People::Person People::invent(Random& random, qint64 number) {
    static const Table& table = tableOf("PESS");
    Person person;
    person.id = keys_.next(table);
    person.legal = random.chance(45);
    person.town = &random.of(words_.towns);
    // Documents follow the key, so that two loads into one base never meet.
    const quint64 running = quint64(person.id) + seed_ % 1000 * 1'000'003;
    if (person.legal) {
        nameLegal(random, person);
        const bool letters = lettered_ && number % companiesToLetters == 0;
        person.document = letters ? LetteredCnpj(running) : Cnpj(running);
    } else {
        nameNatural(random, person);
        person.document = Cpf(running);
    }
    person.street = random.of(words_.streets);
    person.district = random.of(words_.districts);
    person.houseNumber = random.between(1, 2999);
    const qint64 sector = random.between(person.town->firstCep, person.town->lastCep);
    person.cep = QByteArray::number(sector).rightJustified(5, '0') + '-' +
                 QByteArray::number(random.below(90) * 10).rightJustified(3, '0');
    person.included = firstInclusion.addDays(random.below(daysOfInclusion));
    person.deactivated = number >= 40 && random.chance(4);
    return person;
}

void People::nameNatural(Random& random, Person& person) {
    person.woman = random.chance(50);
    const QByteArray& first = random.of(person.woman ? words_.women : words_.men);
    const QByteArray& middle = random.of(words_.surnames);
    const QByteArray& last = random.of(words_.surnames);
    person.name = first + ' ' + middle + (random.chance(30) ? " DE " : " ") + last;
    person.known = first + ' ' + last;
    person.mailName = first + '.' + mailWord(last);
    person.mailHost = "EXEMPLO.COM.BR";
}

void People::nameLegal(Random& random, Person& person) {
    person.branch = &random.of(words_.branches);
    const QByteArray& owner = random.of(words_.surnames);
    const QByteArray& partner = random.of(words_.surnames);
    const QByteArray house = random.chance(40) ? owner + " E " + partner : owner;
    person.name = person.branch->name + ' ' + house + (random.chance(75) ? " LTDA" : " S.A.");
    person.known = person.branch->name + ' ' + owner;
    person.mailName = "CONTATO";
    person.mailHost = mailWord(owner) + ".EXEMPLO.COM.BR";
}

/// The first persons of a base are its staff and carriers, whom the customers' terms point at.
People::Roles People::rolesOf(Random& random, const Person& person, qint64 number) {
    const auto key = [&](const char* table, bool given) { return given ? keys_.next(tableOf(table)) : 0; };
    const bool founder = number < 12;
    Roles roles;
    roles.seller = key("VEND", !person.legal && (founder || random.chance(1)));
    roles.carrier = key("TRPT", person.legal && (founder || random.chance(3)));
    roles.customer = key("CLIE", !founder && random.chance(62));
    roles.supplier = key("FORN", !founder && person.legal && random.chance(28));
    roles.driver = key("MOTO", !person.legal && random.chance(3));
    roles.architect = key("ARQT", !founder && !person.legal && random.chance(3));
    roles.decorator = key("DECO", !founder && !person.legal && random.chance(2));
    if (roles.seller && sellers_.size() < mostSellers)
        sellers_.push_back(roles.seller);
    if (roles.carrier && carriers_.size() < mostCarriers)
        carriers_.push_back(roles.carrier);
    return roles;
}

void People::writePerson(Random& random, const Person& person, const Roles& roles) {
    persons_ << person.id << (random.chance(60) ? "C" + QByteArray::number(10000 + person.id) : QByteArray())
             << (person.legal ? "J" : "F") << person.document << person.name << person.known;
    if (person.legal)
        persons_ << StateRegistration(person.town->state, quint64(person.id));
    else
        persons_ << QByteArray::number(random.between(10'000'000, 59'999'999));
    persons_ << nullptr << nullptr << nullptr << nullptr;
    writeAddress(random, person, true);
    writeAddress(random, person, random.chance(20));
    writeAddress(random, person, random.chance(10));
    writeReach(random, person);
    writeTerms(random, person, roles);
    persons_.send();
}

void People::writeAddress(Random& random, const Person& person, bool given) {
    if (!given) {
        // As the screen leaves an address that nobody filled.
        persons_ << nullptr << nullptr << nullptr << nullptr << nullptr << nullptr << "_____-___"
                 << "BRASIL" << nullptr;
        return;
    }
    persons_ << person.street << QByteArray::number(person.houseNumber);
    const QByteArray part = random.chance(50) ? "SALA " : "APTO ";
    const QByteArray door = part + QByteArray::number(random.between(1, 180));
    persons_ << (random.chance(25) ? door : QByteArray());
    persons_ << person.district << person.town->name << person.town->state << person.cep << "BRASIL"
             << person.town->ibgeCode;
}

QByteArray People::phone(Random& random, const Person& person, bool mobile) {
    const qint64 exchange = mobile ? random.between(96000, 99999) : random.between(2000, 5999);
    return '(' + person.town->areaCode + ") " + QByteArray::number(exchange) + '-' +
           QByteArray::number(random.below(10000)).rightJustified(4, '0');
}

void People::writeReach(Random& random, const Person& person) {
    persons_ << phone(random, person, !person.legal);
    persons_ << (random.chance(40) ? phone(random, person, false) : QByteArray());
    persons_ << nullptr << phone(random, person, true);
    persons_ << (random.chance(80) ? person.mailName + '@' + person.mailHost : QByteArray());
    persons_ << (person.legal && random.chance(50) ? "WWW." + person.mailHost : QByteArray());
    persons_ << (person.legal ? fullName(random, words_.women) : QByteArray());
    persons_ << nullptr << nullptr << nullptr;
}

void People::writeTerms(Random& random, const Person& person, const Roles& roles) {
    persons_ << (person.legal ? QByteArray("__/__") : dayAndMonth(random));
    persons_ << (roles.customer && random.chance(30) ? person.included.addDays(random.below(60)) : QDate());
    persons_ << (person.legal ? QByteArray() : QByteArray(person.woman ? "F" : "M"));
    const std::optional<qint64> seller = roles.customer ? anyOf(random, sellers_) : std::nullopt;
    persons_ << (roles.seller ? std::optional<qint64>(roles.seller) : seller);
    persons_ << (roles.customer && random.chance(50) ? anyOf(random, carriers_) : std::nullopt);
    persons_ << (roles.customer ? random.between(1, 3) : 0);
    persons_ << (roles.customer ? "TABELA " + QByteArray(1, char('A' + random.below(3))) : QByteArray());
    persons_ << (random.chance(10) ? QByteArray("PREFERE CONTATO POR TELEFONE") : QByteArray());
    persons_ << nullptr << nullptr << "0001";
    persons_ << roles.customer << roles.supplier << roles.carrier << roles.driver << roles.architect << roles.decorator;
    persons_ << person.included << "1";
    if (person.deactivated)
        persons_ << deactivation << "1";
    else
        persons_ << nullptr << nullptr;
}

void People::writeLists(Random& random, const Person& person) {
    static const Table& contacts = tableOf("PESS_CONT");
    static const Table& branches = tableOf("PESS_ATIV");
    if (!person.legal)
        return;
    for (qint64 left = random.below(4); left > 0; --left) {
        const QByteArray& first = random.of(random.chance(50) ? words_.women : words_.men);
        const QByteArray& last = random.of(words_.surnames);
        contacts_ << keys_.next(contacts) << person.id << random.of(words_.positions) << first + ' ' + last
                  << phone(random, person, random.chance(50)) << first + '@' + person.mailHost << dayAndMonth(random)
                  << person.included << 1;
        contacts_.send();
    }
    branches_ << keys_.next(branches) << person.id << person.branch->activity << person.included << 1;
    branches_.send();
}

void People::writeRoles(Random& random, const Person& person, const Roles& roles) {
    writeTradeRoles(random, person, roles);
    writeStaffRoles(random, person, roles);
    if (roles.customer)
        histories_.customer(random, roles.customer);
    if (roles.supplier)
        histories_.supplier(random, roles.supplier);
}

void People::writeTradeRoles(Random& random, const Person& person, const Roles& roles) {
    if (roles.customer) {
        customers_ << roles.customer << person.id << (person.legal && random.chance(20) ? "S" : "N")
                   << Hundredths{random.below(200) * 50'000} << random.between(1, 3);
        customers_ << anyOf(random, carriers_) << person.included << anyOf(random, sellers_) << Hundredths{0} << nullptr
                   << Hundredths{random.below(10) * 1'000} << "0001";
        close(customers_, person.included, person.deactivated);
    }
    if (roles.supplier) {
        suppliers_ << roles.supplier << person.id << person.included << Hundredths{random.below(100) * 100'000}
                   << Hundredths{random.below(16) * 50};
        suppliers_ << "0001";
        close(suppliers_, person.included, person.deactivated);
    }
    if (roles.carrier) {
        carriersRows_ << roles.carrier << person.id << person.included;
        carriersRows_ << "0001";
        close(carriersRows_, person.included, person.deactivated);
    }
}

void People::writeStaffRoles(Random& random, const Person& person, const Roles& roles) {
    if (roles.driver) {
        drivers_ << roles.driver << person.id << person.included
                 << QByteArray::number(random.between(10'000'000'000, 99'999'999'999))
                 << QByteArray::number(random.between(1'000'000, 9'999'999)) << person.town->state
                 << fullName(random, words_.men) << fullName(random, words_.women) << nullptr;
        close(drivers_, person.included, person.deactivated);
    }
    if (roles.seller) {
        sellersRows_ << roles.seller << person.id << person.included << Hundredths{random.between(18, 40) * 10'000}
                     << Hundredths{random.below(5) * 50} << Hundredths{random.between(2, 10) * 50} << "0001";
        close(sellersRows_, person.included, person.deactivated);
    }
    const auto banked = [&](RowLoader& row, qint64 id, const char* register_) {
        row << id << person.id << person.included << Hundredths{0} << Hundredths{0}
            << Hundredths{random.between(4, 20) * 50} << register_ + QByteArray::number(random.between(10'000, 99'999))
            << random.between(1, 3) << QByteArray::number(random.between(100, 9999))
            << QByteArray::number(random.between(10'000, 99'999)) + "-" + QByteArray::number(random.below(10))
            << "0001";
        close(row, person.included, person.deactivated);
    };
    if (roles.architect)
        banked(architects_, roles.architect, "A");
    if (roles.decorator)
        banked(decorators_, roles.decorator, "");
}

} // namespace vorta::kit

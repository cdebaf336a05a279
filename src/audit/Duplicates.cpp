#include "audit/Duplicates.h"

#include "audit/Documents.h"
#include "audit/Folding.h"
#include "audit/Pages.h"
#include "base/Literals.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vorta::audit {

namespace {

using Keys = std::vector<QString>;

Keys only(const QString& key) {
    return key.isEmpty() ? Keys() : Keys{key};
}

Keys documentOf(const PersonTraits& person) {
    const QString bare = Bare(person.document);
    return only(bare.count(u'0') == bare.size() ? QString() : bare);
}

Keys nameAndTownOf(const PersonTraits& person) {
    const QString name = Folded(person.name);
    return only(name.isEmpty() ? QString() : name + u'|' + Folded(person.town) + u'|' + Folded(person.state));
}

Keys phonesOf(const PersonTraits& person) {
    Keys keys;
    for (const QString& phone : person.phones)
        if (const QString digits = Phone(phone); !digits.isEmpty() && std::ranges::find(keys, digits) == keys.end())
            keys.push_back(digits);
    return keys;
}

Keys mailOf(const PersonTraits& person) {
    return only(person.mail.trimmed().toLower());
}

/// What makes two persons the same.
struct Trait {
    Check check;
    Keys (*keys)(const PersonTraits& person);
    const char* field;
};

constexpr std::array traits{
    Trait{Check::SameDocument, documentOf, "CPF0_CNPJ"},
    Trait{Check::SameNameAndTown, nameAndTownOf, "NOME_PESS"},
    Trait{Check::SamePhone, phonesOf, "TELE/FAX0"},
    Trait{Check::SameMail, mailOf, "EMAI_PESS"},
};

/// Groups are read again so many persons at a time; always as many, so that the engine knows the statement.
constexpr qsizetype personsAtOnce = 200;

std::map<qint64, PersonTraits> readPersons(data::Connection& connection, std::vector<qint64> ids) {
    ids.resize(personsAtOnce, ids.front());
    data::Statement query("SELECT IDPESS, NOME_PESS, CPF0_CNPJ, CIDA_COML_PESS, UF00_COML_PESS, EMAI_PESS, "
                          "TELE_0001_PESS, TELE_0002_PESS, FAX0_0001_PESS, FAX0_0002_PESS, DATA_DESA FROM PESS "
                          "WHERE IDPESS IN (");
    data::Piece mark = "";
    for (const qint64 id : ids) {
        query << mark << id;
        mark = ", ";
    }
    query << ")";
    data::Recordset rows;
    rows.Open(query, connection);
    std::map<qint64, PersonTraits> persons;
    for (; !rows.Eof(); rows.MoveNext()) {
        const auto text = [&](int column) { return rows.Fields(column).textOr({}); };
        const qint64 id = NumberOf(rows.Fields(0));
        persons[id] = {id,
                       text(1),
                       text(2),
                       text(3),
                       text(4),
                       text(5),
                       {text(6), text(7), text(8), text(9)},
                       !rows.Fields(10).isNull()};
    }
    return persons;
}

} // namespace

static_assert(traits.size() == 4);

void Duplicates::add(const PersonTraits& person) {
    for (std::size_t trait = 0; trait < traits.size(); ++trait)
        for (const QString& key : traits[trait].keys(person))
            keys_[trait].add({HashOf(key), person.id});
}

void Duplicates::tell(data::Connection& connection, Findings& findings,
                      const std::function<void(qint64, qint64)>& progress) {
    for (std::size_t trait = 0; trait < traits.size(); ++trait) {
        qint64 done = 0;
        for (std::size_t part = 0; part < Spill::parts; ++part) {
            const std::vector<KeyOfPerson> keys = keys_[trait].take(part);
            tellPart(trait, keys, connection, findings,
                     [&](qint64 ofPart) { progress(done + ofPart, keys_[trait].size()); });
            done += static_cast<qint64>(keys.size());
        }
    }
}

void Duplicates::tellPart(std::size_t trait, const std::vector<KeyOfPerson>& keys, data::Connection& connection,
                          Findings& findings, const std::function<void(qint64)>& progress) {
    std::vector<Group> pending;
    qsizetype persons = 0;
    const KeyOfPerson* const last = keys.data() + keys.size();
    for (const KeyOfPerson* at = keys.data(); at != last;) {
        const KeyOfPerson* const end =
            std::find_if(at, last, [at](const KeyOfPerson& other) { return other.hash != at->hash; });
        const qsizetype size = std::min<qsizetype>(end - at, mostListed);
        if (size > 1 && persons + size > personsAtOnce) {
            tellGroups(trait, std::exchange(pending, {}), connection, findings);
            persons = 0;
            progress(at - keys.data());
        }
        if (size > 1) {
            pending.push_back({at, end});
            persons += size;
        }
        at = end;
    }
    tellGroups(trait, pending, connection, findings);
}

void Duplicates::tellGroups(std::size_t trait, const std::vector<Group>& groups, data::Connection& connection,
                            Findings& findings) {
    if (groups.empty())
        return;
    const auto listed = [](const Group& group) { return std::min<qsizetype>(group.end - group.begin, mostListed); };
    std::vector<qint64> ids;
    for (const Group& group : groups)
        std::transform(group.begin, group.begin + listed(group), std::back_inserter(ids),
                       [](const KeyOfPerson& entry) { return entry.person; });
    const std::map<qint64, PersonTraits> persons = readPersons(connection, ids);
    for (const Group& group : groups) {
        // By the very text: other texts may have the same hash, and a person may have changed since.
        std::map<QString, std::vector<const PersonTraits*>> same;
        for (const KeyOfPerson* entry = group.begin; entry != group.begin + listed(group); ++entry)
            if (const auto person = persons.find(entry->person); person != persons.end())
                for (const QString& key : traits[trait].keys(person->second))
                    if (HashOf(key) == group.begin->hash)
                        same[key].push_back(&person->second);
        for (const auto& [key, members] : same) {
            if (members.size() < 2)
                continue;
            ++groups_;
            const qint64 all = static_cast<qint64>(members.size()) + (group.end - group.begin - listed(group));
            for (const PersonTraits* person : members)
                findings.found({.check = traits[trait].check,
                                .person = person->id,
                                .name = person->name,
                                .document = person->document,
                                .deactivated = person->deactivated,
                                .field = QString::fromLatin1(traits[trait].field),
                                .value = key,
                                .words = u"%1 pessoas"_s.arg(all),
                                .group = groups_});
            findings.further(traits[trait].check, all - static_cast<qint64>(members.size()));
        }
    }
}

} // namespace vorta::audit

#pragma once

#include "audit/Checks.h"
#include "data/Connection.h"

#include <array>
#include <functional>
#include <vector>

namespace vorta::audit {

/// A person as far as it may be the same as another one.
struct PersonTraits {
    qint64 id = 0;
    QString name = {}, document = {}, town = {}, state = {}, mail = {};
    std::array<QString, 4> phones = {};
    bool deactivated = false;
};

/// Finds persons who are entered twice. It keeps sixteen bytes for each trait and no text: who shares a trait is read
/// once more at the end, so that equal hashes of different texts are told apart.
class Duplicates {
  public:
    /// `persons`: about how many are to come.
    explicit Duplicates(qint64 persons);

    void add(const PersonTraits& person);
    /// Reads those who share a trait again and tells them, group by group; of a large group the first twenty.
    void tell(data::Connection& connection, Findings& findings, const std::function<void(qint64, qint64)>& progress);

    static constexpr qsizetype mostListed = 20;

  private:
    struct Entry {
        quint64 hash;
        qint64 person;
        auto operator<=>(const Entry&) const = default;
    };
    struct Group {
        const Entry* begin;
        const Entry* end;
    };
    using Entries = std::vector<Entry>;

    void tellGroups(std::size_t trait, const std::vector<Group>& groups, data::Connection& connection,
                    Findings& findings);

    std::array<Entries, 4> entries_; ///< by trait
    qint64 groups_ = 0;
};

} // namespace vorta::audit

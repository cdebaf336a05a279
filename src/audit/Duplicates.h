#pragma once

#include "audit/Checks.h"
#include "audit/Spill.h"
#include "data/Connection.h"

#include <array>
#include <functional>

namespace vorta::audit {

/// A person as far as it may be the same as another one.
struct PersonTraits {
    qint64 id = 0;
    QString name = {}, document = {}, town = {}, state = {}, mail = {};
    std::array<QString, 4> phones = {};
    bool deactivated = false;
};

/// Finds persons who are entered twice. Of each trait it keeps a hash, outside memory, and no text: who shares a trait
/// is read once more at the end, so that equal hashes of different texts are told apart.
class Duplicates {
  public:
    /// Raises 75 when the folder of temporary files cannot take what must be kept.
    void add(const PersonTraits& person);
    /// Reads those who share a trait again and tells them, group by group; of a large group the first twenty.
    void tell(data::Connection& connection, Findings& findings, const std::function<void(qint64, qint64)>& progress);

    static constexpr qsizetype mostListed = 20;

  private:
    struct Group {
        const KeyOfPerson* begin;
        const KeyOfPerson* end;
    };

    void tellGroups(std::size_t trait, const std::vector<Group>& groups, data::Connection& connection,
                    Findings& findings);

    void tellPart(std::size_t trait, const std::vector<KeyOfPerson>& keys, data::Connection& connection,
                  Findings& findings, const std::function<void(qint64)>& progress);

    std::array<Spill, 4> keys_; ///< by trait
    qint64 groups_ = 0;
};

} // namespace vorta::audit

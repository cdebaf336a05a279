#pragma once

#include "audit/Checks.h"
#include "data/Recordset.h"
#include "shared/Papeis.h"

#include <array>
#include <functional>
#include <vector>

namespace vorta::audit {

/// What hangs on the persons: roles, contacts and branches, and the columns of a person that refer to roles. Keeps keys
/// and no texts.
class Links {
  public:
    /// Reads the roles of the register.
    explicit Links(data::Connection& connection);

    /// Compares a person's reference to a role, in the order of `papeis`, with the role's table. Tells by a call what
    /// is wrong: the column, its value, the words. Persons come in the order of their keys.
    using Wrong = std::function<void(const QString& column, const QString& value, const QString& words)>;
    void addPerson(qint64 person, const std::array<qint64, papeis.size()>& references, const Wrong& wrong);

    /// Behind the last person: rows without their person or role, and the e-mails of contacts.
    void tell(data::Connection& connection, Findings& findings);

  private:
    struct RoleRow {
        qint64 id;
        qint64 person;
        bool active;
        bool referred;
    };
    using RoleRows = std::vector<RoleRow>;

    static RoleRow* find(RoleRows& rows, qint64 id);
    bool knowsPerson(qint64 id) const;
    void tellRoles(const Papel& role, const RoleRows& rows, Findings& findings) const;
    void tellContacts(data::Connection& connection, Findings& findings);

    std::array<RoleRows, papeis.size()> roles_; ///< each by its key
    std::vector<qint64> persons_;
};

} // namespace vorta::audit

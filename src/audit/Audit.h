#pragma once

#include "audit/Checks.h"
#include "data/Connection.h"

#include <functional>

namespace vorta::audit {

/// How far a long work is: what, done, of how many (0 when nobody knows).
using Progress = std::function<void(const QString& what, qint64 done, qint64 all)>;

struct Extent {
    qint64 persons = 0;
    qint64 deactivated = 0;
};

/// Looks through a register, deactivated persons included, and tells everything that is wrong in it. Reads only, page
/// by page: what it keeps are keys and hashes. `letters`: the company takes document numbers with letters.
Extent AuditRegister(data::Connection& connection, bool letters, Findings& findings, const Progress& progress = {});

} // namespace vorta::audit

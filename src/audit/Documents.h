#pragma once

#include "audit/Checks.h"

#include <optional>

namespace vorta::audit {

/// What an audit says of a document.
struct Judgement {
    std::optional<Check> check; ///< none: nothing is wrong
    QString words;
    QString bare; ///< the document without its marks; empty for a missing one
};

/// Judges a document by the kind of person, "F" or any other for a company. Harder than the screens: the length counts,
/// and a number of one repeated digit is wrong. `letters`: the company takes numbers with letters.
Judgement JudgeDocument(const QString& kind, const QString& document, bool letters);

} // namespace vorta::audit

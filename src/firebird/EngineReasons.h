#pragma once

#include <QString>

#include <cstdint>

/// The engine's failures in the program's words, for those that a user or an administrator can do something about.
namespace vorta::firebird {

/// How many seconds a row that somebody else is writing is waited for.
inline constexpr unsigned char lockSeconds = 4;

/// What the engine's error vector means to somebody who works with the register; empty when only the engine's own text
/// says it.
QString ReasonOf(const intptr_t* errors);
/// The same for a base that could not be opened; never empty.
QString OpeningReasonOf(const intptr_t* errors);

/// The system's own failure of that number, such as ENOSPC, on a file of a base; empty when there are no words for it.
QString SystemReason(int number);

/// True when that code stands anywhere in the vector.
bool Tells(const intptr_t* errors, intptr_t code);

} // namespace vorta::firebird

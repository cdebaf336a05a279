#pragma once

#include <limits>
#include <span>
#include <vector>

/// What the Brazilian states publish about the numbers of their taxpayers, as data.
namespace vorta {

struct CheckDigit {
    int place;           ///< where the digit stands, 1-based
    const char* weights; ///< one sign for each place from the first on: 0 place not read, A is 10, B is 11
    const char* digits;  ///< the right digit for each remainder; its length is the modulus
    int start = 0;       ///< what the weighted sum starts from
    bool sumsDigitsOfProducts = false; ///< 12 counts as 1 + 2
};

/// One form of a registration. A state with several forms has several rows, and a number is right when one row takes
/// it.
struct InscricaoEstadualRule {
    const char* uf;
    const char* form; ///< regular expression of the whole bare number
    std::vector<CheckDigit> checks;
    int from = 0; ///< range of the first eight digits in which the row holds
    int to = std::numeric_limits<int>::max();
    int filledTo = 0; ///< a shorter number gets its dropped leading zeros back, up to this length
};

std::span<const InscricaoEstadualRule> InscricaoEstadualRules();

} // namespace vorta

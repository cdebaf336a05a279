#include "shared/inscricao/InscricaoEstadualRules.h"

namespace vorta {

namespace {

// Digits by remainder. Most states take eleven less the remainder, and differ in what becomes of the results 10 and 11.
constexpr const char* modulus11 = "00987654321";        // both give 0
constexpr const char* modulus11Ten1 = "01987654321";    // 10 gives 1, 11 gives 0
constexpr const char* modulus11Eleven1 = "10987654321"; // 10 gives 0, 11 gives 1
constexpr const char* modulus11Plain = "01234567890";   // the remainder itself
constexpr const char* modulus10 = "0987654321";
constexpr const char* modulus9Plain = "012345678";

constexpr const char* from9 = "98765432";

/// The year is that of the rule: 1997 for the routes that the states publish under the agreement ICMS 78/97 of that
/// year, later for forms that a state began to issue afterwards; "later" where the state tells no year.
const std::vector<InscricaoEstadualRule> rules = {
    // 1997
    {"AC", "01\\d{11}", {{12, "43298765432", modulus11}, {13, "543298765432", modulus11}}},
    // 1997; the third digit told the kind of company, which the state no longer keeps to
    {"AL", "24\\d{7}", {{9, from9, modulus11}}},
    // 1997
    {"AM", "\\d{9}", {{9, from9, modulus11}}},
    // 1997; the early numbers carry a start value, the second block gives 1 for 11
    {"AP", "03\\d{7}", {{9, from9, modulus11, 5}}, 3000001, 3017000},
    {"AP", "03\\d{7}", {{9, from9, modulus11Eleven1, 9}}, 3017001, 3019022},
    {"AP", "03\\d{7}", {{9, from9, modulus11}}, 3019023},
    // 1997; the last digit is found first and counts in the one before it
    {"BA", "[0-58]\\d{7}", {{8, "765432", modulus10}, {7, "87654302", modulus10}}},
    {"BA", "[679]\\d{7}", {{8, "765432", modulus11}, {7, "87654302", modulus11}}},
    // later: nine digits, where the second one decides
    {"BA", "\\d[0-58]\\d{7}", {{9, "8765432", modulus10}, {8, "987654302", modulus10}}},
    {"BA", "\\d[679]\\d{7}", {{9, "8765432", modulus11}, {8, "987654302", modulus11}}},
    // 1997
    {"CE", "\\d{9}", {{9, from9, modulus11}}},
    // 1997 with 07; 08 since 2020, when 07 ran out
    {"DF", "0[78]\\d{11}", {{12, "43298765432", modulus11}, {13, "543298765432", modulus11}}},
    // 1997
    {"ES", "\\d{9}", {{9, from9, modulus11}}},
    // 1997 with 10, 11 and 15; 20 to 29 since 2023. One block gives 1 where the others give 0
    {"GO", "(10|11|15|2\\d)\\d{7}", {{9, from9, modulus11}}, 0, 10103104},
    {"GO", "10\\d{7}", {{9, from9, modulus11Ten1}}, 10103105, 10119997},
    {"GO", "(10|11|15|2\\d)\\d{7}", {{9, from9, modulus11}}, 10119998},
    // 1997; this one number was given out twice, with digit 0 and with digit 1
    {"GO", "110944021", {}},
    // 1997
    {"MA", "12\\d{7}", {{9, from9, modulus11}}},
    // 1997; the first digit is reckoned as if a zero followed the three digits of the municipality
    {"MG", "\\d{13}", {{12, "12112121212", modulus10, 0, true}, {13, "32BA98765432", modulus11}}},
    // 1997 with 28; 50 later
    {"MS", "(28|50)\\d{7}", {{9, from9, modulus11}}},
    // 1997; usually written without the leading zeros
    {"MT", "\\d{11}", {{11, "3298765432", modulus11}}, 0, std::numeric_limits<int>::max(), 11},
    // 1997 with 15; 75 since 2024, with 76 to 79 held for later
    {"PA", "(15|7[5-9])\\d{7}", {{9, from9, modulus11}}},
    // 1997
    {"PB", "\\d{9}", {{9, from9, modulus11}}},
    // 1997, the old form
    {"PE", "\\d{14}", {{14, "5432198765432", modulus11Eleven1}}},
    // later
    {"PE", "\\d{9}", {{8, "8765432", modulus11}, {9, "98765432", modulus11}}},
    // 1997
    {"PI", "\\d{9}", {{9, from9, modulus11}}},
    // 1997
    {"PR", "\\d{10}", {{9, "32765432", modulus11}, {10, "432765432", modulus11}}},
    // 1997
    {"RJ", "\\d{8}", {{8, "2765432", modulus11}}},
    // 1997 with nine digits; ten later
    {"RN", "20\\d{7}", {{9, from9, modulus11}}},
    {"RN", "20\\d{8}", {{10, "A98765432", modulus11}}},
    // 1997: municipality, five digits, check digit, and the municipality does not count
    {"RO", "\\d{9}", {{9, "00065432", modulus11Eleven1}}},
    // 2000
    {"RO", "\\d{14}", {{14, "6543298765432", modulus11Eleven1}}},
    // 1997
    {"RR", "24\\d{7}", {{9, "12345678", modulus9Plain}}},
    // 1997; the list of municipalities grows, so any is taken
    {"RS", "\\d{10}", {{10, "298765432", modulus11}}},
    // 1997
    {"SC", "\\d{9}", {{9, from9, modulus11}}},
    // 1997
    {"SE", "\\d{9}", {{9, from9, modulus11}}},
    // 1997: trade and industry
    {"SP", "\\d{12}", {{9, "1345678A", modulus11Plain}, {12, "32A98765432", modulus11Plain}}},
    // 1997: rural producers
    {"SP", "P\\d{12}", {{10, "01345678A", modulus11Plain}}},
    // 1997: the third and fourth digit tell the kind and do not count
    {"TO", "\\d{2}(01|02|03|99)\\d{7}", {{11, "9800765432", modulus11}}},
    // 2002: the kind is gone
    {"TO", "\\d{9}", {{9, from9, modulus11}}},
};

} // namespace

std::span<const InscricaoEstadualRule> InscricaoEstadualRules() {
    return rules;
}

} // namespace vorta

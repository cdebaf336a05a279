#include "kit/Documents.h"

#include <array>
#include <string_view>

namespace vorta::kit {

namespace {

/// Spreads a running number over all numbers of so many digits without meeting one twice: the factor has no divisor in
/// common with ten.
QByteArray spread(quint64 number, quint64 numbers, int digits) {
    const quint64 far = (number * 387420489u + 123456789u) % numbers;
    return QByteArray::number(far).rightJustified(digits, '0');
}

/// The check digit of modulus 11: eleven minus the remainder, ten and eleven counting as zero. A character, be it a
/// digit or a letter, is worth its code minus that of "0".
char checkDigit(const QByteArray& digits, std::string_view weights) {
    int sum = 0;
    for (size_t i = 0; i < weights.size(); ++i)
        sum += (digits[qsizetype(i)] - '0') * (weights[i] <= '9' ? weights[i] - '0' : weights[i] - 'A' + 10);
    const int digit = 11 - sum % 11;
    return static_cast<char>('0' + (digit > 9 ? 0 : digit));
}

/// A head office's number by the first eight characters of a company's.
QByteArray closedCnpj(const QByteArray& root) {
    QByteArray digits = root + "0001";
    digits += checkDigit(digits, "543298765432");
    digits += checkDigit(digits, "6543298765432");
    return digits.first(2) + '.' + digits.sliced(2, 3) + '.' + digits.sliced(5, 3) + '/' + digits.sliced(8, 4) + '-' +
           digits.last(2);
}

/// A registration of so many free digits behind its prefix, closed by one check digit for each row of weights.
struct Registration {
    const char* state;
    const char* prefix;
    int freeDigits;
    std::array<std::string_view, 2> weights;
};

constexpr std::array registrations{
    Registration{"CE", "06", 6, {"98765432", ""}},      Registration{"ES", "08", 6, {"98765432", ""}},
    Registration{"PE", "", 7, {"8765432", "98765432"}}, Registration{"PR", "", 8, {"32765432", "432765432"}},
    Registration{"RJ", "", 7, {"2765432", ""}},         Registration{"RS", "096", 6, {"298765432", ""}},
    Registration{"SC", "25", 6, {"98765432", ""}},
};

/// São Paulo closes with the last digit of the remainder, once in the ninth place and once in the twelfth.
QByteArray saoPaulo(quint64 number) {
    const auto closing = [](const QByteArray& digits, std::string_view weights) {
        int sum = 0;
        for (size_t i = 0; i < weights.size(); ++i)
            sum += (digits[qsizetype(i)] - '0') * (weights[i] <= '9' ? weights[i] - '0' : 10);
        return static_cast<char>('0' + sum % 11 % 10);
    };
    QByteArray digits = '1' + spread(number, 10'000'000, 7);
    digits += closing(digits, "1345678A");
    digits += "11";
    digits += closing(digits, "32A98765432");
    return digits;
}

} // namespace

QByteArray Cpf(quint64 number) {
    QByteArray digits = spread(number, 1'000'000'000, 9);
    digits += checkDigit(digits, "A98765432");
    digits += checkDigit(digits, "BA98765432");
    return digits.first(3) + '.' + digits.sliced(3, 3) + '.' + digits.sliced(6, 3) + '-' + digits.last(2);
}

QByteArray Cnpj(quint64 number) {
    return closedCnpj(spread(number, 100'000'000, 8));
}

QByteArray LetteredCnpj(quint64 number) {
    QByteArray root = spread(number, 100'000'000, 8);
    for (qsizetype at = 2; at < 5; ++at)
        root[at] = static_cast<char>(root[at] - '0' + 'A' + at);
    return closedCnpj(root);
}

QByteArray StateRegistration(const QByteArray& state, quint64 number) {
    if (state == "SP")
        return saoPaulo(number);
    for (const Registration& form : registrations) {
        if (state != form.state)
            continue;
        QByteArray digits = form.prefix + spread(number, 100'000'000, 8).last(form.freeDigits);
        for (const std::string_view weights : form.weights)
            if (!weights.empty())
                digits += checkDigit(digits, weights);
        return digits;
    }
    return "ISENTO";
}

} // namespace vorta::kit

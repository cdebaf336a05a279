#include "audit/Addresses.h"

#include "audit/Folding.h"
#include "base/Literals.h"

namespace vorta::audit {

namespace {

void judgeTown(const PersonAddress& address, const Towns& towns, const WrongField& wrong) {
    if (address.town.trimmed().isEmpty())
        return;
    const std::optional<QString> right = towns.codeOf(address.town, address.state);
    const QString code = address.code.trimmed();
    if (!right) {
        const QString words = address.state.isEmpty()            ? u"cidade sem estado"_s
                              : !towns.knowsState(address.state) ? u"o estado %1 não existe"_s.arg(address.state)
                                                                 : u"o estado %1 não a tem"_s.arg(address.state);
        wrong(Check::UnknownTown, address.column("CIDA"), address.town, words);
    } else if (code.isEmpty()) {
        wrong(Check::CodeMissing, address.column("CODI_MUNI"), {},
              u"%1/%2 tem o código %3"_s.arg(address.town, address.state, *right));
    } else if (code != *right) {
        const QString place = towns.placeOf(code);
        wrong(Check::CodeOfOtherTown, address.column("CODI_MUNI"), code,
              (place.isEmpty() ? u"não é código de cidade nenhuma"_s : u"é o código de %1"_s.arg(place)) +
                  u"; %1/%2 tem %3"_s.arg(address.town, address.state, *right));
    }
}

void judgePostalCode(const PersonAddress& address, const WrongField& wrong) {
    constexpr qsizetype whole = 8;
    const QString digits = Digits(address.cep);
    if (digits.isEmpty())
        return;
    if (digits.size() != whole)
        wrong(Check::PostalCode, address.column("CEP0"), address.cep,
              u"%1 algarismos; um CEP tem 8"_s.arg(digits.size()));
    else if (!PostalCodeInState(digits, address.state))
        wrong(Check::PostalCode, address.column("CEP0"), address.cep, u"fora de %1"_s.arg(address.state));
}

} // namespace

QString PersonAddress::column(const char* subject) const {
    return u"%1_%2_PESS"_s.arg(QLatin1StringView(subject), QLatin1StringView(qualifier));
}

bool PersonAddress::isForeign() const {
    const QString folded = Folded(country);
    return state == u"EX" || (!folded.isEmpty() && folded != u"BRASIL");
}

std::array<PersonAddress, 3> AddressesOf(const data::Recordset& row, int first) {
    std::array<PersonAddress, 3> addresses{PersonAddress{"COML", {}, {}, {}, {}, {}},
                                           PersonAddress{"ENTG", {}, {}, {}, {}, {}},
                                           PersonAddress{"COBR", {}, {}, {}, {}, {}}};
    for (PersonAddress& address : addresses) {
        address.town = row.Fields(first).textOr({});
        address.state = row.Fields(first + 1).textOr({}).trimmed().toUpper();
        address.cep = row.Fields(first + 2).textOr({});
        address.country = row.Fields(first + 3).textOr({});
        address.code = row.Fields(first + 4).textOr({});
        first += addressColumns;
    }
    return addresses;
}

void JudgeAddress(const PersonAddress& address, const Towns& towns, const WrongField& wrong) {
    if (address.isForeign())
        return;
    judgeTown(address, towns, wrong);
    judgePostalCode(address, wrong);
}

} // namespace vorta::audit

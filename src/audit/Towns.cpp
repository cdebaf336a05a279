#include "audit/Towns.h"

#include "audit/Folding.h"
#include "base/Literals.h"
#include "data/Recordset.h"

#include <algorithm>
#include <array>

namespace vorta::audit {

namespace {

/// A state's share of the postal codes, by their first five digits.
struct Range {
    QStringView state;
    int from, to;
};

constexpr std::array ranges{
    Range{u"AC", 69900, 69999}, Range{u"AL", 57000, 57999}, Range{u"AM", 69000, 69299}, Range{u"AM", 69400, 69899},
    Range{u"AP", 68900, 68999}, Range{u"BA", 40000, 48999}, Range{u"CE", 60000, 63999}, Range{u"DF", 70000, 72799},
    Range{u"DF", 73000, 73699}, Range{u"ES", 29000, 29999}, Range{u"GO", 72800, 72999}, Range{u"GO", 73700, 76799},
    Range{u"MA", 65000, 65999}, Range{u"MG", 30000, 39999}, Range{u"MS", 79000, 79999}, Range{u"MT", 78000, 78899},
    Range{u"PA", 66000, 68899}, Range{u"PB", 58000, 58999}, Range{u"PE", 50000, 56999}, Range{u"PI", 64000, 64999},
    Range{u"PR", 80000, 87999}, Range{u"RJ", 20000, 28999}, Range{u"RN", 59000, 59999}, Range{u"RO", 76800, 76999},
    Range{u"RR", 69300, 69399}, Range{u"RS", 90000, 99999}, Range{u"SC", 88000, 89999}, Range{u"SE", 49000, 49999},
    Range{u"SP", 1000, 19999},  Range{u"TO", 77000, 77999},
};

QString keyOf(const QString& town, const QString& state) {
    return state + u'|' + Folded(town);
}

} // namespace

Towns::Towns(data::Connection& connection) {
    data::Recordset rows;
    rows.Open(data::Statement("SELECT CODI_MUNI_IBGE, DESC_MUNI_IBGE, UF00_MUNI_IBGE FROM MUNI_IBGE"), connection);
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString code = rows.Fields(0).textOr({}).trimmed();
        const QString town = rows.Fields(1).textOr({}).trimmed();
        const QString state = rows.Fields(2).textOr({}).trimmed().toUpper();
        QString& known = codes_[keyOf(town, state)];
        known = known.isNull() || known == code ? code : u""_s; // two codes for one name decide nothing
        places_[code] = town + u'/' + state;
        states_[state] = true;
    }
}

std::optional<QString> Towns::codeOf(const QString& town, const QString& state) const {
    const QString code = codes_.value(keyOf(town, state));
    return code.isEmpty() ? std::nullopt : std::optional(code);
}

bool PostalCodeInState(const QString& digits, const QString& state) {
    const int sector = digits.left(5).toInt();
    bool known = false;
    for (const Range& range : ranges) {
        if (range.state != state)
            continue;
        known = true;
        if (sector >= range.from && sector <= range.to)
            return true;
    }
    return !known;
}

} // namespace vorta::audit

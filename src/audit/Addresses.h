#pragma once

#include "audit/Checks.h"
#include "audit/Towns.h"
#include "data/Recordset.h"

#include <array>
#include <functional>

namespace vorta::audit {

/// What an audit reads of one of a person's three addresses, as it is stored.
struct PersonAddress {
    const char* qualifier; ///< "COML", "ENTG" or "COBR"
    QString town, state, cep, country, code;

    /// A column of this address: "CIDA" and the qualifier make "CIDA_COML_PESS".
    QString column(const char* subject) const;
    bool isForeign() const;
};

/// The columns of an address in a query: town, state, postal code, country, municipal code.
inline constexpr int addressColumns = 5;

/// The three addresses of a row that has their columns from `first` on, commercial, delivery and billing.
std::array<PersonAddress, 3> AddressesOf(const data::Recordset& row, int first);

using WrongField = std::function<void(Check check, const QString& field, const QString& value, const QString& words)>;
/// Tells what is wrong with an address of this country: its town, its municipal code, its postal code. What is empty is
/// not judged, but for the code of a known town.
void JudgeAddress(const PersonAddress& address, const Towns& towns, const WrongField& wrong);

} // namespace vorta::audit

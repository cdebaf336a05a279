#pragma once

#include <QByteArray>
#include <QtGlobal>

/// Numbers that pass every check without belonging to anybody known: taxpayers' documents made from a running number.
namespace vorta::kit {

/// A CPF in its mask. Different numbers below a thousand million give different documents.
QByteArray Cpf(quint64 number);
/// A CNPJ of a head office in its mask; different numbers below a hundred million give different documents.
QByteArray Cnpj(quint64 number);
/// The same in the form since July 2026, with letters among the first twelve characters.
QByteArray LetteredCnpj(quint64 number);
/// A state registration that follows the rule of its state, or "ISENTO" for a state whose rule is not known here.
QByteArray StateRegistration(const QByteArray& state, quint64 number);

} // namespace vorta::kit

#pragma once

#include <QString>

/// Digit checks of the Brazilian tax documents. They show no message and look at the check digits only, not at the
/// form.
namespace vorta {

/// A company's number: 14 digits, or 18 characters masked "##.###.###/####-##", which become the digits in the caller's
/// variable. What is no digit counts 0, so a number of one repeated digit and the empty text pass.
bool ValidaCNPJ(QString& numero);
/// A natural person's number: 11 digits, or 14 characters masked "###.###.###-##", likewise.
bool ValidaCPF(QString& numero);
/// A state registration by its state's rule. The caller's text loses ".", "-" and "/".
bool ValidaInscricaoEstadual(QString& inscricao, const QString& uf);

} // namespace vorta

#pragma once

#include <QString>

/// Digit checks of the Brazilian tax documents. They show no message and look at the check digits only, not at the
/// form.
namespace vorta {

/// A company's number: 14 digits, or 18 characters masked "##.###.###/####-##", which become the digits in the caller's
/// variable. What is no digit counts 0, so a number of one repeated digit and the empty text pass.
bool ValidaCNPJ(QString& numero);
/// The same for the numbers since July 2026, whose first twelve places may hold letters: a letter, small or capital,
/// counts the code of its capital minus 48, and so do those that stand where the check digits should, which nothing
/// then equals. A number without letters is judged as above.
bool ValidaCNPJAlfanumerico(QString& numero);
/// A natural person's number: 11 digits, or 14 characters masked "###.###.###-##", likewise.
bool ValidaCPF(QString& numero);
/// A state registration by its state's rule. The caller's text loses ".", "-" and "/".
bool ValidaInscricaoEstadual(QString& inscricao, const QString& uf);

} // namespace vorta

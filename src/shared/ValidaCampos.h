#pragma once

#include "launch/ContextoExecucao.h"

/// Checks of e-mail, date and number fields.
namespace vorta {

/// Ten rules in their order: the message of the first that fails; empty for an accepted address.
QString FalhaEmail(const QString& email);
/// The same, and shows the message.
bool ValidaEmail(ContextoExecucao& contexto, const QString& email);

/// A day and month "dd/mm" of the current year; the blank mask "__/__" passes. Any other text gets "/" and the current
/// year appended in the caller's variable.
bool ValidaDiaMes(const ContextoExecucao& contexto, QString& data);

/// A date as typed into a masked date field: the blank form, a number of days from now ("30/__/____"), or a date, which
/// is put into the standard form. The field takes the result only when a number of days was typed; the result is always
/// returned.
QString FormataDataDigitada(const ContextoExecucao& contexto, const QString& texto, screen::MaskedField& campo);

/// The key code to keep in a numeric field, as decimal text: digits, ",", "%", "-" and backspace pass, "0" cancels the
/// key.
QString FiltraTeclaNumerica(qint16 tecla);

/// Every comma becomes a point, in the caller's variable and in the result.
QString VirgulaParaPonto(QString& texto);

} // namespace vorta

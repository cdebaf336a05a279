#pragma once

#include <QString>

namespace vorta {

/// The `indice`-th field (from 1) of a text divided by "^": launch string, configuration lines, lists between screens.
/// A field that is not there gives "."; an index under 1 and an empty text give empty text. A text whose trimmed form
/// does not end in "^" is replaced by that form with a "^" behind it, in the caller's variable. The field is not
/// trimmed.
QString CampoDelimitado(qint16 indice, QString& texto);

/// The `indice`-th field (from 1) of a line of a configuration file, whose last field need not be closed; "." for a
/// field that is not there.
QString CampoDaLinha(const QString& linha, qint16 indice);
/// The number of fields of such a line.
qsizetype CamposNaLinha(const QString& linha);

/// The text in front of the `indice`-th `separador`, behind the one before it; empty when there are fewer. Text behind
/// the last separator can never be returned.
QString CampoDelimitadoPor(qint16 indice, const QString& texto, QChar separador);

} // namespace vorta

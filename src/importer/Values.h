#pragma once

#include "importer/Columns.h"

/// The forms in which spreadsheets hold what the screens want in their own: documents and postal codes that have lost
/// their zeros, dates, the kind of a person.
namespace vorta::importer {

/// "Física" or "Jurídica": as the row tells it ("F", "J" or the word), else by the length of its document. A text that
/// is neither comes back as it is.
QString KindOf(const PersonRow& row);

/// The document in its mask, with the zeros that a spreadsheet has cut off in front; empty without one. A text that
/// cannot be one comes back as it is.
QString DocumentOf(const PersonRow& row);
/// True for no document at all, and for one of zeros alone.
bool IsNoDocument(const QString& document);

/// What to type into a field with that mask for a text of the file.
QString TypedInto(const QString& mask, const QString& text);

/// A text as it is compared with what is stored: in capitals, without accents, with single blanks.
QString Folded(const QString& text);

} // namespace vorta::importer

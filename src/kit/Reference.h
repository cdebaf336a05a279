#pragma once

#include "kit/Loader.h"

/// The reference data that comes with the program: plain tables that a person can read (share/*.tsv), one file per
/// table of the base.
namespace vorta::kit {

/// The text as the register's own screens would have it typed: an apostrophe ends the literal of any statement that
/// carries it, so an acute accent takes its place. What the kit puts into lists to choose from goes through here.
QString WithoutApostrophes(QString text);

/// One such table: its columns as the first line names them, and its rows.
struct ReferenceTable {
    QStringList columns;
    std::vector<QStringList> rows;
};
/// Reads the table of that name out of the program itself, without apostrophes; 53 when it has none.
ReferenceTable ReadReference(const QString& name);

/// Fills the reference tables of a main base, its one company and its one user. Keys count from 1 in the order of the
/// lines.
void LoadReferenceData(Loader& loader);

} // namespace vorta::kit

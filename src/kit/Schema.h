#pragma once

#include <QString>
#include <vector>

/// The tables that the register reads or writes, those of other programs included, as one table of data. Everything the
/// kit knows about a table (its definition on either engine, its load, its check) follows from here.
namespace vorta::kit {

/// The two databases of an installation: the main one (one per environment) and the postal codes.
enum class Base { Main, PostalCode };

/// What a column holds, whatever an engine calls it. Amounts have two decimals.
enum class Kind { Key, Integer, Amount, Date, Text };

struct Column {
    QString name; ///< as the programs of the ERP spell it
    Kind kind;
    int length = 0; ///< characters of a text
};

struct Table {
    QString name;
    Base base;
    std::vector<Column> columns; ///< the first is the key, but in the postal-code tables, which have none
    /// The generator that numbers the rows on Firebird; empty where other programs number them.
    QString generator;
    /// True where the statements carry no key on Firebird either, so that the database fills it.
    bool filledByDatabase = false;

    bool hasKey() const { return columns.front().kind == Kind::Key; }
    const Column* column(const QString& name) const;
};

/// An index of one column or more that some statement of the register can use.
struct Index {
    QString table;
    QString columns; ///< divided by commas
    /// Firebird would answer an order by an index that rises with it by walking that index, a page of the disk for each
    /// row. One that falls finds just as well, and rows in such an order are read in their places and sorted.
    bool descending = false;
};

const std::vector<Table>& Tables();
/// The table of that name, whatever its capitals; none when there is no such table.
const Table* FindTable(const QString& name);
/// All indexes: the key of every table, and what searches, lookups and histories ask for.
const std::vector<Index>& Indexes();

} // namespace vorta::kit

#pragma once

#include "data/Statement.h"

#include <functional>
#include <optional>
#include <variant>
#include <vector>

/// The few texts that the flows send and Firebird does not know, answered from tokens. Literals and names are never
/// mistaken for one another, and what the flows sent stays what the trace shows.
namespace vorta::firebird {

/// `SELECT TOP n` as `SELECT FIRST n`, and an alias in apostrophes (`COUNT(*) 'QT'`) as a quoted name.
data::Statement BridgeSyntax(const data::Statement& statement);

/// The column name of `SELECT @@IDENTITY AS 'NAME'` (empty without an alias); nothing for any other statement.
std::optional<QString> IdentityColumn(const data::Statement& statement);

/// The table of `INSERT INTO table (...) VALUES (...)`; nothing for any other statement.
std::optional<QString> InsertedTable(const data::Statement& statement);
/// That insert giving back the key of its row, by the rule `id` and table.
data::Statement ReturningKey(const data::Statement& statement, const QString& table);

/// Tells for each `?` of a text whether the engine takes a date there; nothing when the engine cannot describe the
/// text.
using DescribeDates = std::function<std::optional<std::vector<bool>>(const QString& text)>;
/// Literals 'yyyymmdd' as 'yyyy-mm-dd', only where the engine itself says that a date stands: an eight-digit phone,
/// document or postal code keeps its form.
data::Statement BridgeDates(const data::Statement& statement, const DescribeDates& describe);

/// The text with every literal emptied. Statements of one shape differ only inside their literals, so the engine takes
/// the same types at the same places of them.
QString Shape(const QString& text);

/// A value that stands aside as a parameter: a whole number, or a text that stood between apostrophes.
using Operand = std::variant<qint64, QString>;
/// A statement with `?` for some of its values, and these from left to right.
struct Parameterised {
    QString text;
    std::vector<Operand> operands;
};
/// Takes the whole numbers that stand as values of their own out of the text, and out of a query also the values that
/// are all of a literal behind `=`; no operands when there are none.
Parameterised TakeOperands(const data::Statement& statement);

/// An insert whose values stand aside as parameters.
struct InsertedValues {
    QString statement;
    std::vector<QString> texts; ///< what stands between apostrophes, a doubled one single, or a whole number
};
/// Takes the values out of an insert of one row of literals, whole numbers and nulls; nothing for any other statement.
std::optional<InsertedValues> TakeInsertedValues(const data::Statement& statement);

} // namespace vorta::firebird

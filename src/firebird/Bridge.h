#pragma once

#include "data/Statement.h"

#include <QHash>
#include <functional>
#include <optional>
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
/// What the engine has said about dates, by the statement without its values: the rows of a save ask once.
class KnownDates {
  public:
    const std::vector<bool>* find(const QString& shape) const {
        const auto known = known_.find(shape);
        return known == known_.end() ? nullptr : &*known;
    }
    void remember(const QString& shape, const std::vector<bool>& dates) {
        if (known_.size() >= mostShapes)
            known_.clear();
        known_.insert(shape, dates);
    }
    /// After a change of the tables.
    void clear() { known_.clear(); }

  private:
    static constexpr qsizetype mostShapes = 64;
    QHash<QString, std::vector<bool>> known_;
};
/// Literals 'yyyymmdd' as 'yyyy-mm-dd', only where the engine itself says that a date stands: an eight-digit phone,
/// document or postal code keeps its form.
data::Statement BridgeDates(const data::Statement& statement, const DescribeDates& describe, KnownDates& known);

/// A statement whose plain integer values stand aside as parameters.
struct Parameterised {
    QString text;
    std::vector<qint64> integers;
};
/// Takes the integer values that stand as numbers of their own out of the text; no integers when there are none.
Parameterised TakeIntegers(const data::Statement& statement);

} // namespace vorta::firebird

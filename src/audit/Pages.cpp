#include "audit/Pages.h"

#include <optional>

namespace vorta::audit {

namespace {

using data::Recordset;
using data::Statement;

/// The flows ask for the first rows in these words on every engine; the adapter of Firebird puts them into its own.
constexpr data::Piece beginning = "SELECT TOP 5000 ";

Statement pageBehind(const PagedTable& table, std::optional<qint64> last) {
    Statement page(beginning);
    page << table.columns << " FROM " << table.table;
    if (last)
        page << " WHERE " << table.key << " > " << *last;
    page << " ORDER BY " << table.key;
    return page;
}

} // namespace

qint64 NumberOf(const data::Value& value) {
    return value.isNull() ? 0 : static_cast<qint64>(value.number());
}

void ReadPages(data::Connection& connection, const PagedTable& table, const OnRow& onRow,
               const std::function<void()>& onPage) {
    std::optional<qint64> last;
    while (true) {
        Recordset rows;
        rows.Open(pageBehind(table, last), connection);
        if (rows.Eof())
            return;
        for (; !rows.Eof(); rows.MoveNext()) {
            last = NumberOf(rows.Fields(0));
            onRow(*last, rows);
        }
        if (onPage)
            onPage();
    }
}

qint64 CountRows(data::Connection& connection, data::Piece table) {
    Recordset rows;
    rows.Open(Statement("SELECT COUNT(*) FROM ") << table, connection);
    return NumberOf(rows.Fields(0));
}

} // namespace vorta::audit

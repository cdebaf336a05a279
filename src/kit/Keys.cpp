#include "kit/Keys.h"

namespace vorta::kit {

qint64 Keys::next(const Table& table) {
    auto found = last_.find(&table);
    if (found == last_.end())
        found = last_.insert(
            &table,
            loader_.number(QStringLiteral("SELECT MAX(%1) FROM %2").arg(table.columns.front().name, table.name)));
    return ++*found;
}

void Keys::setGenerators() {
    for (auto each = last_.cbegin(); each != last_.cend(); ++each)
        if (!each.key()->generator.isEmpty())
            loader_.run(QStringLiteral("SET GENERATOR %1 TO %2").arg(each.key()->generator).arg(each.value()));
}

} // namespace vorta::kit

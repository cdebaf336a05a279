#include "kit/Keys.h"

namespace vorta::kit {

Keys::Keys(Loader& loader) : loader_(loader) {
    for (const Table& table : Tables())
        if (table.base == Base::Main)
            last_[&table] =
                loader.number(QStringLiteral("SELECT MAX(%1) FROM %2").arg(table.columns.front().name, table.name));
}

void Keys::setGenerators() {
    for (auto each = last_.cbegin(); each != last_.cend(); ++each)
        if (!each.key()->generator.isEmpty())
            loader_.run(QStringLiteral("SET GENERATOR %1 TO %2").arg(each.key()->generator).arg(each.value()));
}

} // namespace vorta::kit

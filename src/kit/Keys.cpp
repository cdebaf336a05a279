#include "kit/Keys.h"

#include "base/Literals.h"

namespace vorta::kit {

Keys::Keys(Loader& loader) : loader_(loader) {
    for (const Table& table : Tables())
        if (table.base == Base::Main)
            last_[&table] = loader.number(u"SELECT MAX(%1) FROM %2"_s.arg(table.columns.front().name, table.name));
}

void Keys::setGenerators() {
    for (auto each = last_.cbegin(); each != last_.cend(); ++each)
        if (!each.key()->generator.isEmpty())
            loader_.run(u"SET GENERATOR %1 TO %2"_s.arg(each.key()->generator).arg(each.value()));
}

} // namespace vorta::kit

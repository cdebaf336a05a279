#include "base/Journal.h"

#include "system/Session.h"

namespace vorta {

void Journal(const QString& line) {
    QString single = line;
    // In one call, so that the lines of several threads and programs do not mix.
    system::Write(stderr, single.replace(u'\n', u' ') + u'\n');
}

} // namespace vorta

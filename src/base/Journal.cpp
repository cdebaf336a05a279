#include "base/Journal.h"

#include <cstdio>

namespace vorta {

void Journal(const QString& line) {
    QString single = line;
    // In one call, so that the lines of several threads and programs do not mix.
    std::fputs((single.replace(u'\n', u' ') + u'\n').toUtf8().constData(), stderr);
}

} // namespace vorta

#pragma once

#include <QString>

namespace vorta {

// The one form of a text in the code: u"texto"_s. It is data of the program and costs no allocation.
using namespace Qt::StringLiterals;

} // namespace vorta

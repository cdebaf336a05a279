#pragma once

#include <QString>

namespace vorta {

/// Why nothing can be written at a path, or why it has just failed.
QString WhyNotWritten(const QString& path);

} // namespace vorta

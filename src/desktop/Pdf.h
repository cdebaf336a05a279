#pragma once

#include <QString>

namespace vorta::desktop {

/// Writes a page of HTML as a PDF of A4 pages with their numbers, in one go; raises 75 when it cannot be written.
void WritePdf(const QString& html, const QString& path);

} // namespace vorta::desktop

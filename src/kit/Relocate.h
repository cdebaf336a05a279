#pragma once

#include <QString>

namespace vorta::kit {

/// Makes a copied installation usable at its new place: every path of its configuration files that led into the old one
/// leads into this one. An installation that stands where it was made stays as it is. 53 when the folder holds no
/// installation.
void Relocate(const QString& home);

} // namespace vorta::kit

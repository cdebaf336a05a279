#pragma once

#include "kit/ConfigFiles.h"
#include "kit/Create.h"

namespace vorta::kit {

/// Fills a main base, not yet indexed, with what `contents` asks for: the demonstration's company, and persons in
/// number. Without either the base stays as it is.
void LoadDemonstration(const Layout& layout, const QString& base, const Contents& contents, const Progress& progress);

/// How many persons the demonstration has.
inline constexpr qint64 demonstrationPeople = 260;

} // namespace vorta::kit

#pragma once

#include "kit/Progress.h"

namespace vorta::kit {

/// What a new installation holds besides its reference data.
struct Contents {
    bool demo = false; ///< persons, products and documents of a small trading company, with pictures
    qint64 people = 0; ///< further persons with roles and histories
    quint64 seed = 1;  ///< the same seed makes the same persons
};

/// Creates an installation for embedded use: folders, pictures, configuration files, the database of each environment
/// and the one of postal codes. The content goes to production; history and development start with the reference data
/// alone. Whatever stands in `home` already stays untouched: 58 when an installation is there, 75 when something cannot
/// be written. A failure leaves nothing behind. The embedded engine must have been prepared for `home`.
void CreateInstallation(const QString& home, const Contents& contents, const Progress& progress = {});

/// The most persons that one run makes.
inline constexpr qint64 mostPeople = 1'000'000;

} // namespace vorta::kit

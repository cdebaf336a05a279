#pragma once

#include <QSettings>

namespace vorta::desktop {

/// What the windows remember for this user: sizes, widths of columns.
inline QSettings UserSettings() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QLatin1StringView("vorta"),
                     QLatin1StringView("pessoas"));
}

} // namespace vorta::desktop

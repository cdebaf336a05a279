#include "desktop/DesktopApplication.h"

#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// Windows without a display, and places of windows that are remembered in a folder of the run alone.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const vorta::desktop::DesktopApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    return RUN_ALL_TESTS();
}

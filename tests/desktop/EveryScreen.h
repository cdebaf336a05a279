#pragma once

#include "app/Register.h"
#include "base/Literals.h"
#include "desktop/Binding.h"
#include "desktop/ScreenWindow.h"
#include "support/TestPlatform.h"

#include <QCoreApplication>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace vorta::test {

/// The names of all screens of the register.
inline std::vector<std::string> ScreenNames() {
    TestPlatform platform;
    std::vector<std::string> names;
    for (const QString& name : Register(platform).context().NomesTelas())
        names.push_back(name.toStdString());
    return names;
}

/// Each screen of the register in its window, whole and with all its pages, without a database.
class EveryScreen : public testing::TestWithParam<std::string> {
  protected:
    EveryScreen() : tela(registro.context().Tela(QString::fromStdString(GetParam()))), window(tela, nullptr) {
        window.resize(window.wholeSize());
        window.show();
        window.complete();
        window.activateWindow();
        settle();
    }

    void settle() {
        window.binder().flush();
        QCoreApplication::processEvents();
    }
    QWidget& widgetOf(const screen::Field& field) { return window.binder().binding(field)->widget(); }
    /// Brings the pages of a field to the front.
    void showPageOf(const screen::Field& field) {
        screen::showPageOf(field);
        settle();
    }

    TestPlatform platform;
    Register registro{platform};
    screen::Screen& tela;
    desktop::ScreenWindow window;
};

} // namespace vorta::test

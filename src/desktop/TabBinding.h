#pragma once

#include "desktop/Binding.h"

#include <QTabWidget>

namespace vorta::desktop {

class TabBinding : public Binding {
  public:
    TabBinding(Binder& binder, screen::TabStrip& strip, QTabWidget& tabs);
    void refresh() override;

  protected:
    bool mousePressed(QObject* watched, QMouseEvent& mouse) override;
    bool keyPressed(QKeyEvent& key) override;

  private:
    screen::TabStrip& strip_;
    QTabWidget& tabs_;
};

} // namespace vorta::desktop

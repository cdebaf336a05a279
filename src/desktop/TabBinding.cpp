#include "desktop/TabBinding.h"

#include "desktop/Binder.h"

#include <QMouseEvent>
#include <QTabBar>

namespace vorta::desktop {

TabBinding::TabBinding(Binder& binder, screen::TabStrip& strip, QTabWidget& tabs)
    : Binding(binder, strip, tabs), strip_(strip), tabs_(tabs) {
    tabs.setFocusPolicy(Qt::NoFocus);
    tabs.tabBar()->setFocusPolicy(Qt::NoFocus);
    tabs.tabBar()->installEventFilter(this);
    connect(&tabs, &QTabWidget::currentChanged, this, [this](int page) {
        if (!binder_.refreshing() && page >= 0)
            binder_.act([&] { binder_.user().chooseTab(strip_, page); });
    });
}

void TabBinding::refresh() {
    Binding::refresh();
    for (int page = 0; page < std::min<int>(tabs_.count(), static_cast<int>(strip_.captions().size())); ++page)
        if (tabs_.tabText(page) != strip_.captions()[page])
            tabs_.setTabText(page, strip_.captions()[page]);
    if (QWidget* page = tabs_.widget(strip_.current()))
        binder_.makePage(*page);
    tabs_.setCurrentIndex(strip_.current());
}

/// The page comes to the front by the screen's word, so that the window does not move the focus on its own.
bool TabBinding::mousePressed(QObject* watched, QMouseEvent& mouse) {
    if (watched != tabs_.tabBar() || mouse.button() != Qt::LeftButton)
        return false;
    const int page = tabs_.tabBar()->tabAt(mouse.position().toPoint());
    if (page < 0)
        return false;
    binder_.act([&] { binder_.user().chooseTab(strip_, page); });
    return true;
}

/// Keys that come by are those that a field on a page did not want.
bool TabBinding::keyPressed(QKeyEvent&) {
    return false;
}

} // namespace vorta::desktop

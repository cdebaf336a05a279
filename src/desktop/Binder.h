#pragma once

#include "desktop/BusyInput.h"
#include "screen/User.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <functional>
#include <memory>
#include <unordered_map>

class QKeyEvent;
class QWidget;

namespace vorta::desktop {

class Binding;

/// Connects the widgets of a form with the fields of the same name, both ways: what happens on a widget becomes an
/// event of the screen's user, and after each event the widgets show what the fields then hold. The screen decides
/// where the focus is; the window only follows. A widget that no field is named after is decoration.
class Binder : public QObject, public screen::ScreenObserver {
  public:
    /// `form` carries the widgets; `window` is the top-level widget whose title and pointer the screen sets.
    Binder(screen::Screen& screen, screen::User& user, QWidget& form, QWidget& window);
    ~Binder() override;

    screen::Screen& screen() const { return screen_; }
    screen::User& user() const { return user_; }
    /// Makes what the first sight of the window did not need: the pages that are not in front, and the tab order. Until
    /// then a page is made when it comes to the front.
    void complete();
    /// Makes a tab page, if that has not happened yet.
    void makePage(QWidget& page);
    /// The binding of a field; none when the form has no widget for it, or none yet.
    Binding* binding(const screen::Field& field) const;

    /// The keys that lead to fields and that no label or button has taken upon itself, by the names of the fields.
    const QHash<QString, QString>& keysLeft() const { return keys_; }

    /// Runs one event of the user, then shows its consequences and reports the end of the screen, if it has come.
    /// Gives false when the screen has closed.
    bool act(const std::function<void()>& event);
    /// True while the screen is there and the program runs.
    bool isOpen() const;
    /// True while widgets are made to show the fields, so that what they report then is no doing of the user.
    bool refreshing() const { return refreshing_; }

    /// Shows all changes now. It happens by itself after each event and whenever the event loop is reached.
    void flush();
    /// Has a field shown anew at the next flush.
    void mark(const screen::Field& field);
    /// What the user does during long work is dropped, which a box that comes up, and the end of the work, see to.
    BusyInput& busyInput() { return busyInput_; }
    /// Carries out Ctrl+Tab and Ctrl+PageDown, which walk through the tab pages; false for any other key.
    bool switchPage(const screen::Field& from, const QKeyEvent& key);

    /// Follows a change of the program's colours.
    bool eventFilter(QObject* watched, QEvent* event) override;

    void fieldChanged(screen::Field& field) override;
    void screenChanged(screen::Screen& screen) override;

    /// Called when the screen has closed or the program has ended.
    std::function<void()> onOver;
    /// Called when the screen wants to be put somewhere on the display.
    std::function<void()> onPlacing;

  private:
    void bind(const QWidget& part);
    void orderTabs();
    void workIsOver();
    void schedule();
    void showScreen();
    void showGround();
    void showFocus();

    screen::Screen& screen_;
    screen::User& user_;
    QWidget& form_;
    QWidget& window_;
    QHash<QString, screen::Field*> fields_; ///< by the names of their widgets
    QHash<QString, QString> keys_;          ///< by the names of their fields
    std::unordered_map<const screen::Field*, std::unique_ptr<Binding>> bindings_;
    QSet<const screen::Field*> dirty_;
    bool screenDirty_ = true;
    bool scheduled_ = false;
    bool refreshing_ = false;
    BusyInput busyInput_;
    screen::Colour background_;
    int placings_ = 0;
    const screen::Field* focus_ = nullptr; ///< the field that was last seen with the focus
};

} // namespace vorta::desktop

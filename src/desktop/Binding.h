#pragma once

#include "screen/User.h"

#include <QObject>
#include <memory>
#include <optional>

class QDropEvent;
class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace vorta::desktop {

class Binder;

/// One field and its widget. What all kinds of fields share stands here; a kind adds how it shows its content and what
/// its widget tells.
class Binding : public QObject {
  public:
    Binding(Binder& binder, screen::Field& field, QWidget& widget);

    screen::Field& field() const { return field_; }
    QWidget& widget() const { return widget_; }

    /// Makes the widget show the field.
    virtual void refresh();
    /// Has the colours painted anew at the next refresh, since those of the program have changed.
    void forgetColours() { colours_.reset(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    /// Moves the screen's focus to this field; false when it ended elsewhere or the screen has closed.
    bool takeFocus();
    /// True when the screen is open with the focus on this field.
    bool hasFocus() const;
    /// What a typed code has become behind the field's own rules; 0 when it shall have no effect on the text.
    int filtered(int code);

    // Events of the widget; true when nothing is left to do for the widget itself.
    virtual bool mousePressed(QObject* watched, QMouseEvent& mouse);
    virtual bool keyPressed(QKeyEvent& key);
    virtual bool specialPressed(screen::Key key);
    virtual bool cursorPressed(screen::Key key);
    virtual bool characterTyped(QChar typed);
    virtual bool inputMethod(QInputMethodEvent& input);

    Binder& binder_;

  private:
    void focusArrived(const QFocusEvent& focus);
    bool dropped(QObject& watched, QDropEvent& drop);

    screen::Field& field_;
    QWidget& widget_;
    std::optional<std::pair<screen::Colour, screen::Colour>> colours_;
};

/// The cursor key that has been pressed, whatever Shift or Ctrl add to it; nothing for other keys.
std::optional<screen::Key> CursorKey(const QKeyEvent& key);

/// The binding for the kind of field and widget; raises 13 when a widget cannot show that kind.
std::unique_ptr<Binding> MakeBinding(Binder& binder, screen::Field& field, QWidget& widget);

} // namespace vorta::desktop

#pragma once

#include "screen/Field.h"
#include "screen/Grid.h"
#include "screen/MaskedField.h"

#include <vector>

namespace vorta::screen {

class Program;

/// Told of every change of a screen's state; a window implements it.
class ScreenObserver {
  public:
    virtual ~ScreenObserver() = default;
    virtual void fieldChanged(Field& field) = 0;
    virtual void screenChanged(Screen& screen) = 0; ///< caption, colours, mouse pointer, focus
};

/// The shape of the mouse pointer: the arrow, or the hourglass of long work.
enum class Pointer { Default = 0, Hourglass = 11 };

/// Where a screen comes up on the display: where the desktop likes, in the middle, or against the left border and in
/// the middle from above.
enum class Place { Anywhere, Centre, LeftBorder };

/// A screen: named fields, a caption, and the handlers of its events. Shown modally by `Program::ShowModal`. A screen
/// that has been unloaded is made anew at its next opening.
class Screen {
  public:
    Screen(Program& program, const QString& name);
    virtual ~Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    const QString& name() const { return name_; }
    Program& program() const { return program_; }

    /// The field of that name (case-insensitive); raises 438 naming the screen and the field when there is none.
    Field& field(const QString& name) const;
    Field* findField(const QString& name) const;
    /// All fields in the order of their declaration, which is the tab order.
    const std::vector<Field*>& fields() const { return fields_; }

    const QString& caption() const { return caption_; }
    void setCaption(const QString& caption);
    Colour background() const { return background_; }
    void setBackground(Colour background);
    /// Puts the screen there, now and at its opening. `placings` counts it, so that a window knows when to move.
    void setPlace(Place place);
    Place place() const { return place_; }
    int placings() const { return placings_; }
    Pointer pointer() const { return pointer_; }
    void setPointer(Pointer pointer);

    /// The field with the focus.
    Field* focus() const { return focus_; }
    /// Gives a field the focus: the old field's LostFocus, then this one's GotFocus; the tab page that carries it comes
    /// to the front. Called inside a LostFocus it decides where the focus goes. A field that cannot take the focus is
    /// left alone.
    void SetFocus(Field& field);
    /// The user's move of the focus (none: it leaves the screen). True when the focus ended where the user wanted it.
    bool moveFocus(Field* target);
    /// Asks for one step to the next field, carried out when the running handler has ended.
    void SendTab() { tabRequested_ = true; }
    bool takeTabRequest();
    /// The next (or previous) field that takes the focus, in tab order; locked fields, options that are not chosen and
    /// fields on a page that is not in front are passed over.
    Field* nextField(const Field* from, bool backwards = false) const;

    /// Runs once before the screen is shown.
    virtual void Load() {}
    /// Runs when the screen is about to close, whatever closes it.
    virtual void QueryUnload() {}
    /// The user's wish to close the screen by its frame. One that has a way out of its own takes that.
    virtual void CloseByFrame() { Unload(); }

    /// Closes the screen; the modal wait on it ends when the running handler has ended.
    void Unload();
    bool isLoaded() const { return loaded_; }

    void setObserver(ScreenObserver* observer) { observer_ = observer; }

  private:
    friend class Field;
    friend class Program;
    void add(Field* field) { fields_.push_back(field); }
    void notify(Field& field);
    void notify();
    void enter(Field* field);
    /// A screen that opens without a field in focus begins at its first one, with the text selected as by a step of
    /// the keyboard.
    void takeFirstFocus();

    Program& program_;
    QString name_;
    QString caption_;
    Colour background_ = colour::ButtonFace;
    Pointer pointer_ = Pointer::Default;
    Place place_ = Place::Anywhere;
    int placings_ = 0;
    std::vector<Field*> fields_;
    Field* focus_ = nullptr;
    Field* requestedFocus_ = nullptr;
    bool losingFocus_ = false;
    bool tabRequested_ = false;
    bool loaded_ = false;
    ScreenObserver* observer_ = nullptr;
};

/// Brings the tab pages to the front that carry the field.
void showPageOf(const Field& field);
/// True when these pages are in front.
bool isInFront(const Field& field);
/// Selects all of a text that can be typed over.
void selectAll(Field& field);

} // namespace vorta::screen

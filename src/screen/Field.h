#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace vorta::screen {

class Screen;
class TabStrip;

/// A colour as the register stores it: 0x00BBGGRR, or a system colour with the highest bit set.
using Colour = qint32;

namespace colour {
inline constexpr Colour Locked = static_cast<Colour>(0x80000000); ///< grey of a locked field (system colour 0)
inline constexpr Colour Free = 0xFFFFFF;                          ///< white of a field that takes input
inline constexpr Colour Red = 255;
inline constexpr Colour WindowText = static_cast<Colour>(0x80000008);
inline constexpr Colour ButtonFace = static_cast<Colour>(0x8000000F); ///< -2147483633
inline constexpr Colour ButtonText = static_cast<Colour>(0x80000012); ///< -2147483630
} // namespace colour

enum class FieldKind { Text, Masked, List, Label, Button, Option, Check, Picture, Grid, TabStrip };

/// One named field of a screen with its state as data. A window shows the state and reports events; it holds nothing of
/// its own. The order in which a screen declares its fields is its tab order.
class Field {
  public:
    using Handler = std::function<void()>;

    Field(Screen* screen, const char* name, FieldKind kind);
    virtual ~Field() = default;
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;

    const QString& name() const { return name_; }
    FieldKind kind() const { return kind_; }
    Screen& screen() const { return *screen_; }

    /// The text of an input field, the caption of a label, button, option or check box.
    const QString& text() const { return text_; }
    virtual void setText(const QString& text);

    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    bool locked() const { return locked_; } ///< takes the focus and shows its text, but typing changes nothing
    void setLocked(bool locked);
    bool visible() const { return visible_; }
    void setVisible(bool visible);
    Colour background() const { return background_; }
    void setBackground(Colour background);
    Colour foreground() const { return foreground_; }
    void setForeground(Colour foreground);
    bool bold() const { return bold_; }
    void setBold(bool bold);
    int maxLength() const { return maxLength_; } ///< characters; 0 for no limit
    void setMaxLength(int characters);
    const QString& toolTip() const { return toolTip_; }
    void setToolTip(const QString& toolTip);
    const QString& picture() const { return picture_; } ///< full path of the image shown; empty for none
    /// Shows the image of a file; raises 53 when the file is not there.
    void loadPicture(const QString& path);

    /// The tab page that carries the field; no strip when it stands on the screen itself.
    TabStrip* strip() const { return strip_; }
    int page() const { return page_; }
    void setPage(TabStrip& strip, int page);

    /// Selection of an input field, in characters.
    int selectionStart() const { return selectionStart_; }
    int selectionLength() const { return selectionLength_; }
    void select(int start, int length);

    /// True for the kinds that can hold the focus.
    bool takesFocus() const;
    /// True when the focus may go there now: a kind that takes focus, enabled and visible.
    bool canFocus() const;

    /// The focus is about to go elsewhere.
    virtual void leaving() {}

    // Rules of whole families of fields, as data.
    bool enterMovesOn = false; ///< Enter goes to the next field
    /// The most characters that the data behind the field hold where the screen sets no limit; 0 for unknown. More
    /// cannot be typed or pasted, as it could not be kept.
    int capacity = 0;
    bool keepsLines = false; ///< a note: its text may have line breaks
    bool apostropheBecomesAcute =
        false;                   ///< a typed apostrophe turns into an acute accent, so that it cannot break a statement
    bool selectsOnFocus = false; ///< entering the field selects all of its text

    // Handlers; an empty one does nothing.
    Handler GotFocus;
    Handler LostFocus;
    Handler Click;
    Handler DblClick;
    Handler DropDown;
    /// Receives the code of a typed character (Enter 13, backspace 8); 0 swallows it, another code replaces it.
    std::function<void(int& code)> KeyPress;

  protected:
    void changed();
    void storeText(const QString& text);

  private:
    Screen* screen_;
    QString name_;
    FieldKind kind_;
    QString text_;
    bool enabled_ = true;
    bool locked_ = false;
    bool visible_ = true;
    Colour background_;
    Colour foreground_ = colour::WindowText;
    bool bold_ = false;
    int maxLength_ = 0;
    QString toolTip_;
    QString picture_;
    TabStrip* strip_ = nullptr;
    int page_ = 0;
    int selectionStart_ = 0;
    int selectionLength_ = 0;
};

class TextField : public Field {
  public:
    TextField(Screen* screen, const char* name) : Field(screen, name, FieldKind::Text) {}
};

class Label : public Field {
  public:
    Label(Screen* screen, const char* name, const QString& caption = {});
};

class Button : public Field {
  public:
    /// An ampersand in the caption marks the accelerator.
    Button(Screen* screen, const char* name, const QString& caption = {});
};

class Picture : public Field {
  public:
    Picture(Screen* screen, const char* name) : Field(screen, name, FieldKind::Picture) {}
};

/// A text with a list below it: the user may type any text; the list only helps.
class ListField : public Field {
  public:
    /// `dropDown` false makes a plain list that is always open and takes no text.
    ListField(Screen* screen, const char* name, bool dropDown = true)
        : Field(screen, name, FieldKind::List), dropDown_(dropDown) {}

    bool dropDown() const { return dropDown_; }
    const QStringList& items() const { return items_; }
    /// Empties list and text.
    void clear();
    void addItem(const QString& item);
    void removeItem(int index); ///< raises 13 when there is no such item
    /// Index of the chosen item, -1 for none.
    int listIndex() const { return listIndex_; }
    /// Chooses an item: the text becomes the item's and Click fires; -1 takes the choice away. Raises 13 when there is
    /// no such item.
    void setListIndex(int index);
    /// Width of the dropped-down part in pixels; 0 follows the field.
    int dropWidth() const { return dropWidth_; }
    void setDropWidth(int pixels);

    void setText(const QString& text) override;

    /// Opens the list for a look or a choice. Until it closes it knows the text that stood there, which its fill takes
    /// away.
    void open();
    bool isOpen() const { return open_; }
    /// Closes it. Without a choice, and unless something else has been written since, the text stands there again.
    void close();
    /// The item that Enter would choose in the open list; -1 for none.
    int highlighted() const { return highlighted_; }
    void highlight(int index);
    /// The item from which the cursor keys go on in the closed list. It is the chosen one also when its Click has
    /// written another text.
    int place() const { return place_; }
    void leaving() override { close(); }

    /// A typed beginning that only one item has is completed with the rest of it.
    bool completes = false;
    /// That item; nothing when none or several begin so.
    std::optional<QString> completionOf(const QString& beginning) const;

  private:
    bool dropDown_;
    QStringList items_;
    int listIndex_ = -1;
    int place_ = -1;
    int dropWidth_ = 0;
    bool open_ = false;
    int highlighted_ = -1;
    std::optional<QString> before_; ///< the text that stood there when the list was opened
};

/// One of a group of exclusive options.
class Option : public Field {
  public:
    Option(Screen* screen, const char* name, const QString& caption, const char* group, bool value = false);

    const QString& group() const { return group_; }
    bool value() const { return value_; }
    /// True chooses this option, takes the others of the group off and fires Click; false takes it off silently.
    void setValue(bool value);

  private:
    QString group_;
    bool value_;
};

class Check : public Field {
  public:
    Check(Screen* screen, const char* name, const QString& caption = {});

    bool checked() const { return checked_; }
    /// A change fires Click; the same state does nothing.
    void setChecked(bool checked);

  private:
    bool checked_ = false;
};

/// A row of tab pages. Fields name the page that carries them.
class TabStrip : public Field {
  public:
    TabStrip(Screen* screen, const char* name, const QStringList& captions);

    const QStringList& captions() const { return captions_; }
    int current() const { return current_; }
    void setCurrent(int page); ///< raises 13 when there is no such page
    /// Puts fields on the page with that caption.
    void place(const QString& caption, std::initializer_list<Field*> fields);

  private:
    QStringList captions_;
    int current_ = 0;
};

} // namespace vorta::screen

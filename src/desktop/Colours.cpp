#include "desktop/Colours.h"

#include "desktop/Theme.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

namespace vorta::desktop {

namespace {

using screen::FieldKind;

/// Numbers of the system colours that the screens use.
constexpr int scrollBar = 0;
constexpr int window = 5;
constexpr int windowText = 8;
constexpr int buttonText = 18;

/// A ground that the company's scheme has given.
bool isOfTheCompany(screen::Colour background) {
    return background >= 0 && background != screen::colour::Free;
}

QColor plain(screen::Colour colour) {
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

/// Which parts of a palette a kind of field paints: its ground and its text.
struct Roles {
    QPalette::ColorRole ground;
    QPalette::ColorRole text;
    bool letsThrough; ///< shows the ground of the window unless it has a colour of its own
};

Roles rolesOf(FieldKind kind) {
    switch (kind) {
    case FieldKind::Text:
    case FieldKind::Masked:
    case FieldKind::List:
    case FieldKind::Grid:
        return {QPalette::Base, QPalette::Text, false};
    case FieldKind::Button:
        return {QPalette::Button, QPalette::ButtonText, false};
    case FieldKind::Option:
    case FieldKind::Check:
        return {QPalette::Button, QPalette::WindowText, true};
    default:
        return {QPalette::Window, QPalette::WindowText, true};
    }
}

} // namespace

QColor ColourOf(screen::Colour colour) {
    const QPalette palette = QApplication::palette();
    if (colour == screen::colour::Free)
        return palette.color(QPalette::Base);
    if (colour >= 0)
        return plain(colour);
    switch (colour & 0xFF) {
    case scrollBar:
        return Shaded(palette.color(QPalette::Window), 6);
    case window:
        return palette.color(QPalette::Base);
    case windowText:
        return palette.color(QPalette::WindowText);
    case buttonText:
        return palette.color(QPalette::ButtonText);
    default:
        return palette.color(QPalette::Window);
    }
}

QColor TextColourOf(screen::Colour colour) {
    return colour == screen::colour::Red ? WarningColour(QApplication::palette()) : ColourOf(colour);
}

void ApplyColours(QWidget& widget, FieldKind kind, screen::Colour background, screen::Colour foreground) {
    const Roles roles = rolesOf(kind);
    QPalette palette = QApplication::palette(&widget);
    const bool ownColour = background != screen::colour::ButtonFace;
    if (ownColour || roles.ground == QPalette::Base)
        palette.setColor(roles.ground, ColourOf(background));
    if (roles.letsThrough)
        widget.setAutoFillBackground(ownColour);
    if (foreground != screen::colour::WindowText)
        palette.setColor(roles.text,
                         isOfTheCompany(background) && foreground >= 0 ? plain(foreground) : TextColourOf(foreground));
    else if (isOfTheCompany(background) && IsDark(palette.color(QPalette::Active, QPalette::Window)))
        // The company's scheme knows nothing of the light letters of a dark desktop.
        palette.setColor(roles.text, ReadableOn(ColourOf(background), palette.color(QPalette::Active, roles.text)));
    else if (roles.text == QPalette::WindowText)
        // Said outright, else it would be that of the frame around the widget.
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            palette.setColor(group, roles.text, palette.color(group, roles.text));
    else if (roles.text == QPalette::Text)
        // A field that is only locked stays as readable as a free one.
        palette.setColor(roles.text, palette.color(QPalette::Active, QPalette::Text));
    widget.setPalette(palette);
}

} // namespace vorta::desktop

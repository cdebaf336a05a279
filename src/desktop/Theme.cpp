#include "desktop/Theme.h"

#include <QFontInfo>

#include <algorithm>
#include <array>
#include <cmath>

namespace vorta::desktop {

namespace {

using Role = QPalette::ColorRole;
constexpr int half = 128;
constexpr double seenContrast = 3;   ///< of something that is no text
constexpr double starkContrast = 20; ///< of black on white and its like: a desktop for weak eyes

/// A ground and what is written on it.
struct Pair {
    Role ground;
    Role text;
};
constexpr std::array pairs{
    Pair{QPalette::Window, QPalette::WindowText},
    Pair{QPalette::Base, QPalette::Text},
    Pair{QPalette::Button, QPalette::ButtonText},
    Pair{QPalette::Highlight, QPalette::HighlightedText},
    Pair{QPalette::ToolTipBase, QPalette::ToolTipText},
    Pair{QPalette::Base, QPalette::PlaceholderText},
    Pair{QPalette::Base, QPalette::Link},
    Pair{QPalette::Base, QPalette::LinkVisited},
};
constexpr std::array groups{QPalette::Active, QPalette::Inactive, QPalette::Disabled};

double partOfLight(double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// The relative luminance of WCAG 2.
double lightOf(const QColor& colour) {
    return 0.2126 * partOfLight(colour.redF()) + 0.7152 * partOfLight(colour.greenF()) +
           0.0722 * partOfLight(colour.blueF());
}

QColor between(const QColor& one, const QColor& other, double share) {
    const auto part = [share](int from, int to) { return static_cast<int>(std::lround(from + (to - from) * share)); };
    return {part(one.red(), other.red()), part(one.green(), other.green()), part(one.blue(), other.blue())};
}

bool isOrdinary(const QPalette& desktop) {
    const QColor window = desktop.color(QPalette::Window);
    return !IsDark(window) && ContrastOf(window, desktop.color(QPalette::WindowText)) < starkContrast;
}

/// The ground of a tab page, which the toolkit makes of the colour of buttons: the darker that is, the lighter the
/// page.
QColor pageGround(const QPalette& palette) {
    constexpr int dark = 180;
    constexpr int share = 6;
    constexpr int page = 104;
    const QColor button = palette.color(QPalette::Active, QPalette::Button);
    return button.lighter(100 + std::max(1, (dark - qGray(button.rgb())) / share)).lighter(page);
}

QPalette ownColours() {
    QPalette palette(QColor(0xF1, 0xF3, 0xF6));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xF6, 0xF8, 0xFA));
    palette.setColor(QPalette::Highlight, QColor(0x1F, 0x6F, 0xB2));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xC9, 0xDD, 0xEE));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::PlaceholderText, QColor(0x66, 0x6C, 0x75));
    return palette;
}

/// What cannot be used now stands back a little, and is read all the same.
void quietenDisabled(QPalette& palette) {
    constexpr double quiet = 0.36;
    for (const Role text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        const QColor ground = Shaded(palette.color(QPalette::Active, QPalette::Window), 8);
        const QColor plain = palette.color(QPalette::Active, text);
        QColor shown = between(plain, ground, quiet);
        for (double share = quiet; share > 0 && ContrastOf(ground, shown) < leastContrast; share -= 0.05)
            shown = between(plain, ground, share);
        palette.setColor(QPalette::Disabled, text, shown);
    }
}

void makeReadable(QPalette& palette) {
    for (const QPalette::ColorGroup group : groups) {
        for (const Pair& pair : pairs)
            palette.setColor(group, pair.text,
                             ReadableOn(palette.color(group, pair.ground), palette.color(group, pair.text)));
        // Every second row has the letters of the others.
        if (ContrastOf(palette.color(group, QPalette::AlternateBase), palette.color(group, QPalette::Text)) <
            leastContrast)
            palette.setColor(group, QPalette::AlternateBase, palette.color(group, QPalette::Base));
    }
}

} // namespace

bool IsDark(const QColor& colour) {
    return qGray(colour.rgb()) < half;
}

bool IsStark(const QPalette& palette) {
    constexpr double stark = 19.3; // black letters on the usual light grey stand just below
    return ContrastOf(palette.color(QPalette::Active, QPalette::Window),
                      palette.color(QPalette::Active, QPalette::WindowText)) >= stark;
}

QColor Shaded(const QColor& colour, int percent) {
    if (!IsDark(colour))
        return colour.darker(100 + percent);
    return between(colour, Qt::white, percent / 100.0 * 0.6);
}

double ContrastOf(const QColor& one, const QColor& other) {
    const auto [less, more] = std::minmax({lightOf(one), lightOf(other)});
    return (more + 0.05) / (less + 0.05);
}

QColor ReadableOn(const QColor& ground, const QColor& wanted) {
    if (ContrastOf(ground, wanted) >= leastContrast)
        return wanted;
    const QColor black = Qt::black;
    const QColor white = Qt::white;
    return ContrastOf(ground, black) > ContrastOf(ground, white) ? black : white;
}

QColor WarningColour(const QPalette& palette) {
    const std::array grounds{palette.color(QPalette::Active, QPalette::Window),
                             palette.color(QPalette::Active, QPalette::Base), pageGround(palette)};
    const QColor red = Qt::red;
    const QColor end = IsDark(grounds[0]) ? Qt::white : Qt::black;
    constexpr double step = 0.02;
    constexpr double enough = leastContrast * 1.1; // a frame around a group shades its ground a little
    for (double share = 0; share < 1; share += step) {
        const QColor shown = between(red, end, share);
        if (std::ranges::all_of(grounds, [&](const QColor& one) { return ContrastOf(one, shown) >= enough; }))
            return shown;
    }
    return palette.color(QPalette::Active, QPalette::WindowText);
}

QColor FocusColour(const QPalette& palette) {
    const QColor choice = palette.color(QPalette::Active, QPalette::Highlight);
    for (const Role ground : {QPalette::Window, QPalette::Base})
        if (ContrastOf(choice, palette.color(QPalette::Active, ground)) < seenContrast)
            return palette.color(QPalette::Active, QPalette::WindowText);
    return choice;
}

QPalette ThemeFor(const QPalette& desktop) {
    QPalette palette = ownColours();
    if (!isOrdinary(desktop))
        for (const QPalette::ColorGroup group : groups)
            for (int role = 0; role < QPalette::NColorRoles; ++role)
                palette.setColor(group, static_cast<Role>(role), desktop.color(group, static_cast<Role>(role)));
    // What is disabled is told by its text, not by its ground.
    for (const Role ground : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::AlternateBase})
        palette.setColor(QPalette::Disabled, ground, palette.color(QPalette::Active, ground));
    quietenDisabled(palette);
    makeReadable(palette);
    return palette;
}

QFont FontThatIsThere(const QFont& font, const QStringList& others) {
    const auto isThere = [](const QFont& wanted) {
        return QFontInfo(wanted).family().compare(wanted.family(), Qt::CaseInsensitive) == 0;
    };
    if (isThere(font))
        return font;
    for (const QString& family : others) {
        QFont other = font;
        other.setFamilies({family});
        if (isThere(other))
            return other;
    }
    return font;
}

} // namespace vorta::desktop

#pragma once

#include <QPalette>
#include <array>

namespace vorta::test {

/// The colours of a desktop, as it hands them to its programs.
struct Desktop {
    const char* name;
    QRgb window;
    QRgb text;
    QRgb base;
    QRgb button;
    QRgb highlight;
    QRgb highlighted;
};
inline constexpr std::array desktops{
    Desktop{"light", 0xEFEFEF, 0x000000, 0xFFFFFF, 0xEFEFEF, 0x308CC6, 0xFFFFFF},
    Desktop{"dark", 0x353535, 0xFFFFFF, 0x1E1E1E, 0x353535, 0x15539E, 0xFFFFFF},
    Desktop{"faint", 0x2B2B2B, 0x777777, 0x222222, 0x333333, 0x505050, 0x909090},
    Desktop{"blackAndYellow", 0x000000, 0xFFFF00, 0x000000, 0x000000, 0xFFFF00, 0x000000},
    Desktop{"blackAndWhite", 0xFFFFFF, 0x000000, 0xFFFFFF, 0xFFFFFF, 0x000000, 0xFFFFFF},
};

inline QPalette paletteOf(const Desktop& desktop) {
    QPalette palette{QColor(desktop.window)};
    const auto set = [&](QPalette::ColorRole role, QRgb colour) { palette.setColor(role, QColor(colour)); };
    set(QPalette::Window, desktop.window);
    set(QPalette::WindowText, desktop.text);
    set(QPalette::Base, desktop.base);
    set(QPalette::Text, desktop.text);
    set(QPalette::Button, desktop.button);
    set(QPalette::ButtonText, desktop.text);
    set(QPalette::Highlight, desktop.highlight);
    set(QPalette::HighlightedText, desktop.highlighted);
    return palette;
}

} // namespace vorta::test

#include "desktop/Style.h"

#include "base/Literals.h"

#include <QPainter>
#include <QStyleOption>
#include <array>

namespace vorta::desktop {

namespace {

constexpr int outlineDarkness = 145; ///< per cent, as `QColor::darker` counts
constexpr int disabledDarkness = 118;
constexpr int hoveredLightness = 104;
constexpr int pressedDarkness = 114;
constexpr int shadeDarkness = 110;

QColor outlineOf(const QStyleOption& option) {
    if (option.state.testFlag(QStyle::State_HasFocus))
        return option.palette.color(QPalette::Active, QPalette::Highlight);
    const QColor around = option.palette.color(QPalette::Window);
    return around.darker(option.state.testFlag(QStyle::State_Enabled) ? outlineDarkness : disabledDarkness);
}

/// Four lines that leave the corners out.
void drawFrame(QPainter& painter, const QRect& rect, const QColor& colour) {
    const QRect inner = rect.adjusted(1, 1, -1, -1);
    const std::array sides{
        QLine(inner.left(), rect.top(), inner.right(), rect.top()),
        QLine(inner.left(), rect.bottom(), inner.right(), rect.bottom()),
        QLine(rect.left(), inner.top(), rect.left(), inner.bottom()),
        QLine(rect.right(), inner.top(), rect.right(), inner.bottom()),
    };
    painter.setPen(colour);
    painter.drawLines(sides.data(), static_cast<int>(sides.size()));
}

QColor faceOf(const QStyleOption& option) {
    const QColor face = option.palette.color(QPalette::Button);
    if (option.state & (QStyle::State_Sunken | QStyle::State_On))
        return face.darker(pressedDarkness);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    return hovered && option.state.testFlag(QStyle::State_Enabled) ? face.lighter(hoveredLightness) : face;
}

/// A shade along the lower edge tells a button from a field that is locked.
void drawButton(QPainter& painter, const QStyleOption& option) {
    const QRect inner = option.rect.adjusted(1, 1, -1, -1);
    const QColor face = faceOf(option);
    painter.fillRect(inner, face);
    if (option.state.testFlag(QStyle::State_Enabled) && !option.state.testFlag(QStyle::State_Sunken))
        painter.fillRect(inner.adjusted(0, inner.height() - 2, 0, 0), face.darker(shadeDarkness));
    drawFrame(painter, option.rect, outlineOf(option));
}

} // namespace

Style::Style() : QProxyStyle(u"Fusion"_s) {}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
    if (hint == SH_DialogButtonLayout)
        return 0; // yes, no, cancel
    if (hint == SH_Table_GridLineColor)
        return static_cast<int>(QColor(0xE1, 0xE5, 0xEA).rgb());
    return QProxyStyle::styleHint(hint, option, widget, data);
}

/// Cells keep a distance, so that an amount and the text behind it do not run together.
int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    constexpr int cellMargin = 5;
    return metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin
               ? cellMargin
               : QProxyStyle::pixelMetric(metric, option, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    switch (element) {
    case PE_FrameLineEdit:
        drawFrame(*painter, option->rect, outlineOf(*option));
        break;
    case PE_PanelButtonCommand:
        drawButton(*painter, *option);
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

} // namespace vorta::desktop

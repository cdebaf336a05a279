#include "desktop/Style.h"

#include "base/Literals.h"
#include "desktop/Letters.h"
#include "desktop/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <array>

namespace vorta::desktop {

namespace {

// Per cent that a part stands off from what is around it.
constexpr int outlineShade = 45;
constexpr int disabledShade = 18;
constexpr int hoveredLightness = 104; ///< as `QColor::lighter` counts
constexpr int pressedShade = 14;
constexpr int edgeShade = 10;
constexpr int gridShade = 10;

bool hasFocus(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_HasFocus);
}

QColor focusColour(const QStyleOption& option) {
    return FocusColour(option.palette);
}

QColor outlineOf(const QStyleOption& option) {
    if (hasFocus(option))
        return focusColour(option);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    if (IsStark(option.palette))
        return option.palette.color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    return Shaded(option.palette.color(QPalette::Window), enabled ? outlineShade : disabledShade);
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

void drawRing(QPainter& painter, const QRect& rect, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colour);
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
}

QColor faceOf(const QStyleOption& option) {
    const QColor face = option.palette.color(QPalette::Button);
    if (option.state & (QStyle::State_Sunken | QStyle::State_On))
        return Shaded(face, pressedShade);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    return hovered && option.state.testFlag(QStyle::State_Enabled) ? face.lighter(hoveredLightness) : face;
}

/// Around a field or button; twice as thick where the keyboard is.
void drawOutline(QPainter& painter, const QStyleOption& option) {
    drawFrame(painter, option.rect, outlineOf(option));
    if (hasFocus(option))
        drawFrame(painter, option.rect.adjusted(1, 1, -1, -1), outlineOf(option));
}

/// A shade along the lower edge tells a button from a field that is locked.
void drawButton(QPainter& painter, const QStyleOption& option) {
    const QRect inner = option.rect.adjusted(1, 1, -1, -1);
    const QColor face = faceOf(option);
    painter.fillRect(inner, face);
    if (option.state.testFlag(QStyle::State_Enabled) && !option.state.testFlag(QStyle::State_Sunken))
        painter.fillRect(inner.adjusted(0, inner.height() - 2, 0, 0), Shaded(face, edgeShade));
    drawOutline(painter, option);
}

} // namespace

Style::Style() : QProxyStyle(u"Fusion"_s) {}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
    if (hint == SH_DialogButtonLayout)
        return 0; // yes, no, cancel
    if (hint == SH_Table_GridLineColor)
        return static_cast<int>(
            Shaded(option ? option->palette.color(QPalette::Base) : QColor(Qt::white), gridShade).rgb());
    return QProxyStyle::styleHint(hint, option, widget, data);
}

/// Cells keep a distance, so that an amount and the text behind it do not run together. A grid or note has a frame that
/// finds room for the focus.
int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    constexpr int cellMargin = 5;
    constexpr int frameOfRows = 2;
    if (metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin)
        return cellMargin;
    if (metric == PM_DefaultFrameWidth && qobject_cast<const QAbstractScrollArea*>(widget))
        return frameOfRows;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    switch (element) {
    case PE_FrameLineEdit:
        drawOutline(*painter, *option);
        break;
    case PE_PanelButtonCommand:
        drawButton(*painter, *option);
        break;
    case PE_FrameFocusRect:
        // Options, check boxes and tools; a grid shows its row by itself.
        if (!qobject_cast<const QAbstractItemView*>(widget))
            drawFrame(*painter, option->rect, focusColour(*option));
        break;
    case PE_Frame:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (qobject_cast<const QAbstractScrollArea*>(widget))
            drawOutline(*painter, *option);
        break;
    // Fusion draws them darker than what is around, which nobody sees on a dark ground.
    case PE_IndicatorCheckBox:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        drawFrame(*painter, option->rect, outlineOf(*option));
        break;
    case PE_IndicatorRadioButton:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        drawRing(*painter, option->rect, outlineOf(*option));
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
    const bool label = element == CE_PushButtonLabel || element == CE_RadioButtonLabel || element == CE_CheckBoxLabel;
    const QString letter = label && widget ? widget->property(letterProperty).toString() : QString();
    const auto* button = letter.isEmpty() ? nullptr : qstyleoption_cast<const QStyleOptionButton*>(option);
    if (!button)
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionButton marked(*button);
    marked.text = MarkedText(marked.text, letter[0]);
    QProxyStyle::drawControl(element, &marked, painter, widget);
}

int WidthForTitle(const QString& title) {
    constexpr int roomBeside = 6; // heights of a letter
    QFont font = QApplication::font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(title) + roomBeside * metrics.height();
}

} // namespace vorta::desktop

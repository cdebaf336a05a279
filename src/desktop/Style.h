#pragma once

#include <QProxyStyle>

namespace vorta::desktop {

/// The look of the windows, the same on every desktop: Fusion with flat fields and buttons, which also paint several
/// times as fast as its rounded ones. Whatever has the focus shows it.
class Style : public QProxyStyle {
  public:
    Style();

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    /// A button shows its letter (see Letters.h) underlined.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

/// How wide a window has to be for the whole of its title to show beside the buttons of its frame.
int WidthForTitle(const QString& title);

} // namespace vorta::desktop

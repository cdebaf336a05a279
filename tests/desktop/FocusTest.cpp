// Whatever has the focus is seen to have it.

#include "EveryScreen.h"
#include "desktop/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>

namespace vorta::test {

namespace {

constexpr int around = 3;       ///< a frame may stand that far outside its widget
constexpr int leastPixels = 60; ///< of a frame around a short text
constexpr double seenBy = 3;    ///< the contrast of something that is no text

/// How many pixels of a field's surroundings the focus changes so that it is seen.
int seenPixels(const QImage& without, const QImage& with) {
    int seen = 0;
    for (int y = 0; y < with.height(); ++y)
        for (int x = 0; x < with.width(); ++x)
            if (desktop::ContrastOf(without.pixelColor(x, y), with.pixelColor(x, y)) >= seenBy)
                ++seen;
    return seen;
}

} // namespace

class Focus : public EveryScreen {
  protected:
    Focus() {
        // A cursor that comes and goes is no frame.
        QApplication::setCursorFlashTime(0);
        for (screen::Field* field : tela.fields())
            field->LostFocus = {};
    }

    QImage look(const screen::Field& field) {
        settle();
        const QWidget& widget = widgetOf(field);
        const QRect place(widget.mapTo(&window, QPoint()), widget.size());
        return window.grab(place.adjusted(-around, -around, around, around))
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    void focus(screen::Field& field) {
        widgetOf(field).setFocus(Qt::TabFocusReason);
        settle();
    }
    void leave() {
        if (QWidget* holder = window.focusWidget())
            holder->clearFocus();
        settle();
    }
    /// Says which fields of the screen do not show the focus in the state that they are in.
    QStringList unseen() {
        QStringList found;
        for (screen::Field* field : tela.fields()) {
            if (!field->canFocus())
                continue;
            showPageOf(*field);
            leave();
            const QImage without = look(*field);
            focus(*field);
            const QImage with = look(*field);
            EXPECT_EQ(window.focusWidget(), &widgetOf(*field)) << field->name();
            if (const int pixels = seenPixels(without, with); pixels < leastPixels)
                found += u"%1 (%2)"_s.arg(field->name()).arg(pixels);
        }
        return found;
    }
};

TEST_P(Focus, IsSeenOnEveryField) {
    EXPECT_EQ(unseen().join(u' '), "");
}

TEST_P(Focus, IsSeenOnEveryLockedField) {
    for (screen::Field* field : tela.fields()) {
        field->setLocked(true);
        field->setBackground(screen::colour::Locked);
    }
    EXPECT_EQ(unseen().join(u' '), "");
}

INSTANTIATE_TEST_SUITE_P(Screens, Focus, testing::ValuesIn(ScreenNames()),
                         [](const auto& screenName) { return screenName.param; });

} // namespace vorta::test

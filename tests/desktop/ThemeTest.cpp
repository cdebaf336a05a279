// The colours on light, dark and stark desktops: read in every state.

#include "desktop/Theme.h"
#include "Desktops.h"
#include "SampleWindow.h"
#include "desktop/Colours.h"
#include "desktop/DesktopApplication.h"

namespace vorta::test {

namespace {

/// The ground and the text that a widget paints with.
double contrastOf(const QWidget& widget, QPalette::ColorRole ground, QPalette::ColorRole text) {
    const QPalette palette = widget.palette();
    const auto group = widget.isEnabled() ? QPalette::Active : QPalette::Disabled;
    return desktop::ContrastOf(palette.color(group, ground), palette.color(group, text));
}

} // namespace

class Theme : public SampleWindow, public testing::WithParamInterface<Desktop> {
  protected:
    Theme() : before_(QApplication::palette()) { QApplication::setPalette(desktop::ThemeFor(paletteOf(GetParam()))); }
    ~Theme() override { QApplication::setPalette(before_); }

    /// Every kind of widget is read as it stands.
    void expectRead(const char* state) {
        settle();
        const double least = desktop::leastContrast;
        for (const QWidget* input :
             {static_cast<QWidget*>(nome), static_cast<QWidget*>(nota), static_cast<QWidget*>(cep),
              static_cast<QWidget*>(log), static_cast<QWidget*>(grade), static_cast<QWidget*>(cidade)})
            EXPECT_GE(contrastOf(*input, QPalette::Base, QPalette::Text), least) << input->objectName() << ' ' << state;
        for (const QWidget* option :
             {static_cast<QWidget*>(sim), static_cast<QWidget*>(ativo), static_cast<QWidget*>(titulo)})
            EXPECT_GE(
                desktop::ContrastOf(window.palette().color(QPalette::Window),
                                    option->palette().color(option->isEnabled() ? QPalette::Active : QPalette::Disabled,
                                                            QPalette::WindowText)),
                least)
                << option->objectName() << ' ' << state;
        EXPECT_GE(contrastOf(*salvar, QPalette::Button, QPalette::ButtonText), least) << state;
    }

  private:
    QPalette before_;
};

TEST_P(Theme, IsReadInEveryState) {
    open([&] {
        expectRead("free");
        const auto each = [&](const auto& change) {
            for (screen::Field* field : tela.fields())
                change(*field);
        };
        each([](screen::Field& field) {
            field.setLocked(true);
            if (field.kind() == screen::FieldKind::Text || field.kind() == screen::FieldKind::Masked ||
                field.kind() == screen::FieldKind::List)
                field.setBackground(screen::colour::Locked);
        });
        expectRead("locked");
        each([](screen::Field& field) { field.setEnabled(false); });
        expectRead("locked and disabled");
        each([](screen::Field& field) {
            field.setLocked(false);
            field.setBackground(field.takesFocus() && field.kind() != screen::FieldKind::Button &&
                                        field.kind() != screen::FieldKind::Option &&
                                        field.kind() != screen::FieldKind::Check
                                    ? screen::colour::Free
                                    : screen::colour::ButtonFace);
        });
        expectRead("disabled");
    });
}

TEST_P(Theme, ShowsTheFocusAndTheChoice) {
    const QPalette palette = QApplication::palette();
    for (const auto ground : {QPalette::Window, QPalette::Base})
        EXPECT_GE(desktop::ContrastOf(desktop::FocusColour(palette), palette.color(ground)), 3) << GetParam().name;
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        EXPECT_GE(desktop::ContrastOf(palette.color(group, QPalette::Highlight),
                                      palette.color(group, QPalette::HighlightedText)),
                  desktop::leastContrast);
}

/// A ground of the company's scheme stays what the scheme says, and its text is read on it.
TEST_P(Theme, LeavesTheCompanysColours) {
    open([&] {
        tela.txtNome.setBackground(0x00FFFF); // yellow
        settle();
        EXPECT_EQ(nome->palette().color(QPalette::Base), QColor(0xFF, 0xFF, 0));
        EXPECT_GE(contrastOf(*nome, QPalette::Base, QPalette::Text), desktop::leastContrast);
        tela.txtNome.setForeground(screen::colour::Red);
        settle();
        EXPECT_EQ(nome->palette().color(QPalette::Text), QColor(0xFF, 0, 0));
    });
}

/// The title outside production, and what stands outside its list.
TEST_P(Theme, AWarningIsRead) {
    const QPalette palette = QApplication::palette();
    for (const auto ground : {QPalette::Window, QPalette::Base})
        EXPECT_GE(desktop::ContrastOf(desktop::TextColourOf(screen::colour::Red), palette.color(ground)),
                  desktop::leastContrast);
    open([&] {
        tela.lblTitulo.setForeground(screen::colour::Red);
        settle();
        const QColor shown = titulo->palette().color(QPalette::WindowText);
        EXPECT_EQ(shown, desktop::TextColourOf(screen::colour::Red));
        EXPECT_GT(shown.red(), std::max(shown.green(), shown.blue())) << "it is still a red";
    });
}

TEST_P(Theme, LockedIsToldFromFree) {
    EXPECT_NE(desktop::ColourOf(screen::colour::Locked), desktop::ColourOf(screen::colour::Free));
}

INSTANTIATE_TEST_SUITE_P(Desktops, Theme, testing::ValuesIn(desktops),
                         [](const auto& desktop) { return desktop.param.name; });

TEST(ThemeFor, FollowsADarkDesktopAndHasItsOwnColoursOnALightOne) {
    EXPECT_TRUE(desktop::IsDark(desktop::ThemeFor(paletteOf(desktops[1])).color(QPalette::Window)));
    EXPECT_EQ(desktop::ThemeFor(paletteOf(desktops[0])).color(QPalette::Window), QColor(0xF1, 0xF3, 0xF6));
    EXPECT_EQ(desktop::ThemeFor(paletteOf(desktops[3])).color(QPalette::WindowText), QColor(0xFF, 0xFF, 0));
}

TEST(Contrast, IsThatOfTheUsualMeasure) {
    EXPECT_DOUBLE_EQ(desktop::ContrastOf(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(desktop::ContrastOf(Qt::red, Qt::red), 1);
    EXPECT_NEAR(desktop::ContrastOf(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
    EXPECT_EQ(desktop::ReadableOn(Qt::white, Qt::yellow), QColor(Qt::black));
    EXPECT_EQ(desktop::ReadableOn(Qt::black, Qt::yellow), QColor(Qt::yellow));
}

TEST(FontThatIsThere, IsTheOneWantedOrTheFirstOtherOne) {
    QFont missing(u"No Font Of That Name"_s, 9);
    missing.setBold(true);
    const QString there = QFontInfo(QApplication::font()).family();
    EXPECT_EQ(desktop::FontThatIsThere(QFont(there, 9), {u"Another"_s}), QFont(there, 9));
    const QFont chosen = desktop::FontThatIsThere(missing, {u"Nor Of This One"_s, there});
    EXPECT_EQ(QFontInfo(chosen).family(), there);
    EXPECT_EQ(chosen.family(), there);
    EXPECT_EQ(chosen.pointSize(), 9);
    EXPECT_TRUE(chosen.bold());
    EXPECT_EQ(desktop::FontThatIsThere(missing, {}), missing);
}

} // namespace vorta::test

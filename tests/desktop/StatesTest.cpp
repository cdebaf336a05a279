// Every text of every screen is read on every desktop, whatever state its field is in; the desktop changes its colours
// while the windows stand, and they follow. VORTA_TEST_PICTURES=FOLDER keeps a picture of each.

#include "Desktops.h"
#include "EveryScreen.h"
#include "desktop/Colours.h"
#include "desktop/DesktopApplication.h"
#include "desktop/MessageBox.h"
#include "desktop/Theme.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QWindow>
#include <algorithm>
#include <map>

namespace vorta::test {

namespace {

using screen::FieldKind;

/// The parts of its palette with which a widget writes; none for one that has no text.
struct Ink {
    QPalette::ColorRole text;
    std::optional<QPalette::ColorRole> ground; ///< none when that of the widgets around it is seen
};
std::optional<Ink> inkOf(const QWidget& widget) {
    const auto is = [&]<class... Kinds>() { return (qobject_cast<const Kinds*>(&widget) || ...); };
    if (is.operator()<QLineEdit, QPlainTextEdit, QTextEdit>())
        return Ink{QPalette::Text, QPalette::Base};
    if (is.operator()<QHeaderView>())
        return Ink{QPalette::ButtonText, QPalette::Button};
    if (is.operator()<QAbstractItemView>())
        return Ink{QPalette::Text, QPalette::Base};
    if (is.operator()<QPushButton>())
        return Ink{QPalette::ButtonText, QPalette::Button};
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label && label->text().isEmpty()) // a picture
        return {};
    if (is.operator()<QRadioButton, QCheckBox, QGroupBox, QLabel>())
        return Ink{QPalette::WindowText, {}};
    return {};
}

/// What most of a widget's place shows: what it writes on.
QColor groundOf(const QImage& window, const QWidget& widget) {
    const QRect place = QRect(widget.mapTo(widget.window(), QPoint()), widget.size()) & window.rect();
    std::map<QRgb, int> counts;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x)
            ++counts[window.pixel(x, y)];
    return std::ranges::max_element(counts, {}, [](const auto& count) { return count.second; })->first;
}

/// What is written with too little contrast in a window, on what it shows.
QStringList unread(QWidget& window) {
    QStringList found;
    const QImage shown = window.grab().toImage();
    for (const QWidget* widget : window.findChildren<QWidget*>())
        if (const std::optional<Ink> ink = inkOf(*widget); ink && widget->isVisible() && !widget->size().isEmpty()) {
            const QPalette palette = widget->palette();
            const auto group = widget->isEnabled() ? QPalette::Active : QPalette::Disabled;
            const QColor text = palette.color(group, ink->text);
            const QColor ground = ink->ground ? palette.color(group, *ink->ground) : groundOf(shown, *widget);
            if (const double contrast = desktop::ContrastOf(text, ground); contrast < desktop::leastContrast)
                found += u"%1 %2 on %3: %4"_s.arg(widget->objectName(), text.name(), ground.name()).arg(contrast);
        }
    return found;
}

bool isInput(const screen::Field& field) {
    return field.kind() == FieldKind::Text || field.kind() == FieldKind::Masked || field.kind() == FieldKind::List;
}

/// A state as the screens make it.
struct State {
    const char* name;
    void (*enter)(screen::Field& field);
};
constexpr std::array states{
    State{"idle", [](screen::Field&) {}},
    State{"free",
          [](screen::Field& field) {
              field.setLocked(false);
              field.setEnabled(true);
              if (isInput(field))
                  field.setBackground(screen::colour::Free);
          }},
    State{"locked",
          [](screen::Field& field) {
              field.setLocked(true);
              if (isInput(field))
                  field.setBackground(screen::colour::Locked);
          }},
    State{"disabled", [](screen::Field& field) { field.setEnabled(false); }},
    State{"warning",
          [](screen::Field& field) {
              if (field.kind() == FieldKind::Label)
                  field.setForeground(screen::colour::Red);
          }},
};

desktop::DesktopApplication& application() {
    return static_cast<desktop::DesktopApplication&>(*qApp);
}

/// What a desktop does when its user has chosen other colours.
void changeDesktop(const Desktop& to) {
    application().desktopPalette = [palette = paletteOf(to)] { return palette; };
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        QEvent told(QEvent::ThemeChange);
        QCoreApplication::sendEvent(window, &told);
    }
    QCoreApplication::processEvents();
}

void keepPicture(QWidget& window, const QString& of) {
    const QString folder = qEnvironmentVariable("VORTA_TEST_PICTURES");
    if (!folder.isEmpty())
        EXPECT_TRUE(QDir().mkpath(folder) && window.grab().save(u"%1/%2.png"_s.arg(folder, of)));
}

} // namespace

class States : public EveryScreen {
  protected:
    States() {
        for (screen::Field* field : tela.fields()) {
            field->LostFocus = {};
            if (isInput(*field) && field->kind() != FieldKind::Masked)
                field->setText(u"Texto"_s);
        }
    }
    QStringList unreadOnAnyPage() {
        QStringList found = unread(window);
        for (QTabWidget* tabs : window.findChildren<QTabWidget*>())
            for (int page = tabs->count() - 1; page >= 0; --page) {
                tabs->setCurrentIndex(page);
                if (page > 0)
                    found += unread(window);
            }
        return found;
    }
    ~States() override {
        application().desktopPalette = {};
        application().followDesktop();
    }
};

TEST_P(States, AreReadOnEveryDesktop) {
    for (const State& state : states) {
        for (screen::Field* field : tela.fields())
            state.enter(*field);
        for (const Desktop& desktop : desktops) {
            changeDesktop(desktop);
            settle();
            EXPECT_EQ(unreadOnAnyPage().join(u'\n'), "") << state.name << ' ' << desktop.name;
            EXPECT_EQ(window.palette().color(QPalette::Window), QApplication::palette().color(QPalette::Window));
            keepPicture(window, u"%1 %2 %3"_s.arg(desktop.name, tela.name(), state.name));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, States, testing::ValuesIn(ScreenNames()),
                         [](const auto& screenName) { return screenName.param; });

TEST(StatesOfABox, AreReadOnEveryDesktop) {
    for (const screen::Icon icon : {screen::Icon::None, screen::Icon::Information, screen::Icon::Critical}) {
        const auto box = desktop::MakeMessageBox(
            {u"Existe operação não concluída!!!\n\n<Sim> Sair sem Concluir"_s, {}, icon, screen::Buttons::YesNoCancel},
            nullptr);
        box->show();
        for (const Desktop& desktop : desktops) {
            changeDesktop(desktop);
            EXPECT_EQ(unread(*box).join(u'\n'), "") << desktop.name;
            keepPicture(*box, u"%1 box %2"_s.arg(desktop.name).arg(static_cast<int>(icon)));
        }
    }
    application().desktopPalette = {};
    application().followDesktop();
}

} // namespace vorta::test

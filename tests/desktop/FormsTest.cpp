#include "desktop/Forms.h"
#include "base/Literals.h"
#include "desktop/Binder.h"
#include "desktop/Binding.h"
#include "robot/windows/WidgetLook.h"
#include "support/RegisterWorld.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

/// A part that Qt has made for a widget of the form.
bool isInner(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return widget.objectName().isEmpty() || widget.objectName().startsWith(u"qt_") ||
           qobject_cast<const QComboBox*>(parent) || qobject_cast<const QTabBar*>(parent);
}

/// True for a widget that is there to take input, and was given its name on the form.
bool isNamedInput(const QWidget& widget) {
    const bool input = qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
                       qobject_cast<const QPlainTextEdit*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
                       qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QTabWidget*>(&widget);
    return input && !isInner(widget);
}

} // namespace

class FormTest : public testing::TestWithParam<std::string>, protected RegisterWorld {
  protected:
    FormTest() : tela(telaDe(QString::fromStdString(GetParam()))) {
        desktop::SetUpForm(tela.name(), form);
        for (const QTabWidget* tabs : form.findChildren<QTabWidget*>())
            for (int page = 0; page < tabs->count(); ++page)
                desktop::SetUpPage(*tabs->widget(page));
    }

    screen::Screen& tela;
    QWidget form;
};

TEST_P(FormTest, EveryFieldHasItsWidget) {
    for (const screen::Field* field : tela.fields())
        EXPECT_TRUE(form.findChild<QWidget*>(desktop::WidgetName(field->name()))) << field->name();
    // A widget that cannot show its field's kind is refused here.
    EXPECT_NO_THROW(desktop::Binder(tela, registro.user(), form, form));
}

namespace {

/// What the widgets of a screen show otherwise than the screen says, one a line.
QString disagreements(const screen::Screen& tela, const desktop::Binder& binder) {
    QStringList found;
    for (const screen::Field* field : tela.fields())
        for (const char* property : {"text", "enabled", "visible", "locked", "maxlength", "tooltip", "background",
                                     "foreground", "bold", "picture"}) {
            const robot::Question question{QLatin1String(property)};
            const auto seen = robot::LookAt(binder.binding(*field)->widget(), *field, question);
            if (seen && *seen != robot::Look(*field, question))
                found += u"%1 %2 %3"_s.arg(field->name(), question.property, *seen);
        }
    return found.join(u'\n');
}

} // namespace

/// What a form brings along (captions, limits, fonts) must not stand against the screen.
TEST_P(FormTest, EveryFieldLooksAsItsScreenSays) {
    desktop::Binder binder(tela, registro.user(), form, form);
    binder.flush();
    EXPECT_EQ(disagreements(tela, binder), "");
    for (const screen::Colour colour : {screen::colour::Red, screen::colour::Locked, screen::colour::ButtonFace}) {
        for (screen::Field* field : tela.fields()) {
            field->setLocked(!field->locked());
            field->setEnabled(!field->enabled());
            field->setBackground(colour);
            field->setForeground(colour);
        }
        binder.flush();
        EXPECT_EQ(disagreements(tela, binder), "") << colour;
    }
}

TEST_P(FormTest, EveryNamedInputHasItsField) {
    QSet<QString> names;
    for (const screen::Field* field : tela.fields())
        names += desktop::WidgetName(field->name());
    for (const QWidget* widget : form.findChildren<QWidget*>())
        if (isNamedInput(*widget))
            EXPECT_TRUE(names.contains(widget->objectName())) << widget->objectName();
}

TEST_P(FormTest, NoNameStandsTwice) {
    QSet<QString> seen;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        if (isInner(*widget))
            continue;
        EXPECT_FALSE(seen.contains(widget->objectName())) << widget->objectName();
        seen += widget->objectName();
    }
}

TEST_P(FormTest, TabOrderIsThatOfTheScreen) {
    desktop::Binder(tela, registro.user(), form, form).complete();
    QStringList wanted;
    for (const screen::Field* field : tela.fields())
        if (field->takesFocus())
            wanted += desktop::WidgetName(field->name());
    QStringList found;
    for (const QWidget* widget = form.nextInFocusChain(); widget != &form; widget = widget->nextInFocusChain())
        if (wanted.contains(widget->objectName()))
            found += widget->objectName();
    // The chain is a ring: it may be entered at any place.
    if (const qsizetype first = found.indexOf(wanted.value(0)); first > 0)
        found = found.mid(first) + found.first(first);
    EXPECT_EQ(found.join(u' '), wanted.join(u' '));
}

TEST_P(FormTest, TabsCarryTheCaptionsOfTheScreen) {
    for (const screen::Field* field : tela.fields())
        if (const auto* strip = dynamic_cast<const screen::TabStrip*>(field)) {
            const auto* tabs = form.findChild<QTabWidget*>(strip->name());
            ASSERT_TRUE(tabs);
            QStringList captions;
            for (int page = 0; page < tabs->count(); ++page)
                captions += tabs->tabText(page);
            EXPECT_EQ(captions.join(u'|'), strip->captions().join(u'|'));
        }
}

namespace {

/// The captions and buttons in sight that have less room than their text needs.
QStringList clippedTexts(const QWidget& form) {
    QStringList clipped;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(widget);
        const bool text = label || qobject_cast<const QAbstractButton*>(widget);
        if (text && widget->isVisible() && !isInner(*widget) && widget->width() < widget->sizeHint().width())
            clipped += widget->objectName();
    }
    return clipped;
}

} // namespace

TEST_P(FormTest, NothingIsClipped) {
    for (const int points : {9, 14}) {
        QFont font = form.font();
        font.setPointSize(points);
        form.setFont(font);
        const desktop::Binder binder(tela, registro.user(), form, form);
        form.resize(form.sizeHint());
        form.show();
        for (QTabWidget* tabs : form.findChildren<QTabWidget*>())
            for (int page = tabs->count() - 1; page >= 0; --page) {
                tabs->setCurrentIndex(page);
                QCoreApplication::processEvents();
                EXPECT_EQ(clippedTexts(form).join(u' '), "") << "page " << page << " at " << points;
            }
        QCoreApplication::processEvents();
        EXPECT_EQ(clippedTexts(form).join(u' '), "") << "at " << points;
    }
}

/// The page on which a form puts a widget is the page that the screen brings to the front for it.
TEST_P(FormTest, FieldsStandOnTheirPages) {
    for (const screen::Field* field : tela.fields()) {
        const auto* widget = form.findChild<QWidget*>(desktop::WidgetName(field->name()));
        const QTabWidget* tabs = nullptr;
        int page = 0;
        for (const QWidget* child = widget; child && child->parentWidget() && !tabs; child = child->parentWidget())
            if (auto* around = qobject_cast<QTabWidget*>(child->parentWidget()->parentWidget())) {
                tabs = around;
                page = around->indexOf(const_cast<QWidget*>(child));
            }
        EXPECT_EQ(field->strip() ? field->strip()->name() : QString(), tabs ? tabs->objectName() : QString())
            << field->name();
        if (tabs && field->strip())
            EXPECT_EQ(field->page(), page) << field->name();
    }
}

namespace {

QStringList registeredScreens() {
    TestPlatform platform;
    return Register(platform).context().NomesTelas();
}

std::vector<std::string> screenNames() {
    std::vector<std::string> names;
    for (const QString& name : registeredScreens())
        names.push_back(name.toStdString());
    return names;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Screens, FormTest, testing::ValuesIn(screenNames()),
                         [](const auto& screenName) { return screenName.param; });

TEST(Forms, EveryFormHasItsScreen) {
    QStringList forms = desktop::FormNames();
    QStringList screens = registeredScreens();
    forms.sort();
    screens.sort();
    EXPECT_EQ(forms.join(u' '), screens.join(u' '));
}

} // namespace vorta::test

// What a helper for the blind is told of each field.

#include "EveryScreen.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>

namespace vorta::test {

namespace {

using screen::FieldKind;

/// As a helper for the blind names an object: by the label that it says it has, or by its own name.
QString nameOf(QAccessibleInterface& object) {
    for (const auto& [label, kind] : object.relations(QAccessible::Label))
        if (label->role() == QAccessible::StaticText && !label->text(QAccessible::Name).isEmpty())
            return label->text(QAccessible::Name);
    return object.text(QAccessible::Name);
}

QAccessible::Role roleOf(const screen::Field& field, const QWidget& widget) {
    switch (field.kind()) {
    case FieldKind::Text:
    case FieldKind::Masked:
        return QAccessible::EditableText;
    case FieldKind::List:
        return qobject_cast<const QComboBox*>(&widget) ? QAccessible::ComboBox : QAccessible::List;
    case FieldKind::Button:
        return QAccessible::Button;
    case FieldKind::Option:
        return QAccessible::RadioButton;
    case FieldKind::Check:
        return QAccessible::CheckBox;
    case FieldKind::Grid:
        return QAccessible::Table;
    default:
        return QAccessible::NoRole;
    }
}

/// The part of a kind of field that a name of it must not be: what stands around it.
bool isGroupName(const QWidget& widget, const QString& name) {
    for (const QWidget* outer = widget.parentWidget(); outer; outer = outer->parentWidget())
        if (const QVariant title = outer->property("title"); title.isValid() && title.toString() == name)
            return true;
    return false;
}

} // namespace

class Names : public EveryScreen {};

TEST_P(Names, EveryFieldSaysItsNameAndItsKind) {
    for (const screen::Field* field : tela.fields()) {
        if (!field->takesFocus())
            continue;
        showPageOf(*field);
        QWidget& widget = widgetOf(*field);
        QAccessibleInterface* object = QAccessible::queryAccessibleInterface(&widget);
        ASSERT_TRUE(object) << field->name();
        const QString name = nameOf(*object);
        EXPECT_FALSE(name.trimmed().isEmpty()) << field->name();
        const bool rows = qobject_cast<const QAbstractItemView*>(&widget); // which may be called as their group
        EXPECT_TRUE(rows || !isGroupName(widget, name)) << field->name() << ' ' << name;
        EXPECT_EQ(object->role(), roleOf(*field, widget)) << field->name();
    }
}

TEST_P(Names, TheLineOfAListIsCalledAsTheList) {
    for (const QComboBox* list : window.findChildren<QComboBox*>()) {
        QAccessibleInterface* line = QAccessible::queryAccessibleInterface(list->lineEdit());
        ASSERT_TRUE(line) << list->objectName();
        EXPECT_FALSE(nameOf(*line).isEmpty()) << list->objectName();
    }
}

TEST_P(Names, EveryStateIsTold) {
    for (screen::Field* field : tela.fields()) {
        if (!field->takesFocus())
            continue;
        showPageOf(*field);
        QAccessibleInterface* object = QAccessible::queryAccessibleInterface(&widgetOf(*field));
        field->setEnabled(false);
        settle();
        EXPECT_TRUE(object->state().disabled) << field->name();
        field->setEnabled(true);
        field->setLocked(true);
        settle();
        EXPECT_FALSE(object->state().disabled) << field->name();
        if (field->kind() == FieldKind::Text)
            EXPECT_TRUE(object->state().readOnly) << field->name();
        if (auto* option = dynamic_cast<screen::Option*>(field)) {
            option->setValue(true);
            settle();
            EXPECT_TRUE(object->state().checked) << field->name();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, Names, testing::ValuesIn(ScreenNames()),
                         [](const auto& screenName) { return screenName.param; });

/// The names of fields that have a label of their own, or one whose text changes.
TEST(NamesOfThePerson, AreThoseOfTheirLabels) {
    TestPlatform platform;
    Register registro(platform);
    screen::Screen& tela = registro.context().Tela(u"frmPessoas"_s);
    desktop::ScreenWindow window(tela, nullptr);
    window.complete();
    const auto name = [&](const char* field) {
        return window.binder().binding(tela.field(QLatin1StringView(field)))->widget().accessibleName();
    };
    EXPECT_EQ(name("txtDescricao"), u"Nome");
    EXPECT_EQ(name("mskCodigo"), u"CPF ou CNPJ");
    EXPECT_EQ(name("txtDTDesativa"), u"Data Desativa");
    EXPECT_EQ(name("txtIEstadual"), u"RG ou inscrição estadual");
    EXPECT_EQ(name("cboCidade"), u"Cidade");
    EXPECT_EQ(name("FlexHistClieII"), u"Orçamentos do cliente");
}

} // namespace vorta::test

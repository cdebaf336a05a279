#include "desktop/ScreenKeys.h"

#include "base/Literals.h"
#include "desktop/Binder.h"
#include "desktop/Binding.h"
#include "desktop/Help.h"
#include "desktop/Letters.h"

#include <QAbstractButton>
#include <QLabel>
#include <QShortcut>
#include <QTabWidget>
#include <algorithm>

namespace vorta::desktop {

namespace {

QString withoutMark(QString caption) {
    return caption.remove(u'&');
}

} // namespace

QString CalledOf(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->accessibleName().isEmpty() ? withoutMark(button->text()) : button->accessibleName();
    const QLabel* label = LabelOf(widget);
    const QString text = label ? withoutMark(label->text()) : QString();
    return text.isEmpty() ? widget.accessibleName() : text.endsWith(u':') ? text.chopped(1) : text;
}

ScreenKeys::ScreenKeys(Binder& binder, QWidget& window) : binder_(binder), window_(window) {
    add(u"F1"_s, u"o manual"_s, [this] { ShowManual(window_); });
    add(u"Ctrl+/"_s, u"estas teclas"_s, [this] { ShowKeys(window_, table()); });
    addOperations();
    addPages();
    addFields();
}

void ScreenKeys::add(const QString& keys, const QString& what, std::function<void()> does) {
    auto* shortcut = new QShortcut(QKeySequence(keys), &window_);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, this, std::move(does));
    own_ += keys + u'\t' + what;
}

void ScreenKeys::addOperations() {
    const screen::Screen& screen = binder_.screen();
    if (screen.findField(u"cmdPesquisar_Cliente"_s))
        add(u"Ctrl+F"_s, u"nova pesquisa, com os dois códigos vazios"_s, [this] { newSearch(); });
    if (screen.findField(u"cmdSALVAR"_s))
        add(u"Ctrl+S"_s, u"Salvar"_s, [this] { click(u"cmdSALVAR"_s); });
    if (std::ranges::any_of(screen.fields(), [](auto* field) { return field->kind() == screen::FieldKind::Grid; }))
        add(u"F6"_s, u"a lista, na primeira linha"_s, [this] { goToList(); });
}

/// The pages of the outer strip by their numbers, 0 for the tenth.
void ScreenKeys::addPages() {
    const auto& fields = binder_.screen().fields();
    const auto first =
        std::ranges::find_if(fields, [](auto* one) { return one->kind() == screen::FieldKind::TabStrip; });
    if (first == fields.end())
        return;
    auto* strip = static_cast<screen::TabStrip*>(*first);
    for (int page = 0; page < std::min<int>(10, static_cast<int>(strip->captions().size())); ++page)
        add(u"Alt+%1"_s.arg((page + 1) % 10), u"página %1"_s.arg(strip->captions()[page]),
            [this, strip, page] { binder_.act([&] { binder_.user().chooseTab(*strip, page); }); });
}

void ScreenKeys::addFields() {
    const QHash<QString, QString>& left = binder_.keysLeft();
    for (const screen::Field* field : binder_.screen().fields())
        if (const QString keys = left.value(field->name()); !keys.isEmpty()) {
            auto* shortcut = new QShortcut(QKeySequence(keys), &binder_.binding(*field)->widget());
            connect(shortcut, &QShortcut::activated, this, [this, name = field->name()] { reach(name); });
        }
}

void ScreenKeys::reach(const QString& field) {
    binder_.act([&] { binder_.user().focus(binder_.screen().field(field)); });
}

void ScreenKeys::click(const QString& field) {
    binder_.act([&] { binder_.user().click(binder_.screen().field(field)); });
}

void ScreenKeys::newSearch() {
    screen::Field& code = binder_.screen().field(u"txtRowID"_s);
    if (code.locked())
        return;
    for (const QString& key : {u"txtRowID"_s, u"txtCodPessExterno"_s})
        binder_.act([&] { binder_.user().type(binder_.screen().field(key), {}); });
    click(u"cmdPesquisar_Cliente"_s);
}

/// The grid in front; one without a current row goes to its first.
void ScreenKeys::goToList() {
    for (screen::Field* field : binder_.screen().fields()) {
        auto* grid = dynamic_cast<screen::Grid*>(field);
        if (!grid || !grid->canFocus() || !screen::isInFront(*grid))
            continue;
        binder_.act([&] {
            if (binder_.user().focus(*grid) && grid->Row() == 0)
                binder_.user().key(*grid, screen::Key::Down);
        });
        return;
    }
}

QStringList ScreenKeys::table() const {
    QStringList rows = own_;
    QHash<QString, QString> mapped;
    for (const FieldKey& key : FieldKeys(binder_.screen().name()))
        mapped.insert(key.field, key.keys);
    for (screen::Field* field : binder_.screen().fields()) {
        const Binding* bound = binder_.binding(*field);
        if (!bound || !field->takesFocus() || !field->visible() || !screen::isInFront(*field))
            continue;
        const auto* button = qobject_cast<const QAbstractButton*>(&bound->widget());
        const QString keys = button ? button->shortcut().toString() : mapped.value(field->name());
        if (!keys.isEmpty())
            rows += keys + u'\t' + CalledOf(bound->widget());
    }
    return rows;
}

} // namespace vorta::desktop

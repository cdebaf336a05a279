#include "robot/Walk.h"

#include "base/Literals.h"
#include "robot/Player.h"

#include <algorithm>

namespace vorta::robot {

using namespace screen;

namespace {

bool isWithinReach(const Field& field) {
    for (const Field* part = &field; part; part = part->strip())
        if (!part->visible())
            return false;
    return field.enabled() && field.kind() != FieldKind::Label;
}

QString truths(const Field& field) {
    QString told;
    for (const auto& [holds, letter] :
         {std::pair(field.enabled(), u'e'), {field.locked(), u'l'}, {field.visible(), u'v'}})
        told += holds ? QChar(letter) : QChar(u'-');
    return told;
}

QString stateOf(const Grid& grid) {
    QString told = u"%1 of %2"_s.arg(grid.Row()).arg(grid.Rows());
    for (int row = 1; row < std::min(grid.Rows(), 40); ++row)
        for (int col = 0; col < grid.Cols(); ++col)
            told += u'|' + grid.cell(row, col);
    return told;
}

QString stateOf(const Field& field) {
    if (const auto* grid = dynamic_cast<const Grid*>(&field))
        return stateOf(*grid);
    if (const auto* list = dynamic_cast<const ListField*>(&field))
        return u"%1 %2 %3"_s.arg(Quoted(list->text()), list->isOpen() ? u"open"_s : u"closed"_s,
                                 Quoted(list->items().mid(0, 40).join(u'|')));
    if (const auto* strip = dynamic_cast<const TabStrip*>(&field))
        return QString::number(strip->current());
    if (const auto* option = dynamic_cast<const Option*>(&field))
        return option->value() ? u"chosen"_s : u"-"_s;
    if (const auto* check = dynamic_cast<const Check*>(&field))
        return check->checked() ? u"checked"_s : u"-"_s;
    return Quoted(field.text());
}

} // namespace

QStringList StateOf(const Screen& screen) {
    const Field* focus = screen.focus();
    QStringList state{u"%1 %2"_s.arg(screen.name(), focus ? focus->name() : u"nowhere"_s)};
    const bool isText = focus && (focus->kind() == FieldKind::Text || focus->kind() == FieldKind::Masked);
    if (isText)
        state += u"cursor %1 %2"_s.arg(focus->selectionStart()).arg(focus->selectionLength());
    for (const Field* field : screen.fields())
        state += u"%1 %2 %3"_s.arg(field->name(), truths(*field), stateOf(*field));
    return state;
}

int Walk::pick(qsizetype count) {
    return static_cast<int>(chance_() % static_cast<quint32>(std::max<qsizetype>(1, count)));
}

QString Walk::word(std::initializer_list<const char*> words) {
    return QString::fromUtf8(*(words.begin() + pick(static_cast<qsizetype>(words.size()))));
}

QString Walk::text() {
    return word(
        {"",
         "MARIA DA SILVA",
         "d'Avila",
         "11144477735",
         "11222333000181",
         "01310100",
         "3333-4444",
         "SP",
         "J",
         "F",
         "Osasco",
         "a@b.com",
         "2501",
         "25122020",
         "7",
         "8",
         "R$ 1.234,56",
         "日本 €",
         " x ",
         "S",
         "UM TEXTO QUE PASSA DE TODOS OS LIMITES, PALAVRA POR PALAVRA, ATE QUE NADA MAIS CAIBA NELE E AINDA SOBRE"});
}

QStringList Walk::onInput(const Field& field) {
    const QString& name = field.name();
    switch (pick(8)) {
    case 0:
        return {u"focus"_s, name};
    case 1:
        return {u"click"_s, name};
    case 2:
        if (field.screen().focus() != &field)
            return {u"focus"_s, name};
        return {u"paste"_s, word({"a\tb", "x\r\ny", "123-45", "d'Oeste", "日"}), word({"keys", "menu", "drop"})};
    default:
        return {u"type"_s, name, text()};
    }
}

QStringList Walk::onList(const ListField& list) {
    const QString& name = list.name();
    if (!list.dropDown())
        return {u"focus"_s, name};
    switch (pick(6)) {
    case 0:
    case 1:
        return {u"drop"_s, name};
    case 2:
        if (!list.DropDown && !list.items().isEmpty())
            return {u"choose"_s, name, list.items()[pick(list.items().size())]};
        return {u"drop"_s, name};
    case 3:
        if (list.screen().focus() == &list)
            return {u"press"_s, word({"Up", "Down", "PageUp", "PageDown", "Escape", "Enter", "F4"})};
        return {u"focus"_s, name};
    default:
        return onInput(list);
    }
}

QStringList Walk::onGrid(const Grid& grid) {
    // Letters look for a row, which only the windows do.
    if (grid.screen().focus() == &grid && oneIn(2))
        return {u"press"_s, word({"Up", "Down", "Home", "End", "PageUp", "PageDown", "Enter", " "})};
    return {oneIn(2) ? u"click"_s : u"dblclick"_s, grid.name(), QString::number(pick(grid.Rows()))};
}

QStringList Walk::onField(const Field& field) {
    switch (field.kind()) {
    case FieldKind::Text:
    case FieldKind::Masked:
        return onInput(field);
    case FieldKind::List:
        return onList(static_cast<const ListField&>(field));
    case FieldKind::Grid:
        return onGrid(static_cast<const Grid&>(field));
    case FieldKind::TabStrip: {
        const QStringList& captions = static_cast<const TabStrip&>(field).captions();
        return {u"tab"_s, field.name(), captions[pick(captions.size())]};
    }
    default:
        return {oneIn(8) ? u"dblclick"_s : u"click"_s, field.name()};
    }
}

/// A letter that means the same to the model and to the windows, whose labels have letters of their own: that of an
/// operation, or one that no caption and no label of any screen has.
QString Walk::letterOf(const Screen& screen) {
    QStringList letters{u"K"_s};
    for (const Field* field : screen.fields())
        if (const qsizetype mark = field->text().indexOf(u'&'); field->kind() == FieldKind::Button && mark >= 0)
            letters += field->text().mid(mark + 1, 1).toUpper();
    return letters[pick(letters.size())];
}

/// What a user does whatever field it meets.
QStringList Walk::anywhere(const Screen& screen) {
    if (oneIn(12))
        return {u"frame"_s};
    if (oneIn(12))
        return {u"leave"_s};
    if (oneIn(6))
        return {u"press"_s, u"Alt+"_s + letterOf(screen)};
    if (!screen.focus())
        return {u"press"_s, u"Tab"_s};
    const bool note = screen.focus()->keepsLines;
    if (oneIn(6))
        return {u"hold"_s,
                note ? word({"Tab", "Backspace", "Delete"})
                     : word({"Enter", "Tab", "BackTab", "Backspace", "Delete", "Left", "Right", "Up", "Down"}),
                QString::number(2 + pick(5))};
    if (screen.focus()->kind() == FieldKind::Grid)
        return {u"press"_s, word({"Enter", "Tab", "Escape", "Up", "Down", "Home", "End", " ", "Ctrl+C"})};
    return {u"press"_s, note ? word({"Enter", "Tab", "Escape", "Home", "a", "9", "'"})
                             : word({"Enter", "Enter", "Tab", "Tab", "BackTab", "Escape", "Backspace", "Delete", "Left",
                                     "Right", "Up", "Down", "Home", "End", "a", "9", "'", " ", "F1"})};
}

QStringList Walk::next(const Screen& screen) {
    if (oneIn(3))
        return anywhere(screen);
    std::vector<const Field*> reach;
    std::ranges::copy_if(screen.fields(), std::back_inserter(reach),
                         [](const Field* one) { return isWithinReach(*one); });
    if (reach.empty())
        return {u"frame"_s};
    // Fields in front are more likely, as they are to a user.
    const Field* met = reach[static_cast<size_t>(pick(static_cast<qsizetype>(reach.size())))];
    for (int look = 0; look < 2 && !isInFront(*met); ++look)
        met = reach[static_cast<size_t>(pick(static_cast<qsizetype>(reach.size())))];
    return onField(*met);
}

Answer Walk::answer(const Box& box) {
    switch (box.buttons) {
    case Buttons::OK:
        return Answer::OK;
    case Buttons::YesNo:
        return oneIn(2) ? Answer::Yes : Answer::No;
    case Buttons::YesNoCancel:
        break;
    }
    // Leaving the program for good is rare.
    return oneIn(6) ? Answer::Yes : oneIn(2) ? Answer::No : Answer::Cancel;
}

} // namespace vorta::robot

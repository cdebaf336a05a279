#include "importer/Hands.h"

#include "base/Literals.h"
#include "importer/Values.h"
#include "screen/MaskedField.h"
#include "screen/Screen.h"

namespace vorta::importer {

namespace {

using screen::Field;
using screen::MaskedField;

QString typedInto(const Field& field, const QString& text) {
    const auto* masked = dynamic_cast<const MaskedField*>(&field);
    return masked ? TypedInto(masked->mask(), text) : text;
}

QString lettersAndDigits(const QString& text) {
    QString kept;
    for (const QChar character : text)
        if (character.isLetterOrNumber())
            kept += character.toUpper();
    return kept;
}

/// A text as the field shows it: one line, an apostrophe as the accent that it becomes.
QString shownIn(const Field& field, QString text) {
    if (field.apostropheBecomesAcute)
        text.replace(u'\'', QChar(u'\u00b4'));
    return text.simplified();
}

bool holds(const Field& field, const QString& text) {
    if (field.kind() == screen::FieldKind::Masked)
        return lettersAndDigits(field.text()) == lettersAndDigits(text) &&
               (text.isEmpty() || !field.text().contains(u'_'));
    return field.text().simplified() == shownIn(field, text);
}

} // namespace

/// Why the text cannot go there; empty when the field has the focus and awaits it.
QString Hands::enter(Field& field, const QString& text) {
    if (field.maxLength() > 0 && field.kind() != screen::FieldKind::Masked && text.size() > field.maxLength())
        return u"%1: %2 caracteres, cabem %3"_s.arg(field.name()).arg(text.size()).arg(field.maxLength());
    if (text.contains(u'\'') && !field.apostropheBecomesAcute)
        return u"%1: o campo não aceita apóstrofo"_s.arg(field.name());
    // The way out of a field may lead elsewhere first, as it does from the kind to the document.
    if (!user_.focus(field))
        user_.focus(field);
    if (field.screen().focus() != &field)
        return u"%1: o campo não pode ser preenchido"_s.arg(field.name());
    field.select(0, static_cast<int>(field.text().size()));
    return {};
}

QString Hands::fill(Field& field, const QString& text) {
    if (field.locked() || !field.canFocus())
        return Folded(field.text()) == Folded(text) ? QString() : u"%1: o campo está fechado"_s.arg(field.name());
    const QString wanted = typedInto(field, text);
    if (const QString reason = enter(field, wanted); !reason.isEmpty())
        return reason;
    if (!wanted.isEmpty())
        user_.paste(field, wanted);
    else if (field.selectionLength() > 0)
        user_.key(field, screen::Key::Delete);
    return holds(field, wanted) ? QString() : u"%1: o campo não aceita \"%2\""_s.arg(field.name(), text);
}

QString Hands::type(Field& field, const QString& text) {
    if (field.locked() || !field.canFocus())
        return u"%1: o campo está fechado"_s.arg(field.name());
    const QString wanted = typedInto(field, text);
    if (const QString reason = enter(field, wanted); !reason.isEmpty())
        return reason;
    user_.type(field, wanted);
    return holds(field, wanted) ? QString() : u"%1: o campo não aceita \"%2\""_s.arg(field.name(), text);
}

} // namespace vorta::importer

#include "robot/Look.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "screen/Grid.h"
#include "screen/MaskedField.h"
#include "screen/Platform.h"

#include <QFileInfo>
#include <algorithm>
#include <array>

namespace vorta::robot {

namespace {

using namespace screen;

QString truth(bool value) {
    return value ? u"true"_s : u"false"_s;
}

template <typename Kind>
const Kind& as(const Field& field, const Question& question) {
    if (const auto* kind = dynamic_cast<const Kind*>(&field))
        return *kind;
    throw RuntimeError(errorNumber::NoSuchMember, u"%1 has no property %2"_s.arg(field.name(), question.property));
}

QString text(const Field& field, const Question& question) {
    if (field.kind() == FieldKind::Grid || field.kind() == FieldKind::Picture)
        as<Label>(field, question);
    if (const auto* strip = dynamic_cast<const TabStrip*>(&field))
        return strip->captions().value(strip->current());
    return field.text();
}

QString checked(const Field& field, const Question& question) {
    if (const auto* option = dynamic_cast<const Option*>(&field))
        return truth(option->value());
    return truth(as<Check>(field, question).checked());
}

QString item(const Field& field, const Question& question) {
    const QStringList& items = as<ListField>(field, question).items();
    if (question.row < 0 || question.row >= items.size())
        throw RuntimeError(errorNumber::NoSuchMember,
                           u"%1 has %2 items, none with number %3"_s.arg(field.name(), QString::number(items.size()),
                                                                         QString::number(question.row)));
    return items[question.row];
}

QString cell(const Field& field, const Question& question) {
    const Grid& grid = as<Grid>(field, question);
    if (question.row < 0 || question.row >= grid.Rows() || question.col < 0 || question.col >= grid.Cols())
        throw RuntimeError(errorNumber::NoSuchMember,
                           u"%1 has %2 rows and %3 columns, no cell %4 %5"_s.arg(
                               field.name(), QString::number(grid.Rows()), QString::number(grid.Cols()),
                               QString::number(question.row), QString::number(question.col)));
    return grid.cell(question.row, question.col);
}

using Q = const Question&;
using F = const Field&;

constexpr std::array properties{
    Property{"text", ValueKind::Text, 0, text},
    Property{"enabled", ValueKind::Truth, 0, [](F field, Q) { return truth(field.enabled()); }},
    Property{"locked", ValueKind::Truth, 0, [](F field, Q) { return truth(field.locked()); }},
    Property{"visible", ValueKind::Truth, 0, [](F field, Q) { return truth(field.visible()); }},
    Property{"checked", ValueKind::Truth, 0, checked},
    Property{"mask", ValueKind::Text, 0, [](F field, Q question) { return as<MaskedField>(field, question).mask(); }},
    Property{"maxlength", ValueKind::Number, 0, [](F field, Q) { return QString::number(field.maxLength()); }},
    Property{"tooltip", ValueKind::Text, 0, [](F field, Q) { return field.toolTip(); }},
    Property{"background", ValueKind::Colour, 0, [](F field, Q) { return QString::number(field.background()); }},
    Property{"foreground", ValueKind::Colour, 0, [](F field, Q) { return QString::number(field.foreground()); }},
    Property{"bold", ValueKind::Truth, 0, [](F field, Q) { return truth(field.bold()); }},
    Property{"picture", ValueKind::Text, 0,
             [](F field, Q) { return QFileInfo(Platform::localPath(field.picture())).fileName(); }},
    Property{"items", ValueKind::Number, 0,
             [](F field, Q question) { return QString::number(as<ListField>(field, question).items().size()); }},
    Property{"item", ValueKind::Text, 1, item},
    Property{"rows", ValueKind::Number, 0,
             [](F field, Q question) { return QString::number(as<Grid>(field, question).Rows()); }},
    Property{"cols", ValueKind::Number, 0,
             [](F field, Q question) { return QString::number(as<Grid>(field, question).Cols()); }},
    Property{"row", ValueKind::Number, 0,
             [](F field, Q question) { return QString::number(as<Grid>(field, question).Row()); }},
    Property{"cell", ValueKind::Text, 2, cell},
};

} // namespace

const Property* FindProperty(const QString& name) {
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&](const Property& row) { return name == QLatin1StringView(row.name); });
    return found == properties.end() ? nullptr : &*found;
}

QString Look(const Field& field, const Question& question) {
    const Property* property = FindProperty(question.property);
    if (!property)
        throw RuntimeError(errorNumber::NoSuchMember, u"%1 has no property %2"_s.arg(field.name(), question.property));
    return property->look(field, question);
}

} // namespace vorta::robot

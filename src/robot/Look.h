#pragma once

#include "screen/Field.h"

#include <QString>
#include <functional>

namespace vorta::robot {

/// What a scenario asks about a field: a property by its name in the scenario language, with its row and column where
/// it has some. The properties are text, enabled, locked, visible, checked, mask, maxlength, tooltip, background,
/// foreground, bold, picture, items, item
/// (`row` is the index), rows, cols, row and cell (`row`, `col`).
struct Question {
    QString property;
    int row = 0;
    int col = 0;
};

/// How the values of a property are written and compared.
enum class ValueKind { Text, Truth, Number, Colour };

/// One property of the scenario language.
struct Property {
    const char* name;
    ValueKind kind;
    int numbers; ///< row and column numbers that stand in front of the value
    QString (*look)(const screen::Field& field, const Question& question);
};

/// The row of a property; none for an unknown name.
const Property* FindProperty(const QString& name);

/// The answer of the model itself to a question; raises 438 for a property that the field does not have.
QString Look(const screen::Field& field, const Question& question);

} // namespace vorta::robot

#pragma once

#include "robot/Look.h"

#include <optional>

class QWidget;

namespace vorta::robot {

/// What a user sees of a field on its widget, in the form of the scenario language; nothing where a widget of that kind
/// shows nothing of the matter. The answer comes from the widget alone. The field only tells which of several ways to
/// say the same is meant: a colour that looks as the field's is answered with the field's number, an image that is the
/// one in the field's file with the name of that file.
std::optional<QString> LookAt(const QWidget& widget, const screen::Field& field, const Question& question);

} // namespace vorta::robot

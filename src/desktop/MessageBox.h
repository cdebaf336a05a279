#pragma once

#include "screen/Platform.h"

#include <memory>

class QAbstractButton;
class QMessageBox;
class QWidget;

namespace vorta::desktop {

/// A message box with the buttons, in Portuguese, that a screen asks for. The first button is the default. The frame's
/// close and Escape give the answer that `EscapeAnswer` names; a box without one knows neither.
std::unique_ptr<QMessageBox> MakeMessageBox(const screen::Box& box, QWidget* parent);
/// The button that gives an answer; none when the box does not offer it.
QAbstractButton* ButtonOf(const QMessageBox& shown, screen::Answer answer);
/// The answer that a box was closed with. One that the end of the program has closed gives its last button's.
screen::Answer AnswerOf(const QMessageBox& shown);

} // namespace vorta::desktop

#pragma once

#include "robot/Hands.h"

#include <memory>

namespace vorta::robot {

/// Hands that work on real windows, with the key and mouse events that a person causes. Makes its own application, on
/// Qt's offscreen platform unless another one is set, when there is none.
std::unique_ptr<Hands> MakeDesktopHands(screen::Program& program, screen::User& user);

} // namespace vorta::robot

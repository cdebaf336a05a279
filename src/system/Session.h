#pragma once

#include <cstdio>

/// What a program finds around it: a display, a terminal, the letters of both.
namespace vorta::system {

/// True when there is a display to show windows on, or Qt has been told to do without one.
bool HasDisplay();
/// True when somebody reads the stream on a terminal.
bool IsTerminal(std::FILE* stream);
/// What the program reads and writes, names of files and lines of a terminal, is UTF-8 whatever the surroundings say.
void SpeakUtf8();

} // namespace vorta::system

#pragma once

#include <cstdio>

/// What a program finds around it: a display, a terminal, the letters of both.
namespace vorta::system {

/// True when there is a display to show windows on, or Qt has been told to do without one.
bool HasDisplay();
/// True when somebody reads the stream on a terminal.
bool IsTerminal(std::FILE* stream);
/// Names of files are UTF-8 whatever the surroundings say.
void NameFilesInUtf8();
/// A console that has letters of its own shows what the program writes, which is UTF-8.
void ShowUtf8OnConsole();

} // namespace vorta::system

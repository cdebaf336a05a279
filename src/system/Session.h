#pragma once

#include <QString>

#include <cstdio>

/// What a program finds around it: a display, a terminal, the letters of both.
namespace vorta::system {

/// True when there is a display to show windows on, or Qt has been told to do without one.
bool HasDisplay();
/// True when somebody reads the stream on a terminal.
bool IsTerminal(std::FILE* stream);
/// Names of files are UTF-8 whatever the surroundings say.
void NameFilesInUtf8();
/// Writes a text to one of the standard streams in one call: in UTF-8, or to a console that has letters of its own in
/// these.
void Write(std::FILE* stream, const QString& text);

} // namespace vorta::system

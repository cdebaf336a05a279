#include "system/Session.h"

#include <io.h>
#include <windows.h>

namespace vorta::system {

bool HasDisplay() {
    return true;
}

bool IsTerminal(std::FILE* stream) {
    return ::_isatty(::_fileno(stream)) != 0;
}

// They go to the system in UTF-16.
void NameFilesInUtf8() {}

void ShowUtf8OnConsole() {
    ::SetConsoleOutputCP(CP_UTF8);
    ::SetConsoleCP(CP_UTF8);
}

} // namespace vorta::system

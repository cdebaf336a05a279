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

// Names of files go to the system in its own letters; only the console has a set of its own.
void SpeakUtf8() {
    ::SetConsoleOutputCP(CP_UTF8);
    ::SetConsoleCP(CP_UTF8);
}

} // namespace vorta::system

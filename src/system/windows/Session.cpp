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

// The streams of the C library know the bytes of the console's own set alone, and what moves its cursor has to be
// wished.
void Write(std::FILE* stream, const QString& text) {
    if (!IsTerminal(stream)) {
        std::fputs(text.toUtf8().constData(), stream);
        return;
    }
    std::fflush(stream);
    const auto console = reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream)));
    DWORD mode = 0;
    if (::GetConsoleMode(console, &mode))
        ::SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    DWORD written = 0;
    ::WriteConsoleW(console, text.utf16(), static_cast<DWORD>(text.size()), &written, nullptr);
}

} // namespace vorta::system

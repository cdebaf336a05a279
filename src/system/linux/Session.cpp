#include "system/Session.h"

#include <QtGlobal>

#include <clocale>
#include <unistd.h>

namespace vorta::system {

bool HasDisplay() {
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

bool IsTerminal(std::FILE* stream) {
    return ::isatty(::fileno(stream)) != 0;
}

void NameFilesInUtf8() {
    std::setlocale(LC_CTYPE, "C.UTF-8");
}

void Write(std::FILE* stream, const QString& text) {
    std::fputs(text.toUtf8().constData(), stream);
}

} // namespace vorta::system

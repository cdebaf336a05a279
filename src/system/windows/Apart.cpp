#include "system/Apart.h"

#include "system/Session.h"

#include <cstdlib>
#include <windows.h>

namespace vorta::system {

using namespace Qt::StringLiterals;

namespace {

/// The timer of the limit in force.
HANDLE limit = nullptr;

void CALLBACK timeIsOver(void*, BOOLEAN) {
    Write(stderr, u"o tempo da etapa acabou\n"_s);
    ::TerminateProcess(::GetCurrentProcess(), EXIT_FAILURE);
}

} // namespace

// A process there never begins as a copy: the work is done in this one, and whoever wants it apart starts the program
// for each.
std::optional<ApartEnd> DoApart(const std::function<void(const TellFromApart& tell)>& work) {
    ApartEnd end;
    work([&](const QByteArray& message) {
        end.told += message;
        return true;
    });
    LimitTime(0);
    return end;
}

void LimitTime(unsigned seconds) {
    if (limit)
        (void)::DeleteTimerQueueTimer(nullptr, limit, INVALID_HANDLE_VALUE);
    limit = nullptr;
    constexpr unsigned milliseconds = 1000;
    if (seconds != 0)
        ::CreateTimerQueueTimer(&limit, nullptr, timeIsOver, nullptr, seconds * milliseconds, 0, WT_EXECUTEONLYONCE);
}

} // namespace vorta::system

#include "system/Crashes.h"

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <windows.h>

namespace vorta::system {

namespace {

std::atomic<void (*)(const CrashCause&)> told{nullptr};
std::atomic_flag telling = ATOMIC_FLAG_INIT;

void tell(DWORD code) {
    // Another thread that falls while this one tells it, waits for the end.
    if (telling.test_and_set())
        ::Sleep(INFINITE);
    const bool memoryGone = code == EXCEPTION_IN_PAGE_ERROR;
    char words[] = "exceção 00000000";
    constexpr char digits[] = "0123456789ABCDEF";
    for (char* place = words + sizeof words - 2; code != 0; code >>= 4)
        *place-- = digits[code & 0xf];
    if (const auto handler = told.load())
        handler({words, memoryGone});
}

LONG WINAPI unhandled(EXCEPTION_POINTERS* exception) {
    tell(exception->ExceptionRecord->ExceptionCode);
    return EXCEPTION_EXECUTE_HANDLER;
}

void aborted(int) {
    constexpr DWORD fatalAppExit = 0x40000015;
    tell(fatalAppExit);
}

} // namespace

void OnCrash(void (*handler)(const CrashCause&)) {
    told = handler;
    ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    ::SetUnhandledExceptionFilter(unhandled);
    std::signal(SIGABRT, aborted);
    ULONG room = 1 << 16; // for the handler, should the stack run over
    ::SetThreadStackGuarantee(&room);
}

void WriteInCrash(const char* words) {
    DWORD written = 0;
    ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), words, static_cast<DWORD>(std::strlen(words)), &written, nullptr);
}

void EndInCrash(int status) {
    while (true)
        ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(status));
}

// A process cannot become another one there: a new one is started, and this one ends at once.
void BeginAnewInCrash(const char* first, const char* second) {
    static wchar_t program[MAX_PATH], line[2 * MAX_PATH];
    if (::GetModuleFileNameW(nullptr, program, MAX_PATH) == 0)
        return;
    ::wsprintfW(line, L"\"%s\" %S %S", program, first, second);
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION started{};
    if (::CreateProcessW(program, line, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how, &started))
        EndInCrash(EXIT_FAILURE);
}

} // namespace vorta::system

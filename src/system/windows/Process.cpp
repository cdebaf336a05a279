#include "system/Process.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <cstdio>
#include <cstdlib>
#include <vector>
#include <windows.h>

#include <tlhelp32.h>

namespace vorta::system {

using namespace Qt::StringLiterals;

namespace {

HANDLE toHandle(qintptr process) {
    return reinterpret_cast<HANDLE>(process);
}

/// In the way of the C library: the program itself and each argument in quotes; backslashes in front of one doubled.
QString quoted(const QString& argument) {
    QString text = u"\""_s;
    int backslashes = 0;
    for (const QChar letter : argument) {
        if (letter == u'"')
            text += QString(backslashes + 1, u'\\');
        backslashes = letter == u'\\' ? backslashes + 1 : 0;
        text += letter;
    }
    return text + QString(backslashes, u'\\') + u'"';
}

qint64 parentOf(DWORD process) {
    const HANDLE all = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    qint64 parent = 0;
    for (BOOL found = ::Process32FirstW(all, &entry); found && parent == 0; found = ::Process32NextW(all, &entry))
        if (entry.th32ProcessID == process)
            parent = entry.th32ParentProcessID;
    ::CloseHandle(all);
    return parent;
}

DWORD WINAPI endBehind(void* parent) {
    ::WaitForSingleObject(parent, INFINITE);
    ::TerminateProcess(::GetCurrentProcess(), EXIT_FAILURE);
    return 0;
}

/// The children that this job holds go with it, and it goes with this process.
HANDLE ownJob() {
    static const HANDLE job = [] {
        const HANDLE made = ::CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        ::SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    return job;
}

/// Every thread of the process is stopped, or goes on.
void withThreadsOf(qint64 process, DWORD(WINAPI* work)(HANDLE)) {
    const HANDLE all = ::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL found = ::Thread32First(all, &entry); found; found = ::Thread32Next(all, &entry))
        if (entry.th32OwnerProcessID == process)
            if (const HANDLE thread = ::OpenThread(THREAD_SUSPEND_RESUME, FALSE, entry.th32ThreadID)) {
                work(thread);
                ::CloseHandle(thread);
            }
    ::CloseHandle(all);
}

} // namespace

// Processes are numbered by the whole machine, anew at each of its starts; the engine settles nothing in a folder
// there.
QByteArray NumberSpace() {
    return QSysInfo::machineUniqueId();
}

std::chrono::milliseconds ProcessorTime() {
    FILETIME begun, ended, inSystem, inProgram;
    if (!::GetProcessTimes(::GetCurrentProcess(), &begun, &ended, &inSystem, &inProgram))
        return {};
    const auto steps = [](const FILETIME& time) {
        return static_cast<qint64>(time.dwHighDateTime) << 32 | static_cast<qint64>(time.dwLowDateTime);
    };
    constexpr qint64 stepsOfAMillisecond = 10000;
    return std::chrono::milliseconds((steps(inSystem) + steps(inProgram)) / stepsOfAMillisecond);
}

void EndWithParent() {
    const auto parent = static_cast<DWORD>(parentOf(::GetCurrentProcessId()));
    if (const HANDLE process = ::OpenProcess(SYNCHRONIZE, FALSE, parent))
        ::CloseHandle(::CreateThread(nullptr, 0, endBehind, process, 0, nullptr));
}

void EndWithParent(QProcess& child) {
    QObject::connect(&child, &QProcess::started, &child, [&child] {
        const auto number = static_cast<DWORD>(child.processId());
        if (const HANDLE process = ::OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, number)) {
            ::AssignProcessToJobObject(ownJob(), process);
            ::CloseHandle(process);
        }
    });
}

void Pause(qint64 process) {
    withThreadsOf(process, ::SuspendThread);
}

void Resume(qint64 process) {
    withThreadsOf(process, ::ResumeThread);
}

OwnProcess::OwnProcess(const QStringList& arguments) {
    wchar_t program[MAX_PATH];
    if (::GetModuleFileNameW(nullptr, program, MAX_PATH) == 0)
        return;
    QString line = quoted(QString::fromWCharArray(program));
    for (const QString& argument : arguments)
        line += u' ' + quoted(argument);
    std::vector<wchar_t> words(static_cast<std::size_t>(line.size()) + 1, L'\0');
    line.toWCharArray(words.data());
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION started{};
    if (!::CreateProcessW(program, words.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how, &started))
        return;
    ::CloseHandle(started.hThread);
    process_ = reinterpret_cast<qintptr>(started.hProcess);
}

OwnProcess::~OwnProcess() {
    if (isStarted())
        ::CloseHandle(toHandle(process_));
}

std::optional<int> OwnProcess::status() {
    if (::WaitForSingleObject(toHandle(process_), 0) == WAIT_TIMEOUT)
        return std::nullopt;
    DWORD status = 0;
    constexpr DWORD firstOfCrashes = 0x80000000;
    return ::GetExitCodeProcess(toHandle(process_), &status) && status < firstOfCrashes ? static_cast<int>(status) : -1;
}

void OwnProcess::kill() {
    ::TerminateProcess(toHandle(process_), EXIT_FAILURE);
    ::WaitForSingleObject(toHandle(process_), INFINITE);
}

// For the engine's sake, which keeps no files of locks there.
void AtEnd(void (*)(int status)) {}

void EndHere(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

} // namespace vorta::system

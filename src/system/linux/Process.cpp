#include "system/Process.h"

#include "system/Files.h"

#include <QByteArrayList>
#include <QFile>
#include <QProcess>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vorta::system {

using namespace Qt::StringLiterals;

QByteArray NumberSpace() {
    QFile boot(u"/proc/sys/kernel/random/boot_id"_s);
    const QByteArray run = boot.open(QIODevice::ReadOnly) ? boot.readLine(128).trimmed() : QByteArray();
    const std::optional<FileState> numbers = StateOf(u"/proc/self/ns/pid"_s);
    return run + ' ' + QByteArray::number(numbers ? numbers->id.number : 0);
}

std::chrono::milliseconds ProcessorTime() {
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::seconds(used.tv_sec) +
                                                                 std::chrono::nanoseconds(used.tv_nsec));
}

void EndWithParent() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void EndWithParent(QProcess& child) {
    child.setChildProcessModifier([] { EndWithParent(); });
}

void Pause(qint64 process) {
    ::kill(static_cast<pid_t>(process), SIGSTOP);
}

void Resume(qint64 process) {
    ::kill(static_cast<pid_t>(process), SIGCONT);
}

OwnProcess::OwnProcess(const QStringList& arguments) {
    char program[] = "/proc/self/exe";
    QByteArrayList words;
    for (const QString& argument : arguments)
        words << argument.toUtf8();
    std::vector<char*> values{program};
    for (QByteArray& word : words)
        values.push_back(word.data());
    values.push_back(nullptr);
    pid_t started = -1;
    if (posix_spawn(&started, program, nullptr, nullptr, values.data(), environ) == 0)
        process_ = started;
}

OwnProcess::~OwnProcess() = default;

std::optional<int> OwnProcess::status() {
    int status = 0;
    if (waitpid(static_cast<pid_t>(process_), &status, WNOHANG) == 0)
        return std::nullopt;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void OwnProcess::kill() {
    ::kill(static_cast<pid_t>(process_), SIGKILL);
    waitpid(static_cast<pid_t>(process_), nullptr, 0);
}

void AtEnd(void (*work)(int status)) {
    ::on_exit([](int status, void* given) { reinterpret_cast<void (*)(int)>(given)(status); },
              reinterpret_cast<void*>(work));
}

void EndHere(int status) {
    std::fflush(nullptr);
    ::_exit(status);
}

} // namespace vorta::system

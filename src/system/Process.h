#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <optional>

class QProcess;

/// Processes: this one, and others of the same program.
namespace vorta::system {

/// What two processes have in common that can settle things by the number of a process and in memory: the same run of
/// the same system, which numbers them alike.
QByteArray NumberSpace();

/// Processor time that this process has used.
std::chrono::milliseconds ProcessorTime();

/// From now on this process goes when the one that has started it goes.
void EndWithParent();
/// The same for a child that is still to be started: it goes with this process, also by a crash.
void EndWithParent(QProcess& child);

/// Stops a process for a while, as a machine that hangs; and lets it go on.
void Pause(qint64 process);
void Resume(qint64 process);

/// Another process of this program. May be used in any thread.
class OwnProcess {
  public:
    /// Starts it with these arguments; see `isStarted`.
    explicit OwnProcess(const QStringList& arguments);
    ~OwnProcess(); // NOLINT(performance-trivially-destructible): there are systems with a handle to close
    OwnProcess(const OwnProcess&) = delete;
    OwnProcess& operator=(const OwnProcess&) = delete;

    bool isStarted() const { return process_ != none; }
    /// Its exit status, -1 for a process that has crashed; nothing while it runs.
    std::optional<int> status();
    void kill();

  private:
    static constexpr qintptr none = -1;
    qintptr process_ = none;
};

/// Work at the very end of this process, however it comes to its end in order, before that of libraries that are loaded
/// already. A status is what the process ends with.
void AtEnd(void (*work)(int status));
/// For such work: ends the process at this point, without the work that is still to come.
[[noreturn]] void EndHere(int status);

} // namespace vorta::system

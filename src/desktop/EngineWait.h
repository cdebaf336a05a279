#pragma once

#include "base/EngineWatch.h"

#include <memory>

class QMessageBox;

/// The box about a database that does not answer. The program's own thread stands inside the call then and can paint
/// nothing, so the box is a small process of the same program, which goes when the call comes back.
namespace vorta::desktop {

/// The argument with which the program starts as that process: the word, and the seconds of silence.
inline constexpr char waitBoxWord[] = "--aguardar";

/// Asks by such a process; to be called on the watch's thread. A box that cannot be shown is waited for.
WaitAnswer AskWhetherToWait(int seconds, const std::function<bool()>& over);
/// That process, from its start to its exit status.
int RunWaitBox(int seconds);

std::unique_ptr<QMessageBox> MakeWaitBox(int seconds);
/// The exit status that tells the answer of the box.
int WaitBoxStatus(const QMessageBox& box);

/// Ends the process at once, whatever its threads are doing.
[[noreturn]] void EndAtOnce();

} // namespace vorta::desktop

#pragma once

#include "base/Crash.h"

#include <memory>

class QMessageBox;

/// The box about a crash of the program. What has crashed can paint nothing any more, so the process begins anew as one
/// that shows the box and no more: the bases and their locks are let go of by then.
namespace vorta::desktop {

/// The argument with which the program starts as that process: the word, and what has crashed.
inline constexpr char crashBoxWord[] = "--falha";

/// Becomes that process; for `TellCrashes`. Comes back where that cannot be.
void BecomeCrashBox(CrashKind kind);
/// That process, from its start to its exit status.
int RunCrashBox(int kind);

std::unique_ptr<QMessageBox> MakeCrashBox(CrashKind kind);

} // namespace vorta::desktop

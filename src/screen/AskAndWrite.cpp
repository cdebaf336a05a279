#include "screen/AskAndWrite.h"

#include "screen/Program.h"

namespace vorta::screen {

void AskAndWrite(Program& program, const QString& suggested, const std::function<void(const QString& path)>& write) {
    const QString path = program.platform().askForFile(suggested);
    if (path.isEmpty())
        return;
    try {
        write(path);
    } catch (const RuntimeError& error) {
        if (error.number() != errorNumber::PathRefused)
            throw;
        program.MsgBox({error.description(), {}, Icon::Critical, Buttons::OK});
    }
}

} // namespace vorta::screen

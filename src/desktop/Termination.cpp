#include "desktop/Termination.h"

#include "base/EngineWatch.h"
#include "system/Endings.h"

namespace vorta::desktop {

// Should the loop stand inside a call to the database, the watch over that hears of the wish.
Termination::Termination(std::function<void()> onRequest) {
    system::OnEnding(this, std::move(onRequest), EngineWatch::WantEnd);
}

void Termination::listen() {
    system::ListenForEndings();
}

} // namespace vorta::desktop

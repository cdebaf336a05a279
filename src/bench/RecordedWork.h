#pragma once

#include "bench/Case.h"
#include "bench/Lazy.h"
#include "bench/Recorder.h"

namespace vorta::bench {

/// `steps` pieces of work of a world against the statements that they send: recorded once by `World::statementsOf`,
/// then sent by the bare client in `World::sendsBare`.
template <typename World>
Case RecordedWork(const Lazy<World>& world, const char* name, const char* unit, int steps, void (World::*ours)(int),
                  double limit) {
    const auto statements = std::make_shared<std::vector<Recorder::Statements>>();
    return {QString::fromUtf8(name), QString::fromUtf8(unit),
            [=] {
                for (int step = static_cast<int>(statements->size()); step < steps; ++step)
                    statements->push_back(world->statementsOf([&] { ((*world).*ours)(step); }));
                return Microseconds(steps, [&] {
                    for (const Recorder::Statements& sent : *statements)
                        world->sendsBare(sent);
                });
            },
            [=] {
                return Microseconds(steps, [&] {
                    for (int step = 0; step < steps; ++step)
                        ((*world).*ours)(step);
                });
            },
            limit};
}

} // namespace vorta::bench

#include "bench/ScreenBench.h"

#include "base/Literals.h"
#include "firebird/EmbeddedEngine.h"
#include "kit/Create.h"
#include "launch/ConectaServidor.h"

namespace vorta::bench {

ScreenBench::ScreenBench(int persons) {
    firebird::PrepareEmbeddedEngine(folder_.path());
    kit::CreateInstallation(folder_.path(), {.people = persons});
    firebird::SetForcedWrites(folder_.filePath(u"base/pessoas.fdb"_s), false);
    contexto.Ambiente = u"PRD"_s;
    ConectaServidor(contexto);
    bare = std::make_unique<BareClient>(contexto.StringConexaoFirebird);
}

Case ScreenBench::work(const QString& name, const QString& unit, int steps, const std::function<void()>& ours,
                       double limit, int rounds) {
    const auto statements = std::make_shared<QList<QByteArray>>();
    return {name,
            unit,
            [=, self = shared_from_this()] {
                if (statements->isEmpty()) {
                    self->heard_ = QList<QByteArray>();
                    ours();
                    *statements = *std::exchange(self->heard_, std::nullopt);
                }
                return Microseconds(steps, [&] {
                    for (const QByteArray& text : *statements)
                        self->bare->send(text);
                });
            },
            [=] { return Microseconds(steps, ours); },
            limit,
            rounds};
}

} // namespace vorta::bench

#include "bench/ScreenBench.h"

#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Create.h"
#include "launch/ConectaServidor.h"

namespace vorta::bench {

ScreenBench::ScreenBench(int persons)
    : contexto(
          program, [](data::Engine) { return data::MakeFirebirdAdapter(); },
          [heard = heard_](const QString& text) {
              if (*heard)
                  **heard += text.toUtf8();
          }) {
    firebird::PrepareEmbeddedEngine(folder_.path());
    kit::CreateInstallation(folder_.path(), {.people = persons});
    contexto.Ambiente = QStringLiteral("PRD");
    ConectaServidor(contexto);
    bare = std::make_shared<BareClient>(contexto.StringConexaoFirebird);
}

Case ScreenBench::work(const QString& name, const QString& unit, int steps, std::function<void()> ours, double limit,
                       int rounds) const {
    const auto statements = std::make_shared<QList<QByteArray>>();
    const auto hear = [=, heard = heard_] {
        if (!statements->isEmpty())
            return;
        *heard = QList<QByteArray>();
        ours();
        *statements = *std::exchange(*heard, std::nullopt);
    };
    return {name,
            unit,
            [=, client = bare] {
                hear();
                return Microseconds(steps, [&] {
                    for (const QByteArray& text : *statements)
                        client->send(text);
                });
            },
            [=] { return Microseconds(steps, ours); },
            limit,
            rounds};
}

} // namespace vorta::bench

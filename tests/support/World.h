#pragma once

#include "base/Literals.h"
#include "launch/ContextoExecucao.h"
#include "screen/User.h"
#include "support/ErrorOf.h"
#include "support/FailingStatements.h"
#include "support/FakeDatabase.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace vorta::test {

/// A register without windows and, unless it is given one, without an engine; every fixture that needs more than a
/// platform builds on it. Its platform fails a test that ends with an answer left over or with a box that nobody has
/// looked at.
template <typename PlatformKind = TestPlatform>
struct WorldOn {
    explicit WorldOn(data::AdapterFactory engine = {}) : failures(engine ? std::move(engine) : database.factory()) {}

    PlatformKind platform;
    FakeDatabase database;
    FailingStatements failures;
    screen::Program program{platform};
    ContextoExecucao contexto{program, failures.factory()};
    screen::User user{program};

    /// Opens the main connection as the launch would, with that engine tag.
    void connect(const QString& tag = u"FIREBIRD"_s) { connect(tag, tag); }
    void connect(const QString& tag, const QString& connectionString) {
        contexto.TipoBanco = tag;
        contexto.ConexaoPrincipal = contexto.novaConexao();
        contexto.ConexaoPrincipal->Open(contexto.isFirebird() ? data::Engine::Firebird : data::Engine::SqlServer,
                                        connectionString);
    }
    /// One event; false when it ended the program.
    bool run(const std::function<void()>& event) { return program.dispatch(event); }
    /// The number of the run-time error that ended the program, 0 for none. Its box has been looked at then.
    int failure() const {
        if (!program.failure())
            return 0;
        (void)platform.boxes.back();
        return program.failure()->number();
    }

    /// The company has a switch with this value.
    void parameter(const char* name, const char* value) {
        database.answer(u"NOME_PARA='%1'"_s.arg(QLatin1StringView(name)), {{u"VALO_PARA"_s}, {{text(value)}}});
    }
    /// The statements sent since the last `forget` that have this part.
    QStringList sentWith(const char* part) const {
        return database.sent.filter(QString::fromUtf8(part), Qt::CaseInsensitive);
    }
    void forget() { database.sent.clear(); }
};

using World = WorldOn<>;

} // namespace vorta::test

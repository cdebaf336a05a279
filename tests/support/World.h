#pragma once

#include "base/Literals.h"
#include "launch/ContextoExecucao.h"
#include "support/ErrorOf.h"
#include "support/FakeDatabase.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace vorta::test {

/// A register without windows and without an engine, for the routines below the screens.
struct World {
    TestPlatform platform;
    screen::Program program{platform};
    FakeDatabase database;
    ContextoExecucao contexto{program, database.factory()};

    /// Opens the main connection as the launch would, with that engine tag.
    void connect(const QString& tag = u"FIREBIRD"_s) {
        contexto.TipoBanco = tag;
        contexto.ConexaoPrincipal = contexto.novaConexao();
        contexto.ConexaoPrincipal->Open(tag == u"FIREBIRD" ? data::Engine::Firebird : data::Engine::SqlServer, tag);
    }
    /// One event; false when it ended the program.
    bool run(const std::function<void()>& event) { return program.dispatch(event); }
};

} // namespace vorta::test

#pragma once

#include "app/Register.h"
#include "support/TestPlatform.h"

namespace vorta::test {

/// The whole register, without windows and without a database. Its platform fails a test that ends with an answer left
/// over or with a box that nobody has looked at.
struct RegisterWorld {
    TestPlatform platform;
    Register registro{platform};

    ContextoExecucao& contexto() { return registro.context(); }
    screen::Screen& telaDe(const QString& nome) { return contexto().Tela(nome); }
};

} // namespace vorta::test

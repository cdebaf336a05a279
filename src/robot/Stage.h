#pragma once

#include "data/Connection.h"
#include "launch/ContextoExecucao.h"
#include "screen/User.h"

#include <memory>

namespace vorta::robot {

/// A program that a scenario plays.
class Cast {
  public:
    virtual ~Cast() = default;
    virtual screen::Program& program() = 0;
    virtual ContextoExecucao& context() = 0;
    virtual screen::User& user() = 0;
    /// Starts it and returns when it has ended.
    virtual void start(const QString& launchString) = 0;
};

/// The databases of an installation, as a scenario names them.
enum class Base { Main, History, Development, PostalCode };

/// What a scenario stands on: an installation of its own, the program, and a look at the databases beside the program.
class Stage {
  public:
    virtual ~Stage() = default;
    /// Root of the installation, without a closing separator.
    virtual QString home() const = 0;
    /// The engine that the program works on.
    virtual data::Engine engine() const = 0;
    virtual std::unique_ptr<Cast> cast(screen::Platform& platform, data::StatementTrace trace) = 0;
    /// Runs a statement by a connection of its own and commits it; raises the engine's error.
    virtual void execute(Base base, const QString& statement) = 0;
    /// The rows of a query, columns divided by "|", rows by "\n", in the form of `RowText`.
    virtual QString query(Base base, const QString& statement) = 0;
};

} // namespace vorta::robot

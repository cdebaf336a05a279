#pragma once

#include "launch/ContextoExecucao.h"
#include "screen/User.h"

namespace vorta {

/// A whole register, ready to start: program, context and all screens. Two of them can live in one process.
class Register {
  public:
    /// Puts something between the register and the adapter of an engine.
    using Between = std::function<std::unique_ptr<data::Adapter>(std::unique_ptr<data::Adapter>)>;

    /// `trace` hears every statement as the flows send it, on both connections; `between` is asked for each of them.
    explicit Register(screen::Platform& platform, data::StatementTrace trace = {}, Between between = {});

    /// Starts with a launch string and returns when the program has ended (it runs the start screen modally through the
    /// platform).
    void start(const QString& launchString);

    screen::Program& program() { return program_; }
    ContextoExecucao& context() { return contexto_; }
    screen::User& user() { return user_; }

    /// The launch string in the arguments of the process, the program's name first. It is the whole command line: a
    /// blank that no quotes hold together has made two arguments of it.
    static QString launchStringOf(const QStringList& arguments);

    /// The name of the screen that a start shows.
    static QString startScreen();

  private:
    std::unique_ptr<data::Adapter> makeAdapter(data::Engine engine);

    Between between_;
    screen::Program program_;
    ContextoExecucao contexto_;
    screen::User user_;
    std::function<void()> whileOpening_; ///< what is left to do while the first connection is being opened
};

} // namespace vorta

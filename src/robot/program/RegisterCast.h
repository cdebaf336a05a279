#pragma once

#include "app/Register.h"
#include "robot/Stage.h"

#include <functional>

namespace vorta::robot {

/// The whole register as the program of a scenario; `beforeStart` comes in front of each of its starts.
class RegisterCast : public Cast {
  public:
    RegisterCast(screen::Platform& platform, data::StatementTrace trace,
                 std::function<void(const QString& launchString)> beforeStart)
        : register_(platform, std::move(trace)), beforeStart_(std::move(beforeStart)) {}

    screen::Program& program() override { return register_.program(); }
    ContextoExecucao& context() override { return register_.context(); }
    screen::User& user() override { return register_.user(); }
    void start(const QString& launchString) override {
        beforeStart_(launchString);
        register_.start(launchString);
    }

  private:
    Register register_;
    std::function<void(const QString&)> beforeStart_;
};

} // namespace vorta::robot

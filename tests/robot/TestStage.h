#pragma once

#include "base/Literals.h"
#include "robot/Player.h"
#include "support/FakeDatabase.h"

namespace vorta::test {

/// A program of two small screens that has one of everything a scenario can name.
class TestStage : public robot::Stage {
  public:
    QString home() const override { return home_; }
    data::Engine engine() const override { return data::Engine::Firebird; }
    std::unique_ptr<robot::Cast> cast(screen::Platform& platform, data::StatementTrace trace) override;
    void execute(robot::Base base, const QString& statement) override;
    QString query(robot::Base base, const QString& statement) override;

    void setHome(const QString& home) { home_ = home; }

    FakeDatabase database;
    QStringList executed; ///< "0:statement", the number being that of the base
    QStringList queried;
    QString rows; ///< what every query gives
    int casts = 0;

  private:
    QString home_ = u"/no/such/installation"_s;
};

/// The verdict of a scenario on that stage as "line: message"; empty when it passes.
std::string Play(TestStage& stage, const char* scenario);
std::string Play(const char* scenario);

} // namespace vorta::test

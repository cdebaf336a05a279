#pragma once

#include "data/Adapter.h"
#include "robot/program/Installation.h"
#include "tds/TdsServer.h"

#include <map>

namespace vorta::test {

/// The stage of a scenario played against the SQL Server side. What a scenario prepares before its launch goes into a
/// copy of the embedded installation; the launch takes the rows of that copy over into the test server, points the
/// configuration at it, and from then on the program and the scenario's own looks go there.
class SqlServerStage : public robot::Stage {
  public:
    SqlServerStage(const QString& home, const QString& copy);

    QString home() const override { return embedded_.home(); }
    std::unique_ptr<robot::Cast> cast(screen::Platform& platform, data::StatementTrace trace) override;
    void execute(robot::Base base, const QString& statement) override;
    QString query(robot::Base base, const QString& statement) override;

    /// Moves the installation to the server; later calls change nothing.
    void moveToServer();
    /// Every request that the server has got.
    QStringList wireTrace() const { return server_ ? server_->trace() : QStringList(); }

  private:
    void takeOver(const QString& file, int line, const QString& database, bool postalCode);
    data::Adapter& connection(robot::Base base);

    robot::Installation embedded_;
    std::unique_ptr<TdsServer> server_;
    std::map<robot::Base, std::unique_ptr<data::Adapter>> connections_;
};

} // namespace vorta::test

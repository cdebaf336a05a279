#pragma once

#include "robot/program/SqlServerHost.h"
#include "servers/TdsServer.h"

#include <QFile>
#include <map>
#include <set>

namespace vorta::robot {

/// The test server, which starts with databases that are there already: one process for those that a first launch of a
/// scenario needs, another for the next environment.
class OwnSqlServer : public SqlServerHost {
  public:
    /// `folder` takes the files that the server reads at its start; `wire`, unless empty, what it hears.
    OwnSqlServer(const QString& folder, const QString& wire);

    void take(Base base, const TableRows& rows) override;
    void open() override;
    SqlServerLogin login(Base base) const override;

  private:
    QString folder_;
    QString wire_;
    QFile rows_;
    std::set<Base> taken_; ///< their rows have come, their server has not started yet
    std::map<Base, std::shared_ptr<servers::TdsServer>> servers_;
};

} // namespace vorta::robot

#pragma once

#include "data/Adapter.h"
#include "robot/program/SqlServerHost.h"

#include <map>

namespace vorta::robot {

/// A database on a server that somebody gave: the tables of one environment and of the postal codes stand in it for the
/// length of a scenario. One run at a time works on a database.
class GivenSqlServer : public SqlServerHost {
  public:
    /// `connectionString` is "server=...;uid=...;pwd=...;database=..."; `Failure` for any other.
    explicit GivenSqlServer(const QString& connectionString);

    void take(Base base, const TableRows& rows) override;
    void open() override;
    SqlServerLogin login(Base) const override { return login_; }

    /// Raises `Failure` when one of the tables stands in the database already; it is somebody else's.
    void requireNoTable();
    /// Removes the tables that stand there; only behind `requireNoTable`, so that they are this run's own.
    void dropTables();

  private:
    data::Adapter& connection();
    void run(const QString& statement);
    bool stands(const kit::Table& table);
    void makeTables(kit::Base kind);

    SqlServerLogin login_;
    std::unique_ptr<data::Adapter> connection_;
    std::map<kit::Base, Base> taken_; ///< the database that a kind of tables holds
    std::vector<kit::Base> unindexed_;
};

} // namespace vorta::robot

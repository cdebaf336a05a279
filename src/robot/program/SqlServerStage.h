#pragma once

#include "robot/program/Installation.h"
#include "robot/program/SqlServerHost.h"

#include <set>

namespace vorta::robot {

/// The stage of a scenario on SQL Server. What a scenario prepares before its launch goes into the copy of the embedded
/// installation. A launch moves the databases that it needs to the server, their files go, and from then on the
/// program, by the lines of its configuration, and the scenario's own looks work there.
class SqlServerStage : public Installation {
  public:
    /// `tag` is the engine tag of the lines; those of the postal codes get "MS-SQL" where their file does not know it.
    SqlServerStage(const QString& home, const QString& copy, std::unique_ptr<SqlServerHost> host, const QString& tag)
        : Installation(home, copy), host_(std::move(host)), tag_(tag) {
        if (host_->holdsAll())
            for (const auto& [base, file] : files())
                moved_.insert(base);
    }

    data::Engine engine() const override { return data::Engine::SqlServer; }
    void execute(Base base, const QString& statement) override;
    QString query(Base base, const QString& statement) override;

  protected:
    void beforeStart(Base main) override;

  private:
    void move(Base base);
    TableRows rowsOf(Base base, const kit::Table& table);
    void lead(ServerLine& line, Base base) const; ///< to the server
    data::Adapter& onServer(Base base);

    std::unique_ptr<SqlServerHost> host_;
    QString tag_;
    std::set<Base> moved_;
    std::map<Base, std::unique_ptr<data::Adapter>> onServer_;
};

} // namespace vorta::robot

#pragma once

#include "robot/program/SqlServerHost.h"

namespace vorta::robot {

/// A test server that somebody else has started with the databases of the installation, for a machine without an engine
/// that could prepare them. It is started anew for each scenario.
class StandingSqlServer : public SqlServerHost {
  public:
    explicit StandingSqlServer(const QString& port) : port_(port) {}

    bool holdsAll() const override { return true; }
    void take(Base, const TableRows&) override {}
    void open() override {}
    SqlServerLogin login(Base base) const override {
        return {u"127.0.0.1,"_s + port_, u"vorta"_s, u"vorta"_s, DatabaseOf(base)};
    }

  private:
    QString port_;
};

} // namespace vorta::robot

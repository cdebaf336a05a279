#pragma once

#include "robot/program/Installation.h"
#include "servers/FirebirdServer.h"

namespace vorta::robot {

/// The copy of an installation whose database files a Firebird server opens: for the looks beside the program, and for
/// the program itself by the lines of its configuration. Lines that a scenario writes are redirected too, at the next
/// launch, so that nobody opens a file which the server holds.
class ServedInstallation : public Installation {
  public:
    ServedInstallation(const QString& home, const QString& copy, const servers::FirebirdServer& server)
        : Installation(home, copy), server_(server) {}

  protected:
    QString connectionTo(const QString& file) const override { return server_.connectionString(file); }
    void beforeStart(Base) override {
        redirect([this](ServerLine& line, const QString& file) { line.firebirdConnection = connectionTo(file); });
    }

  private:
    const servers::FirebirdServer& server_;
};

} // namespace vorta::robot

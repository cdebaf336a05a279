#pragma once

#include "base/Literals.h"

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace vorta::servers {

/// The server of servers/tds, which stands for SQL Server; it ends with the object, or with this process.
class TdsServer {
  public:
    /// `options` as tds_server.py takes them, its tables and rows among them; throws `std::runtime_error` when it does
    /// not start.
    explicit TdsServer(const QStringList& options);
    ~TdsServer();

    /// Throws `std::runtime_error` when there is no such server on this machine.
    static void require();

    int port() const { return port_; }
    /// The connection string of an engine tag's form for this server.
    QString connectionString(const char* form, const QString& password = u"vorta"_s,
                             const QString& database = u"VORTA"_s) const;
    QString connectionString() const;
    /// Every request that came over the wire so far.
    QStringList trace() const;

  private:
    QTemporaryDir folder_;
    QProcess process_;
    int port_ = 0;
};

} // namespace vorta::servers

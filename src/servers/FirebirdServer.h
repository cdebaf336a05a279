#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace vorta::servers {

/// A Firebird server of this run's own: a child process on a free port of the loopback address, with its root and its
/// users in a temporary folder. It ends with the object, or with this process.
class FirebirdServer {
  public:
    /// Starts it and waits until it answers; throws `std::runtime_error` with the reason when it does not come up.
    FirebirdServer();
    ~FirebirdServer();

    /// The connection string of a database file, for the one user that there is; a relative path begins in the server's
    /// folder.
    QString connectionString(const QString& file) const;
    /// Ends the server as a power cut would.
    void kill();
    /// Lets the server answer nothing, as a machine that hangs; and again.
    void pause();
    void resume();

  private:
    QString securityDatabase() const;
    void prepareRoot();
    void makeUser();
    void start();

    QTemporaryDir folder_;
    int port_ = 0;
    QProcess process_;
};

} // namespace vorta::servers

#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace vorta::test {

/// A Firebird server of this test's own: a child process on a free port of the loopback address, with its root, its
/// users and its databases in a temporary folder. It ends with the object.
class FirebirdServer {
  public:
    /// Starts it and waits until it answers; throws `std::runtime_error` with the reason when it does not come up.
    FirebirdServer();
    ~FirebirdServer();

    /// The one that the shared suite uses, started at its first use.
    static FirebirdServer& shared();

    /// The connection string of a database file in the server's folder.
    QString connectionString(const QString& file) const;
    /// Ends the server as a power cut would.
    void kill();

  private:
    void prepareRoot();
    void makeUser();
    void start();

    QTemporaryDir folder_;
    int port_ = 0;
    QProcess process_;
};

} // namespace vorta::test

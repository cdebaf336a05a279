#include "kit/MoveToServer.h"

#include "firebird/ConnectionText.h"
#include "kit/Check.h"

#include <QFile>
#include <QProcess>
#include <stdexcept>

namespace vorta::test {

namespace {

/// Runs the engine's backup tool with the engine's root of this process.
void gbak(const Installed& installed, const QStringList& arguments) {
    constexpr int longest = 120'000;
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("FIREBIRD"), qEnvironmentVariable("FIREBIRD"));
    tool.setProcessEnvironment(environment);
    tool.setWorkingDirectory(installed.home());
    tool.start(QStringLiteral("gbak"), arguments);
    if (!tool.waitForFinished(longest) || tool.exitCode() != 0)
        throw std::runtime_error("gbak: " + tool.readAllStandardError().toStdString());
}

} // namespace

QString MoveToServer(const Installed& installed, const servers::FirebirdServer& server) {
    const QString connection = server.connectionString(QStringLiteral("pessoas.fdb"));
    const firebird::ConnectionText there = firebird::ReadConnectionText(connection);
    gbak(installed, {QStringLiteral("-b"), QStringLiteral("-user"), QStringLiteral("SYSDBA"),
                     QStringLiteral("base/pessoas.fdb"), QStringLiteral("pessoas.fbk")});
    gbak(installed, {QStringLiteral("-c"), QStringLiteral("-user"), there.user, QStringLiteral("-pas"), there.password,
                     QStringLiteral("pessoas.fbk"), there.database});
    const QStringList before = *kit::LinesOf(installed.layout().config(QStringLiteral("server.ini")));
    installed.write(QStringLiteral("config/server.ini"),
                    QStringLiteral("127.0.0.1^pessoas^%1^%2^FIREBIRD^%3^False^\n%4\n%5\n")
                        .arg(there.user, there.password, connection, before[1], before[2])
                        .toUtf8());
    QFile::remove(installed.production());
    return connection;
}

} // namespace vorta::test

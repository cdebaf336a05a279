#include "kit/MoveToServer.h"

#include "base/Literals.h"
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
    environment.insert(u"FIREBIRD"_s, qEnvironmentVariable("FIREBIRD"));
    tool.setProcessEnvironment(environment);
    tool.setWorkingDirectory(installed.home());
    tool.start(u"gbak"_s, arguments);
    if (!tool.waitForFinished(longest) || tool.exitCode() != 0)
        throw std::runtime_error("gbak: " + tool.readAllStandardError().toStdString());
}

} // namespace

QString MoveToServer(const Installed& installed, const servers::FirebirdServer& server) {
    const QString connection = server.connectionString(u"pessoas.fdb"_s);
    const firebird::ConnectionText there = firebird::ReadConnectionText(connection);
    gbak(installed, {u"-b"_s, u"-user"_s, u"SYSDBA"_s, u"base/pessoas.fdb"_s, u"pessoas.fbk"_s});
    gbak(installed, {u"-c"_s, u"-user"_s, there.user, u"-pas"_s, there.password, u"pessoas.fbk"_s, there.database});
    const QStringList before = *kit::LinesOf(installed.layout().config(u"server.ini"_s));
    installed.write(u"config/server.ini"_s, u"127.0.0.1^pessoas^%1^%2^FIREBIRD^%3^False^\n%4\n%5\n"_s
                                                .arg(there.user, there.password, connection, before[1], before[2])
                                                .toUtf8());
    QFile::remove(installed.production());
    return connection;
}

} // namespace vorta::test

#include "conformance/FirebirdServer.h"
#include "firebird/ConnectionText.h"
#include "kit/Check.h"
#include "kit/Installed.h"
#include "kit/Loader.h"

#include <QProcess>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

/// Runs the engine's backup tool with the installation's own engine.
void gbak(const Installed& installed, const QStringList& arguments) {
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("FIREBIRD"), qEnvironmentVariable("FIREBIRD"));
    tool.setProcessEnvironment(environment);
    tool.setWorkingDirectory(installed.home());
    tool.start(QStringLiteral("gbak"), arguments);
    ASSERT_TRUE(tool.waitForFinished(120'000));
    ASSERT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().constData();
}

} // namespace

/// The road of docs/servidor.md: backup here, restore there, one line of "server.ini" changed.
TEST(Server, an_embedded_base_moves_to_a_server_with_all_that_is_in_it) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    test::FirebirdServer server;
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
    QFile::remove(installed.production()); // whatever is read now comes from the server

    for (const kit::Finding& finding : kit::CheckInstallation(installed.home()))
        EXPECT_TRUE(finding.right) << finding.words.toStdString();
    kit::Loader moved(connection), original(Installed::demonstration().production());
    for (const char* query : {"SELECT COUNT(*) FROM PESS", "SELECT SUM(QTDE * VALO_LIQU) FROM PEDI_VEDS_DETA",
                              "SELECT GEN_ID(GEN_PESS, 0) FROM RDB$DATABASE",
                              "SELECT COUNT(*) FROM MUNI_IBGE WHERE DESC_MUNI_IBGE LIKE '%sao%'"})
        EXPECT_EQ(moved.rows(QString::fromLatin1(query)), original.rows(QString::fromLatin1(query))) << query;
}

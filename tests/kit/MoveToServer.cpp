#include "kit/MoveToServer.h"

#include "base/Literals.h"
#include "firebird/ConnectionText.h"
#include "kit/Copies.h"

#include <QFile>

namespace vorta::test {

QString MoveToServer(const Installed& installed, const servers::FirebirdServer& server) {
    const QString connection = server.connectionString(u"pessoas.fdb"_s);
    const firebird::ConnectionText there = firebird::ReadConnectionText(connection);
    const QString copy = installed.home() + u"/pessoas.fbk"_s;
    kit::BackUpBase(installed.home(), u"PRD"_s, copy);
    const QStringList before = *kit::LinesOf(installed.layout().config(u"server.ini"_s));
    installed.write(u"config/server.ini"_s, u"127.0.0.1^pessoas^%1^%2^FIREBIRD^%3^False^\n%4\n%5\n"_s
                                                .arg(there.user, there.password, connection, before[1], before[2])
                                                .toUtf8());
    kit::RestoreBase(installed.home(), u"PRD"_s, copy, false);
    QFile::remove(installed.production());
    return connection;
}

} // namespace vorta::test

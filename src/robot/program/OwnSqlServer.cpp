#include "robot/program/OwnSqlServer.h"

#include "kit/Ddl.h"
#include "robot/Scenario.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace vorta::robot {

namespace {

QString databaseOf(Base base) {
    switch (base) {
    case Base::Main:
        return QStringLiteral("VORTA");
    case Base::History:
        return QStringLiteral("HISTORICO");
    case Base::Development:
        return QStringLiteral("DESENVOLVIMENTO");
    case Base::PostalCode:
        return QStringLiteral("CEP");
    }
    return {};
}

/// The tables of databases, in the server's form of a script.
QByteArray definitions(const std::set<Base>& bases) {
    QString script;
    for (const Base base : bases) {
        script += QStringLiteral("USE %1\nGO\n").arg(databaseOf(base));
        for (const QStringList& statements : {kit::TableStatements(data::Engine::SqlServer, KindOf(base)),
                                              kit::IndexStatements(data::Engine::SqlServer, KindOf(base))})
            for (const QString& statement : statements)
                script += statement + QStringLiteral("\nGO\n");
    }
    return script.toUtf8();
}

} // namespace

OwnSqlServer::OwnSqlServer(const QString& folder, const QString& wire)
    : folder_(folder), wire_(wire), rows_(folder + QStringLiteral("/rows.jsonl")) {}

void OwnSqlServer::take(Base base, const TableRows& rows) {
    if (!rows_.isOpen() && !rows_.open(QIODevice::WriteOnly))
        throw Failure{QStringLiteral("%1 cannot be written").arg(rows_.fileName())};
    taken_.insert(base);
    QJsonObject line{{QStringLiteral("table"), rows.table.name},
                     {QStringLiteral("database"), databaseOf(base)},
                     {QStringLiteral("columns"), rows.columns},
                     {QStringLiteral("rows"), rows.rows}};
    if (rows.lastKey)
        line.insert(QStringLiteral("identity"), *rows.lastKey);
    rows_.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
}

void OwnSqlServer::open() {
    if (taken_.empty())
        return;
    rows_.close();
    QFile tables(folder_ + QStringLiteral("/tables.sql"));
    if (!tables.open(QIODevice::WriteOnly) || tables.write(definitions(taken_)) < 0)
        throw Failure{QStringLiteral("%1 cannot be written").arg(tables.fileName())};
    tables.close();
    QStringList options{QStringLiteral("--collation"), QStringLiteral("Latin1_General_CI_AI")};
    for (const Base base : taken_)
        options += {QStringLiteral("--database"), databaseOf(base)};
    if (!wire_.isEmpty())
        options += {QStringLiteral("--trace"), wire_};
    const auto server = std::make_shared<servers::TdsServer>(
        options, QStringList{QStringLiteral("--ddl"), tables.fileName(), QStringLiteral("--load"), rows_.fileName()});
    for (const Base base : taken_)
        servers_[base] = server;
    taken_.clear();
}

SqlServerLogin OwnSqlServer::login(Base base) const {
    return {QStringLiteral("127.0.0.1,%1").arg(servers_.at(base)->port()), QStringLiteral("vorta"),
            QStringLiteral("vorta"), databaseOf(base)};
}

} // namespace vorta::robot

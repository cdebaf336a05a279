#include "robot/program/OwnSqlServer.h"

#include "base/Literals.h"
#include "kit/Ddl.h"
#include "robot/Scenario.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace vorta::robot {

namespace {

/// The tables of databases, in the server's form of a script.
QByteArray definitions(const std::set<Base>& bases) {
    QString script;
    for (const Base base : bases) {
        script += u"USE %1\nGO\n"_s.arg(DatabaseOf(base));
        for (const QStringList& statements : {kit::TableStatements(data::Engine::SqlServer, KindOf(base)),
                                              kit::IndexStatements(data::Engine::SqlServer, KindOf(base))})
            for (const QString& statement : statements)
                script += statement + u"\nGO\n"_s;
    }
    return script.toUtf8();
}

} // namespace

QString DatabaseOf(Base base) {
    switch (base) {
    case Base::Main:
        return u"VORTA"_s;
    case Base::History:
        return u"HISTORICO"_s;
    case Base::Development:
        return u"DESENVOLVIMENTO"_s;
    case Base::PostalCode:
        return u"CEP"_s;
    }
    return {};
}

OwnSqlServer::OwnSqlServer(const QString& folder, const QString& wire)
    : folder_(folder), wire_(wire), rows_(folder + u"/rows.jsonl"_s) {}

void OwnSqlServer::take(Base base, const TableRows& rows) {
    if (!rows_.isOpen() && !rows_.open(QIODevice::WriteOnly))
        throw Failure{u"%1 cannot be written"_s.arg(rows_.fileName())};
    taken_.insert(base);
    QJsonObject line{{u"table"_s, rows.table.name},
                     {u"database"_s, DatabaseOf(base)},
                     {u"columns"_s, rows.columns},
                     {u"rows"_s, rows.rows}};
    if (rows.lastKey)
        line.insert(u"identity"_s, *rows.lastKey);
    rows_.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
}

void OwnSqlServer::open() {
    if (taken_.empty())
        return;
    rows_.close();
    QFile tables(folder_ + u"/tables.sql"_s);
    if (!tables.open(QIODevice::WriteOnly) || tables.write(definitions(taken_)) < 0)
        throw Failure{u"%1 cannot be written"_s.arg(tables.fileName())};
    tables.close();
    QStringList options{u"--collation"_s, u"Latin1_General_CI_AI"_s};
    for (const Base base : taken_)
        options += {u"--database"_s, DatabaseOf(base)};
    if (!wire_.isEmpty())
        options += {u"--trace"_s, wire_};
    options += {u"--ddl"_s, tables.fileName(), u"--load"_s, rows_.fileName()};
    const auto server = std::make_shared<servers::TdsServer>(options);
    for (const Base base : taken_)
        servers_[base] = server;
    taken_.clear();
}

SqlServerLogin OwnSqlServer::login(Base base) const {
    return {u"127.0.0.1,%1"_s.arg(servers_.at(base)->port()), u"vorta"_s, u"vorta"_s, DatabaseOf(base)};
}

} // namespace vorta::robot

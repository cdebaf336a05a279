#include "robot/program/GivenSqlServer.h"

#include "base/Literals.h"
#include "kit/Ddl.h"
#include "odbc/OdbcAdapter.h"
#include "robot/RowText.h"
#include "robot/Scenario.h"
#include "robot/program/Installation.h"

#include <array>

namespace vorta::robot {

namespace {

using data::Engine;

/// The engine takes no more rows in one INSERT.
constexpr int rowsOfAnInsert = 1000;

struct Key {
    QStringView name;
    QString SqlServerLogin::*place;
};

constexpr std::array keys{Key{u"server", &SqlServerLogin::server}, Key{u"uid", &SqlServerLogin::user},
                          Key{u"pwd", &SqlServerLogin::password}, Key{u"database", &SqlServerLogin::database}};

SqlServerLogin loginOf(const QString& connectionString) {
    SqlServerLogin login;
    for (const QString& part : connectionString.split(u';', Qt::SkipEmptyParts)) {
        const QString name = part.section(u'=', 0, 0).trimmed().toLower();
        for (const Key& key : keys)
            if (key.name == name)
                login.*key.place = part.section(u'=', 1);
    }
    for (const Key& key : keys) {
        // The program finds them as fields of a line.
        const QString& value = login.*key.place;
        if (value.isEmpty() || value.contains(u'^'))
            throw Failure{u"the server is no \"server=...;uid=...;pwd=...;database=...\""_s};
    }
    return login;
}

QString literal(const QJsonValue& value) {
    if (value.isNull())
        return u"NULL"_s;
    if (value.isDouble())
        return QString::number(value.toInteger());
    return u'\'' + value.toString().replace(u'\'', u"''"_s) + u'\'';
}

QString rowLiteral(const QJsonArray& row) {
    QStringList values;
    for (const QJsonValue value : row)
        values += literal(value);
    return u'(' + values.join(u',') + u')';
}

} // namespace

GivenSqlServer::GivenSqlServer(const QString& connectionString) : login_(loginOf(connectionString)) {}

data::Adapter& GivenSqlServer::connection() {
    if (!connection_) {
        auto opened = data::MakeOdbcAdapter();
        opened->open(login_.connectionString(), secondsToOpen);
        connection_ = std::move(opened);
    }
    return *connection_;
}

void GivenSqlServer::run(const QString& statement) {
    connection().execute(AsOneText(statement));
}

bool GivenSqlServer::stands(const kit::Table& table) {
    RowText found;
    connection().query(AsOneText(u"SELECT OBJECT_ID('%1')"_s.arg(table.name)), found);
    return found.text() != u"<null>";
}

void GivenSqlServer::requireNoTable() {
    for (const kit::Table& table : kit::Tables())
        if (stands(table))
            throw Failure{u"the database %1 has a table %2 already; the player makes its own and removes "
                          "them, and touches no other"_s.arg(login_.database, table.name)};
}

void GivenSqlServer::dropTables() {
    for (const kit::Table& table : kit::Tables())
        if (stands(table))
            run(u"DROP TABLE %1"_s.arg(table.name));
}

void GivenSqlServer::makeTables(kit::Base kind) {
    for (const QString& statement : kit::TableStatements(Engine::SqlServer, kind))
        run(statement);
    unindexed_.push_back(kind);
}

void GivenSqlServer::take(Base base, const TableRows& taken) {
    const auto [kind, isNew] = taken_.try_emplace(KindOf(base), base);
    if (kind->second != base)
        throw Failure{u"the given database has room for one environment"_s};
    if (isNew)
        makeTables(kind->first);
    const QString& table = taken.table.name;
    QStringList columns;
    for (const QJsonValue column : taken.columns)
        columns += column.toString();
    const QString insert = u"INSERT INTO %1 (%2) VALUES "_s.arg(table, columns.join(u','));
    const bool keyed = taken.table.hasKey() && !taken.rows.isEmpty();
    if (keyed)
        run(u"SET IDENTITY_INSERT %1 ON"_s.arg(table));
    QStringList rows;
    for (qsizetype at = 0; at < taken.rows.size(); ++at) {
        rows += rowLiteral(taken.rows[at].toArray());
        if (rows.size() == rowsOfAnInsert || at + 1 == taken.rows.size()) {
            run(insert + rows.join(u','));
            rows.clear();
        }
    }
    if (keyed)
        run(u"SET IDENTITY_INSERT %1 OFF"_s.arg(table));
    // A table that never had a row takes the number itself as its next key, any other the one behind it.
    if (taken.lastKey && (keyed || *taken.lastKey > 0))
        run(u"DBCC CHECKIDENT ('%1', RESEED, %2)"_s.arg(table).arg(*taken.lastKey + (keyed ? 0 : 1)));
}

void GivenSqlServer::open() {
    for (const kit::Base kind : unindexed_)
        for (const QString& statement : kit::IndexStatements(Engine::SqlServer, kind))
            run(statement);
    unindexed_.clear();
}

} // namespace vorta::robot

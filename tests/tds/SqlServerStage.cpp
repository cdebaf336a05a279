#include "tds/SqlServerStage.h"

#include "app/Register.h"
#include "base/RuntimeError.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Ddl.h"
#include "launch/CampoDelimitado.h"
#include "odbc/OdbcAdapter.h"
#include "robot/RowText.h"
#include "robot/Scenario.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vorta::test {

namespace {

using robot::Base;

constexpr int secondsToOpen = 15;
constexpr qint16 connectionField = 6;
constexpr qint16 accentsField = 7;
constexpr int keyGivenToIdentity = 544;
const QString mainDatabase = QStringLiteral("VORTA");
const QString postalDatabase = QStringLiteral("CEP");

data::Statement asOneText(const QString& text) {
    data::Statement statement;
    statement += text;
    return statement;
}

/// The rows of a table as the test server loads them.
class JsonRows : public data::RowSink {
  public:
    void columns(const QStringList& names) override { names_ = QJsonArray::fromStringList(names); }
    void beginRow() override { row_ = {}; }
    void null() override { row_.append(QJsonValue::Null); }
    void integer(qint64 value) override { row_.append(value); }
    void decimal(data::Decimal value) override { row_.append(QString::number(value.number(), 'f', value.scale)); }
    void text(std::string_view utf8) override {
        row_.append(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
    }
    void date(const QDateTime& value) override { row_.append(value.date().toString(Qt::ISODate)); }
    void endRow() override { rows_.append(row_); }

    QByteArray line(const QString& table, const QString& database, std::optional<qint64> lastKey) const {
        QJsonObject object{
            {u"table"_qs, table}, {u"database"_qs, database}, {u"columns"_qs, names_}, {u"rows"_qs, rows_}};
        if (lastKey)
            object.insert(u"identity"_qs, *lastKey);
        return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    }

  private:
    QJsonArray names_;
    QJsonArray row_;
    QJsonArray rows_;
};

/// The first number of a query.
class OneNumber : public JsonRows {
  public:
    void integer(qint64 found) override { value = found; }
    qint64 value = 0;
};

QStringList linesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw robot::Failure{QStringLiteral("%1 cannot be read").arg(path)};
    return QString::fromUtf8(file.readAll()).split(u'\n');
}

void write(const QString& path, const QByteArray& content, QIODevice::OpenMode mode = QIODevice::WriteOnly) {
    QFile file(path);
    if (!file.open(mode) || file.write(content) != content.size())
        throw robot::Failure{QStringLiteral("%1 cannot be written").arg(path)};
}

/// The register, moved to the server when it starts.
class RegisterCast : public robot::Cast {
  public:
    RegisterCast(screen::Platform& platform, data::StatementTrace trace, SqlServerStage& stage)
        : register_(platform, std::move(trace)), stage_(stage) {}

    screen::Program& program() override { return register_.program(); }
    ContextoExecucao& context() override { return register_.context(); }
    screen::User& user() override { return register_.user(); }
    void start(const QString& launchString) override {
        stage_.moveToServer();
        register_.start(launchString);
    }

  private:
    Register register_;
    SqlServerStage& stage_;
};

/// The table of an INSERT, whose key the scenario gives itself.
QString insertedTable(const QString& statement) {
    return statement.simplified().section(u' ', 2, 2).section(u'(', 0, 0);
}

} // namespace

SqlServerStage::SqlServerStage(const QString& home, const QString& copy)
    : embedded_(home, copy, [](data::Engine) { return data::MakeFirebirdAdapter(); }, {}) {}

std::unique_ptr<robot::Cast> SqlServerStage::cast(screen::Platform& platform, data::StatementTrace trace) {
    return std::make_unique<RegisterCast>(platform, std::move(trace), *this);
}

void SqlServerStage::moveToServer() {
    if (server_)
        return;
    write(home() + u"/ddl.sql"_qs, kit::Script(data::Engine::SqlServer).toUtf8());
    write(home() + u"/rows.jsonl"_qs, {});
    takeOver(u"/config/server.ini"_qs, 0, mainDatabase, false);
    takeOver(u"/config/server_cep.ini"_qs, 0, postalDatabase, true);
    server_ = std::make_unique<TdsServer>(
        QStringList{u"--database"_qs, mainDatabase, u"--database"_qs, postalDatabase, u"--collation"_qs,
                    u"Latin1_General_CI_AI"_qs},
        QStringList{u"--ddl"_qs, home() + u"/ddl.sql"_qs, u"--load"_qs, home() + u"/rows.jsonl"_qs});
    for (const auto& [file, database] :
         {std::pair(u"/config/server.ini"_qs, mainDatabase), {u"/config/server_cep.ini"_qs, postalDatabase}}) {
        QStringList lines = linesOf(home() + file);
        QString line = lines[0].trimmed();
        lines[0] = QStringLiteral("127.0.0.1,%1^%2^vorta^vorta^MS-SQL^^%3^")
                       .arg(server_->port())
                       .arg(database, CampoDelimitado(accentsField, line));
        write(home() + file, lines.join(u'\n').toUtf8());
    }
}

void SqlServerStage::takeOver(const QString& file, int number, const QString& database, bool postalCode) {
    QString line = linesOf(home() + file).value(number).trimmed();
    auto source = data::MakeFirebirdAdapter();
    source->open(CampoDelimitado(connectionField, line), secondsToOpen);
    QByteArray content;
    for (const kit::Table& table : kit::Tables()) {
        if ((table.base == kit::Base::PostalCode) != postalCode)
            continue;
        QStringList names;
        for (const kit::Column& column : table.columns)
            names << column.name;
        JsonRows rows;
        source->query(asOneText(QStringLiteral("SELECT %1 FROM %2").arg(names.join(u','), table.name)), rows);
        std::optional<qint64> lastKey;
        if (!table.generator.isEmpty()) {
            OneNumber generator;
            source->query(asOneText(QStringLiteral("SELECT GEN_ID(%1, 0) FROM RDB$DATABASE").arg(table.generator)),
                          generator);
            lastKey = generator.value;
        }
        content += rows.line(table.name, database, lastKey);
    }
    write(home() + u"/rows.jsonl"_qs, content, QIODevice::Append);
}

data::Adapter& SqlServerStage::connection(Base base) {
    std::unique_ptr<data::Adapter>& adapter = connections_[base];
    if (!adapter) {
        adapter = data::MakeOdbcAdapter();
        adapter->open(server_->connectionString("server=%1;uid=%2;pwd=%3;database=%4", u"vorta"_qs,
                                                base == Base::PostalCode ? postalDatabase : mainDatabase),
                      secondsToOpen);
    }
    return *adapter;
}

void SqlServerStage::execute(Base base, const QString& statement) {
    if (!server_)
        return embedded_.execute(base, statement);
    data::Adapter& adapter = connection(base);
    try {
        adapter.execute(asOneText(statement));
    } catch (const RuntimeError& error) {
        if (error.engineCode() != keyGivenToIdentity)
            throw;
        const QString setting = QStringLiteral("SET IDENTITY_INSERT %1 ").arg(insertedTable(statement));
        adapter.execute(asOneText(setting + u"ON"_qs));
        adapter.execute(asOneText(statement));
        adapter.execute(asOneText(setting + u"OFF"_qs));
    }
}

QString SqlServerStage::query(Base base, const QString& statement) {
    if (!server_)
        return embedded_.query(base, statement);
    robot::RowText rows;
    connection(base).query(asOneText(statement), rows);
    return rows.text();
}

} // namespace vorta::test

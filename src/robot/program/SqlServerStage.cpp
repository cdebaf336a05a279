#include "robot/program/SqlServerStage.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/EngineTags.h"
#include "odbc/OdbcAdapter.h"
#include "robot/RowText.h"

#include <QFile>
#include <algorithm>

namespace vorta::robot {

namespace {

constexpr int keyGivenToIdentity = 544;

/// Collects the rows of a table.
class JsonRows : public data::RowSink {
  public:
    void columns(const QStringList&) override {}
    void beginRow() override { row_ = {}; }
    void null() override { row_.append(QJsonValue::Null); }
    void integer(qint64 value) override { row_.append(value); }
    void decimal(data::Decimal value) override { row_.append(QString::number(value.number(), 'f', value.scale)); }
    void text(std::string_view utf8) override {
        row_.append(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
    }
    void date(const QDateTime& value) override { row_.append(value.date().toString(Qt::ISODate)); }
    void endRow() override { rows.append(row_); }

    QJsonArray rows;

  private:
    QJsonArray row_;
};

/// The table of an INSERT, whose key the scenario gives itself.
QString insertedTable(const QString& statement) {
    return statement.simplified().section(u' ', 2, 2).section(u'(', 0, 0);
}

} // namespace

void SqlServerStage::beforeStart(Base main) {
    for (const Base base : {main, Base::PostalCode})
        if (files().contains(base) && !moved_.contains(base))
            move(base);
    host_->open();
    redirect([this](ServerLine& line, const QString& file) {
        const auto known =
            std::find_if(moved_.begin(), moved_.end(), [&](Base base) { return files().at(base) == file; });
        if (known != moved_.end())
            lead(line, *known);
    });
}

void SqlServerStage::move(Base base) {
    for (const kit::Table& table : kit::Tables())
        if (table.base == KindOf(base))
            host_->take(base, rowsOf(base, table));
    close(base);
    QFile::remove(files().at(base));
    moved_.insert(base);
}

TableRows SqlServerStage::rowsOf(Base base, const kit::Table& table) {
    TableRows taken{table, {}, {}, {}};
    QStringList names;
    for (const kit::Column& column : table.columns)
        names += column.name;
    taken.columns = QJsonArray::fromStringList(names);
    JsonRows sink;
    connection(base).query(AsOneText(u"SELECT %1 FROM %2"_s.arg(names.join(u','), table.name)), sink);
    taken.rows = sink.rows;
    if (!table.generator.isEmpty())
        taken.lastKey =
            Installation::query(base, u"SELECT GEN_ID(%1, 0) FROM RDB$DATABASE"_s.arg(table.generator)).toLongLong();
    return taken;
}

void SqlServerStage::lead(ServerLine& line, Base base) const {
    const SqlServerLogin login = host_->login(base);
    const data::EngineTag* tag = data::FindEngineTag(tag_);
    const bool known = base != Base::PostalCode || !tag || tag->postalCode;
    line.server = login.server;
    line.database = login.database;
    line.user = login.user;
    line.password = login.password;
    line.engine = known ? tag_ : u"MS-SQL"_s;
    line.firebirdConnection.clear();
}

data::Adapter& SqlServerStage::onServer(Base base) {
    std::unique_ptr<data::Adapter>& adapter = onServer_[base];
    if (!adapter) {
        auto opened = data::MakeOdbcAdapter();
        opened->open(host_->login(base).connectionString(), secondsToOpen);
        adapter = std::move(opened);
    }
    return *adapter;
}

void SqlServerStage::execute(Base base, const QString& statement) {
    if (!moved_.contains(base))
        return Installation::execute(base, statement);
    data::Adapter& adapter = onServer(base);
    try {
        adapter.execute(AsOneText(statement));
    } catch (const RuntimeError& error) {
        if (error.engineCode() != keyGivenToIdentity)
            throw;
        const QString setting = u"SET IDENTITY_INSERT %1 "_s.arg(insertedTable(statement));
        adapter.execute(AsOneText(setting + u"ON"_s));
        adapter.execute(AsOneText(statement));
        adapter.execute(AsOneText(setting + u"OFF"_s));
    }
}

QString SqlServerStage::query(Base base, const QString& statement) {
    if (!moved_.contains(base))
        return Installation::query(base, statement);
    RowText rows;
    onServer(base).query(AsOneText(statement), rows);
    return rows.text();
}

} // namespace vorta::robot

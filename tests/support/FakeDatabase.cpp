#include "support/FakeDatabase.h"

#include "base/Literals.h"
#include "base/Moment.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace vorta::test {

class FakeAdapter : public data::Adapter {
  public:
    FakeAdapter(FakeDatabase& database, data::Engine engine) : database_(database), engine_(engine) {}

    void open(const QString& connectionString, int timeoutSeconds) override {
        database_.opened.push_back({engine_, connectionString, timeoutSeconds});
        if (database_.refuseOpen)
            throw RuntimeError(errorNumber::ConnectionFailed);
        open_ = true;
    }
    void close() override {
        if (open_)
            database_.sent += u"CLOSE"_s;
        open_ = false;
    }
    bool isOpen() const override { return open_; }
    void begin() override { database_.sent += u"BEGIN"_s; }
    void commit() override { database_.sent += u"COMMIT"_s; }
    void rollback() override { database_.sent += u"ROLLBACK"_s; }
    void execute(const data::Statement& statement) override {
        database_.sent += statement.text();
        database_.failIfAsked(statement);
        database_.writes += statement.text();
    }
    void query(const data::Statement& statement, data::RowSink& rows) override {
        database_.sent += statement.text();
        database_.failIfAsked(statement);
        if (const auto thinks = std::exchange(database_.thinks, {}))
            thinks();
        const FakeRows* answer = database_.rowsFor(statement.text());
        rows.columns(answer ? answer->columns : QStringList());
        if (!answer)
            return;
        for (const QList<data::Value>& row : answer->rows) {
            rows.beginRow();
            for (const data::Value& value : row)
                give(value, rows);
            rows.endRow();
        }
    }

  private:
    static void give(const data::Value& value, data::RowSink& rows) {
        if (value.isNull())
            rows.null();
        else if (value.isInteger())
            rows.integer(value.toInt32());
        else if (value.isDecimal())
            rows.decimal({static_cast<qint64>(std::llround(value.number() * 100)), 2});
        else if (value.isDate())
            rows.date(value.date());
        else
            rows.text(value.text().toUtf8().toStdString());
    }

    FakeDatabase& database_;
    data::Engine engine_;
    bool open_ = false;
};

void FakeDatabase::answer(const QString& part, FakeRows rows) {
    answers_.insert(answers_.begin(), {part, std::move(rows)});
}

void FakeDatabase::fail(const QString& part, int errorNumber) {
    failures_.push_back({part, errorNumber});
}

data::AdapterFactory FakeDatabase::factory() {
    return [this](data::Engine engine) { return std::make_unique<FakeAdapter>(*this, engine); };
}

const FakeRows* FakeDatabase::rowsFor(const QString& text) const {
    const auto found = std::find_if(answers_.begin(), answers_.end(),
                                    [&](const auto& entry) { return text.contains(entry.first, Qt::CaseInsensitive); });
    return found == answers_.end() ? nullptr : &found->second;
}

void FakeDatabase::failIfAsked(const data::Statement& statement) const {
    for (const auto& [part, number] : failures_)
        if (statement.text().contains(part, Qt::CaseInsensitive))
            throw RuntimeError(number, u"falha preparada"_s, 0, {}, statement.text());
}

Thinking::Thinking(FakeDatabase& database) {
    static constexpr std::chrono::seconds patience{20};
    database.thinks = [this] { inTime_ = end_.try_acquire_for(patience); };
}

data::Value text(const char* utf8) {
    return data::Value(QString::fromUtf8(utf8));
}
data::Value number(qint64 integer) {
    return data::Value(integer);
}
data::Value amount(qint64 cents) {
    return data::Value(data::Decimal{cents, 2});
}
data::Value date(int year, int month, int day) {
    return data::Value(Moment(QDate(year, month, day)));
}
data::Value null() {
    return {};
}

} // namespace vorta::test

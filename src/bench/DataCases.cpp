#include "bench/DataCases.h"

#include "base/Literals.h"
#include "bench/BareClient.h"
#include "bench/Lazy.h"
#include "data/Recordset.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "system/Measures.h"

#include <QTemporaryDir>

namespace vorta::bench {

namespace {

using data::Recordset;
using data::Statement;

constexpr int persons = 100000;
constexpr int statements = 2000;
constexpr int writes = 200;

const QByteArray everyPerson = "select * from pess";
const QString microseconds = u"us/statement"_s;

/// One database, seen by the register's connection and by the bare client.
class DataBench {
  public:
    DataBench() : path_(folder_.filePath(u"bench.fdb"_s)), register_(adapters()) {
        firebird::CreateDatabase(path_);
        bare_ = std::make_unique<BareClient>(path_);
        fill();
        register_.Open(data::Engine::Firebird, path_);
    }

    BareClient& bare() { return *bare_; }
    data::Connection& connection() { return register_; }

    /// Keys that jump about, the same on both sides.
    int key(int step) const { return 1 + static_cast<int>((static_cast<qint64>(step) * 7919) % persons); }

  private:
    static data::AdapterFactory adapters() {
        return [](data::Engine) { return data::MakeFirebirdAdapter(); };
    }

    void fill() {
        bare_->send(
            "create table pess (idpess integer not null primary key, nome_pess varchar(60), nome_conh varchar(40), "
            "codi_cpf0 varchar(14), ende varchar(60), bair varchar(40), cida varchar(40), esta varchar(2), "
            "cep0 varchar(8), fone varchar(15), data_incl date, data_desa date, limi_cred decimal(15,2), "
            "user_incl varchar(10), obse varchar(200))");
        bare_->send("execute block as declare i integer = 1; begin while (i <= 100000) do begin "
                    "insert into pess values (:i, 'PESSOA DE NOME COMUM ' || :i, 'CONHECIDA ' || :i, "
                    "lpad(:i, 11, '0'), 'RUA DAS FLORES ' || mod(:i, 900), 'CENTRO', 'SÃO PAULO', 'SP', "
                    "lpad(mod(:i, 99999999), 8, '0'), '1130' || :i, date '2020-01-01' + mod(:i, 2000), null, :i / "
                    "7.00, '1', null); "
                    "i = i + 1; end end");
        bare_->send("create table grav (idgrav integer, nome varchar(60), data_incl date)");
    }

    QTemporaryDir folder_;
    QString path_;
    std::unique_ptr<BareClient> bare_;
    data::Connection register_;
};

using Bench = Lazy<DataBench>;

Statement byKey(int key) {
    Statement statement;
    statement << "select nome_pess from pess where idpess = " << key;
    return statement;
}

Statement byText(int key) {
    Statement statement;
    statement << "select nome_pess from pess where idpess = '" << QString::number(key) << "'";
    return statement;
}

Statement insertion(int key) {
    Statement statement;
    statement << "insert into grav (idgrav, nome, data_incl) values (" << key << ", '" << QString::number(key) << "', '"
              << u"2026/11/20"_s << "')";
    return statement;
}

/// The same statements, one read after the other, on both sides.
Case reads(const Bench& bench, const char* name, Statement (*make)(int), double limit) {
    return {QString::fromUtf8(name), microseconds,
            [bench, make] {
                return Microseconds(statements, [&] {
                    for (int i = 0; i < statements; ++i)
                        bench->bare().send(make(bench->key(i)).text().toUtf8());
                });
            },
            [bench, make] {
                return Microseconds(statements, [&] {
                    Recordset rows;
                    for (int i = 0; i < statements; ++i) {
                        rows.Open(make(bench->key(i)), bench->connection());
                        (void)rows.Fields(0).text();
                    }
                });
            },
            limit};
}

Case inserts(const Bench& bench) {
    return {u"data: inserts of one transaction"_s, microseconds,
            [bench] {
                return Microseconds(writes, [&] {
                    bench->bare().begin();
                    for (int i = 0; i < writes; ++i)
                        bench->bare().send(insertion(i).text().toUtf8());
                    bench->bare().commit();
                });
            },
            [bench] {
                return Microseconds(writes, [&] {
                    bench->connection().BeginTrans();
                    for (int i = 0; i < writes; ++i)
                        bench->connection().Execute(insertion(i));
                    bench->connection().CommitTrans();
                });
            },
            2.5};
}

Case fetch(const Bench& bench) {
    return {u"data: 100,000 rows of 15 columns fetched"_s, u"us/row"_s,
            [bench] { return Microseconds(persons, [&] { bench->bare().send(everyPerson); }); },
            [bench] {
                return Microseconds(persons, [&] {
                    Recordset rows;
                    rows.Open(Statement("select * from pess"), bench->connection());
                });
            },
            2.0};
}

Case fetchAndRead(const Bench& bench) {
    return {u"data: 100,000 rows fetched, 4 columns read"_s, u"us/row"_s,
            [bench] { return Microseconds(persons, [&] { bench->bare().send(everyPerson); }); },
            [bench] {
                return Microseconds(persons, [&] {
                    Recordset rows;
                    qsizetype length = 0;
                    for (rows.Open(Statement("select * from pess"), bench->connection()); !rows.Eof(); rows.MoveNext())
                        for (const char* column : {"idpess", "nome_pess", "cida", "data_incl"})
                            length += rows.Fields(column).text().size();
                    if (length == 0)
                        throw std::logic_error("no text was read");
                });
            },
            3.0};
}

Case memory(const Bench& bench) {
    return {u"data: memory of 100,000 rows"_s, u"bytes/row"_s,
            [bench] {
                const BareClient::Volume volume = bench->bare().volume(everyPerson);
                return static_cast<double>(volume.bytes) / static_cast<double>(volume.rows);
            },
            [bench] {
                const double before = system::AllocatedBytes();
                Recordset rows;
                rows.Open(Statement("select * from pess"), bench->connection());
                return (system::AllocatedBytes() - before) / rows.RecordCount();
            },
            1.5};
}

} // namespace

std::vector<Case> DataCases() {
    const Bench bench;
    return {reads(bench, "data: statement by key", byKey, 0.5),
            reads(bench, "data: statement by text", byText, 1.0),
            inserts(bench),
            fetch(bench),
            fetchAndRead(bench),
            memory(bench)};
}

} // namespace vorta::bench

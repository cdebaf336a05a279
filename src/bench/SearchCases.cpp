#include "bench/SearchCases.h"

#include "base/Literals.h"
#include "bench/Lazy.h"
#include "bench/QuietPlatform.h"
#include "bench/Recorder.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Create.h"
#include "launch/ConectaServidor.h"
#include "maintenance/frmInfoPess.h"
#include "search/frmBROWSE_CEPS.h"
#include "search/frmBROWSE_PESSOAS.h"
#include "system/Measures.h"

#include <QTemporaryDir>

namespace vorta::bench {

namespace {

constexpr int usualPersons = 100000;
constexpr int million = 1000000;
constexpr int shortStreets = 500;
constexpr int longStreets = 5000;

const QByteArray everyPerson = "SELECT * FROM PESS WHERE DATA_DESA IS NULL ORDER BY NOME_PESS";

/// An installation with its searches on one side and the bare client on the other.
class SearchBench {
    QTemporaryDir folder_; // goes last, when every connection is closed

  public:
    /// With an installation that is there already, or a new one of so many persons.
    explicit SearchBench(int persons, const QString& installed = {})
        : home_(installed.isEmpty() ? folder_.path() : installed) {
        firebird::PrepareEmbeddedEngine(home());
        if (installed.isEmpty())
            kit::CreateInstallation(home(), {.people = persons});
        contexto.Ambiente = u"PRD"_s;
        ConectaServidor(contexto);
        bare = std::make_unique<BareClient>(contexto.StringConexaoFirebird);
        people = static_cast<int>(bare->volume(everyPerson).rows);
    }

    /// A search for persons as a click starts it; gives its rows.
    int find(screen::Option& way, const QString& text, screen::Option& role) {
        searched.opNome.setValue(true);
        way.setValue(true);
        role.setValue(true);
        searched.cboCod.setText(text);
        searched.cmdPesquisa.Click();
        return searched.Flex.Rows() - 1;
    }
    /// The statements of such a search.
    Recorder::Statements statementsOf(screen::Option& way, const QString& text, screen::Option& role) {
        return recorder.record([&] { find(way, text, role); });
    }

    /// Opens the screen of the statistics, which counts at its opening.
    void countRegister() {
        frmInfoPess information(contexto);
        information.Load();
    }

    double microsecondsPerStreet(const char* name, int streets) {
        if (!std::exchange(streetsFilled_, true))
            fillStreets();
        ceps.txtEndereco.setText(QString::fromLatin1(name));
        return Microseconds(streets, [this] { ceps.cmdPesquisa.Click(); });
    }

    std::unique_ptr<BareClient> bare;
    int people = 0;
    Recorder recorder;

  private:
    QString home() const { return home_; }

    void fillStreets() {
        ConectaServidorCEP(contexto);
        BareClient streets(contexto.StringConexaoFirebird);
        FechaServidorCEP(contexto);
        for (const auto& [name, count] : {std::pair("CURTA", shortStreets), std::pair("LONGA", longStreets)})
            streets.send(
                QByteArray("execute block as declare i integer = 0; begin while (i < ") + QByteArray::number(count) +
                ") do begin insert into logr (cep8_logr, nome_logr, uf00_logr, chav_tipo, chav_loca, chav_bair) values "
                "(:i, 'RUA DA MEDIDA " +
                name + "', 'SP', '1', mod(:i, 90), mod(:i, 700)); i = i + 1; end end");
    }

    QString home_;
    bool streetsFilled_ = false;

  public:
    QuietPlatform platform{home_};
    screen::Program program{platform};
    ContextoExecucao contexto{program, [](data::Engine) { return data::MakeFirebirdAdapter(); },
                              [this](const QString& text) { recorder.hear(text); }};
    frmBROWSE_PESSOAS searched{contexto};
    frmBROWSE_CEPS ceps{contexto};
};

using Bench = Lazy<SearchBench>;

Case wholeRegister(const Bench& bench, const QString& name, int rounds = 11) {
    return {name,
            u"us/person"_s,
            [bench] { return Microseconds(bench->people, [&] { bench->bare->send(everyPerson); }); },
            [bench] {
                return Microseconds(bench->people,
                                    [&] { bench->find(bench->searched.opQualquerParte, {}, bench->searched.opTodos); });
            },
            0.4,
            rounds};
}

/// The same texts, one after the other, as the role filter sends them.
Case customers(const Bench& bench, const QString& name, const QString& beginning, double limit, int rounds = 11) {
    const auto texts = std::make_shared<Recorder::Statements>();
    return {name,
            u"us/statement"_s,
            [bench, beginning, texts] {
                if (texts->isEmpty())
                    *texts = bench->statementsOf(bench->searched.opInicialCom, beginning, bench->searched.opCliente);
                return Microseconds(static_cast<int>(texts->size()), [&] { Recorder::repeat(*bench->bare, *texts); });
            },
            [bench, beginning, texts] {
                return Microseconds(static_cast<int>(texts->size()), [&] {
                    bench->find(bench->searched.opInicialCom, beginning, bench->searched.opCliente);
                });
            },
            limit,
            rounds};
}

Case byBeginning(const Bench& bench) {
    const QString beginning = u"MARIA A"_s;
    const auto texts = std::make_shared<Recorder::Statements>();
    constexpr int thousand = 1000;
    return {u"search: names that begin with a text"_s, u"ms"_s,
            [bench, beginning, texts] {
                if (texts->isEmpty())
                    *texts = bench->statementsOf(bench->searched.opInicialCom, beginning, bench->searched.opTodos);
                return Microseconds(thousand, [&] { bench->bare->send(texts->front()); });
            },
            [bench, beginning] {
                return Microseconds(
                    thousand, [&] { bench->find(bench->searched.opInicialCom, beginning, bench->searched.opTodos); });
            },
            3.0};
}

/// A part of a name that nobody has, against a scan that reads one column of every row.
Case nobody(const Bench& bench, const QString& name, int rounds = 11) {
    constexpr int thousand = 1000;
    return {name,
            u"ms"_s,
            [bench] { return Microseconds(thousand, [&] { bench->bare->send("SELECT COUNT(NOME_PESS) FROM PESS"); }); },
            [bench] {
                return Microseconds(thousand, [&] {
                    if (bench->find(bench->searched.opQualquerParte, u"ZZQXW"_s, bench->searched.opTodos) != 0)
                        throw std::logic_error("somebody has this name");
                });
            },
            1.3,
            rounds};
}

Case statistics(const Bench& bench, const QString& name, int rounds = 11) {
    const auto texts = std::make_shared<Recorder::Statements>();
    constexpr int thousand = 1000;
    return {name,
            u"ms"_s,
            [bench, texts] {
                if (texts->isEmpty())
                    *texts = bench->recorder.record([&] { bench->countRegister(); });
                return Microseconds(thousand, [&] { Recorder::repeat(*bench->bare, *texts); });
            },
            [bench] { return Microseconds(thousand, [&] { bench->countRegister(); }); },
            1.2,
            rounds};
}

/// Here the floor is what a person may take.
Case memory(const Bench& bench, const QString& name, int rounds = 11) {
    constexpr double allowed = 200;
    return {name,
            u"bytes/person"_s,
            [] { return allowed; },
            [bench] {
                bench->searched.MontaGridPessoas();
                const double before = system::AllocatedBytes();
                double full = 0;
                bench->platform.atEnd = [&full] { full = system::AllocatedBytes(); };
                const int found = bench->find(bench->searched.opQualquerParte, {}, bench->searched.opTodos);
                bench->platform.atEnd = {};
                return (full - before) / found;
            },
            1.0,
            rounds};
}

Case grid(const Bench& bench) {
    constexpr double allowed = 250;
    return {u"search: memory of the grid"_s, u"bytes/person"_s, [] { return allowed; },
            [bench] {
                const int found = bench->find(bench->searched.opQualquerParte, {}, bench->searched.opTodos);
                return static_cast<double>(bench->searched.Flex.bytesUsed()) / found;
            },
            1.0};
}

/// Ten times the streets must not take more for each of them.
Case streets(const Bench& bench) {
    return {u"search: postal codes, 5000 streets against 500"_s, u"us/street"_s,
            [bench] { return bench->microsecondsPerStreet("MEDIDA CURTA", shortStreets); },
            [bench] { return bench->microsecondsPerStreet("MEDIDA LONGA", longStreets); }, 1.5};
}

} // namespace

std::vector<Case> SearchCases() {
    const Bench bench([] { return std::make_unique<SearchBench>(usualPersons); });
    return {wholeRegister(bench, u"search: whole register into the grid"_s),
            nobody(bench, u"search: a part of a name nobody has"_s),
            customers(bench, u"search: customers that begin with \"A\""_s, u"A"_s, 0.5),
            customers(bench, u"search: customers that begin with \"MARIA\""_s, u"MARIA"_s, 0.5),
            customers(bench, u"search: customers of the whole register"_s, {}, 0.3, 5),
            byBeginning(bench),
            statistics(bench, u"search: statistics of the register"_s),
            memory(bench, u"search: memory of a search"_s),
            grid(bench),
            streets(bench)};
}

std::vector<Case> MillionCases() {
    const Bench bench(
        [] { return std::make_unique<SearchBench>(million, qEnvironmentVariable("PESSOAS_BENCH_HOME")); });
    constexpr int rounds = 3;
    return {nobody(bench, u"million: a part of a name nobody has"_s, rounds),
            wholeRegister(bench, u"million: whole register into the grid"_s, rounds),
            statistics(bench, u"million: statistics of the register"_s, rounds),
            memory(bench, u"million: memory of a search"_s, 1)};
}

} // namespace vorta::bench

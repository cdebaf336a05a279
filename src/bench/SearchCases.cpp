#include "bench/SearchCases.h"

#include "base/Literals.h"
#include "bench/Lazy.h"
#include "bench/QuietPlatform.h"
#include "bench/Recorder.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Create.h"
#include "launch/ConectaServidor.h"
#include "search/frmBROWSE_CEPS.h"
#include "search/frmBROWSE_PESSOAS.h"

#include <QTemporaryDir>
#include <malloc.h>

namespace vorta::bench {

namespace {

constexpr int persons = 100000;
constexpr int shortStreets = 500;
constexpr int longStreets = 5000;

const QByteArray everyPerson = "SELECT * FROM PESS WHERE DATA_DESA IS NULL ORDER BY NOME_PESS";

double allocatedBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

/// An installation with its searches on one side and the bare client on the other.
class SearchBench {
    QTemporaryDir folder_; // goes last, when every connection is closed

  public:
    SearchBench() {
        firebird::PrepareEmbeddedEngine(home());
        kit::CreateInstallation(home(), {.people = persons});
        contexto.Ambiente = u"PRD"_s;
        ConectaServidor(contexto);
        bare = std::make_unique<BareClient>(contexto.StringConexaoFirebird);
        people = static_cast<int>(bare->volume(everyPerson).rows);
        fillStreets();
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

    double microsecondsPerStreet(const char* name, int streets) {
        ceps.txtEndereco.setText(QString::fromLatin1(name));
        return Microseconds(streets, [this] { ceps.cmdPesquisa.Click(); });
    }

    std::unique_ptr<BareClient> bare;
    int people = 0;
    Recorder recorder;

  private:
    QString home() const { return folder_.path(); }

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

  public:
    QuietPlatform platform{folder_.path()};
    screen::Program program{platform};
    ContextoExecucao contexto{program, [](data::Engine) { return data::MakeFirebirdAdapter(); },
                              [this](const QString& text) { recorder.hear(text); }};
    frmBROWSE_PESSOAS searched{contexto};
    frmBROWSE_CEPS ceps{contexto};
};

using Bench = Lazy<SearchBench>;

Case wholeRegister(const Bench& bench) {
    return {u"search: whole register into the grid"_s, u"us/person"_s,
            [bench] { return Microseconds(bench->people, [&] { bench->bare->send(everyPerson); }); },
            [bench] {
                return Microseconds(bench->people,
                                    [&] { bench->find(bench->searched.opQualquerParte, {}, bench->searched.opTodos); });
            },
            1.5};
}

/// The same texts, one after the other, as the role filter sends them.
Case customers(const Bench& bench, const QString& name, const QString& beginning, int rounds = 11) {
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
            0.5,
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

/// Here the floor is what a person may take.
Case memory(const Bench& bench) {
    constexpr double allowed = 1024;
    return {u"search: memory of a search"_s, u"bytes/person"_s, [] { return allowed; },
            [bench] {
                bench->searched.MontaGridPessoas();
                const double before = allocatedBytes();
                double full = 0;
                bench->platform.atEnd = [&full] { full = allocatedBytes(); };
                const int found = bench->find(bench->searched.opQualquerParte, {}, bench->searched.opTodos);
                bench->platform.atEnd = {};
                return (full - before) / found;
            },
            1.0};
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
    const Bench bench;
    return {wholeRegister(bench),
            customers(bench, u"search: customers that begin with \"A\""_s, u"A"_s),
            customers(bench, u"search: customers that begin with \"MARIA\""_s, u"MARIA"_s),
            customers(bench, u"search: customers of the whole register"_s, {}, 5),
            byBeginning(bench),
            memory(bench),
            grid(bench),
            streets(bench)};
}

} // namespace vorta::bench

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "bench/DataCases.h"
#include "bench/ImportCases.h"
#include "bench/MaintenanceCases.h"
#include "bench/PersonCases.h"
#include "bench/RoleCases.h"
#include "bench/SafetyCases.h"
#include "bench/SearchCases.h"
#include "bench/SqlServerCases.h"
#include "bench/TradeCases.h"
#include "firebird/EmbeddedEngine.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>

using namespace vorta;

namespace {

/// A subject that is measured: the word that its cases' names begin with, and their maker.
struct Subject {
    const char* word;
    std::vector<bench::Case> (*cases)();
};
constexpr Subject subjects[] = {{"data:", bench::DataCases},
                                {"person:", bench::PersonCases},
                                {"import:", bench::ImportCases},
                                {"roles:", bench::RoleCases},
                                {"safety:", bench::SafetyCases},
                                {"search:", bench::SearchCases},
                                {"sql server:", bench::SqlServerCases},
                                {"trade:", bench::TradeCases},
                                {"maintenance:", bench::MaintenanceCases}};
constexpr Subject million{"million:", bench::MillionCases};

/// Whether one of the subject's cases may be meant. A filter that names a subject spares the others their long set-up.
bool isMeant(const Subject& meant, const QString& filter) {
    for (const Subject& subject : subjects)
        if (filter.startsWith(QLatin1StringView(subject.word), Qt::CaseInsensitive))
            return &subject == &meant;
    return true;
}

} // namespace

/// `pessoas-bench [--million] [PART-OF-NAME]`, where `--million` measures a base of a million persons, a new one or
/// that of the installation that PESSOAS_BENCH_HOME names: exit code 0 when every limit holds, 1 when one is broken, 2
/// when nothing could be measured.
int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    // The engine's root of the measured databases goes with the run.
    const QTemporaryDir home;
    qputenv("VORTA_HOME", home.path().toUtf8());
    firebird::PrepareEmbeddedEngine(home.path());
    try {
        bench::PrintHeader();
        bool allHold = true;
        const QString filter = application.arguments().value(1);
        if (filter == u"--million"_s)
            return bench::MeasureAll(million.cases(), application.arguments().value(2)) ? 0 : 1;
        for (const Subject& subject : subjects)
            if (isMeant(subject, filter))
                allHold = bench::MeasureAll(subject.cases(), filter) && allHold;
        return allHold ? 0 : 1;
    } catch (const RuntimeError& failure) {
        std::fprintf(stderr, "%s\n%s\n", failure.what(), qUtf8Printable(failure.statement()));
        return 2;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 2;
    }
}

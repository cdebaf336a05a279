#include "base/RuntimeError.h"
#include "bench/DataCases.h"
#include "bench/PersonCases.h"
#include "bench/RoleCases.h"
#include "bench/SearchCases.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>

using namespace vorta;

namespace {

/// Every subject that is measured; a new one adds the maker of its cases.
constexpr std::vector<bench::Case> (*subjects[])() = {bench::DataCases, bench::RoleCases, bench::PersonCases,
                                                      bench::SearchCases};

constexpr int rounds = 11;

} // namespace

/// `pessoas-bench [PART-OF-NAME]`: exit code 0 when every limit holds, 1 when one is broken, 2 when nothing could be
/// measured.
int main(int count, char** arguments) {
    QCoreApplication application(count, arguments);
    // The engine's root of the measured databases goes with the run.
    const QTemporaryDir home;
    qputenv("VORTA_HOME", home.path().toUtf8());
    try {
        bench::PrintHeader();
        bool allHold = true;
        for (const auto& cases : subjects)
            allHold = bench::MeasureAll(cases(), rounds, application.arguments().value(1)) && allHold;
        return allHold ? 0 : 1;
    } catch (const RuntimeError& failure) {
        std::fprintf(stderr, "%s\n%s\n", failure.what(), qUtf8Printable(failure.statement()));
        return 2;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 2;
    }
}

#include "bench/MaintenanceCases.h"

#include "base/Literals.h"
#include "bench/ScreenBench.h"
#include "maintenance/frmInfoPess.h"
#include "system/Measures.h"

namespace vorta::bench {

namespace {

constexpr int usualPersons = 20000;
constexpr int manyPersons = 200000;

/// Every person is a write of its own: a round of many takes minutes.
int roundsOf(int persons) {
    return persons < manyPersons ? 3 : 1;
}

struct MaintenanceBench : ScreenBench {
    explicit MaintenanceBench(int persons) : ScreenBench(persons), persons(persons) {
        // A null town would end the run.
        bare->send("update pess set cida_entg_pess = coalesce(cida_entg_pess, cida_coml_pess), "
                   "uf00_entg_pess = coalesce(uf00_entg_pess, uf00_coml_pess), "
                   "cida_cobr_pess = coalesce(cida_cobr_pess, cida_coml_pess), "
                   "uf00_cobr_pess = coalesce(uf00_cobr_pess, uf00_coml_pess)");
    }

    void run() {
        int seen = 0;
        platform.onProgress = [&](qint64, qint64 total) { seen += total > 0; };
        information.cmdEspecialMun.Click();
        if (seen != persons)
            throw std::logic_error("the measured work does not do what it should");
    }

    /// What the run holds more at its last person than at its tenth, for each person between them.
    double growth() {
        constexpr int first = 10;
        double early = 0;
        double late = 0;
        platform.onProgress = [&](qint64 done, qint64 total) {
            if (done == first)
                early = system::AllocatedBytes();
            else if (done == total && total > 0)
                late = system::AllocatedBytes();
        };
        information.cmdEspecialMun.Click();
        return (late - early) / (persons - first);
    }

    int persons;
    frmInfoPess information{contexto};
};

Case memory(const std::shared_ptr<MaintenanceBench>& bench) {
    constexpr double allowed = 16;
    return {u"maintenance: memory added by the run"_s,
            u"bytes/person"_s,
            [] { return allowed; },
            [bench] { return bench->growth(); },
            1.0,
            1};
}

} // namespace

std::vector<Case> MaintenanceCases() {
    bool given = false;
    const int wanted = qEnvironmentVariableIntValue("PESSOAS_BENCH_PERSONS", &given);
    const auto bench = std::make_shared<MaintenanceBench>(given ? wanted : usualPersons);
    return {bench->work(
                u"maintenance: municipal codes of %1 persons"_s.arg(bench->persons), u"us/person"_s, bench->persons,
                [bench] { bench->run(); }, 0.8, roundsOf(bench->persons)),
            memory(bench)};
}

} // namespace vorta::bench

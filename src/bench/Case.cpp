#include "bench/Case.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace vorta::bench {

namespace {

double median(std::vector<double> figures) {
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

} // namespace

Outcome Measure(const Case& subject) {
    std::vector<double> floor;
    std::vector<double> ours;
    subject.floor();
    subject.ours();
    for (int round = 0; round < subject.rounds; ++round) {
        floor.push_back(subject.floor());
        ours.push_back(subject.ours());
    }
    return {median(floor), median(ours)};
}

void PrintHeader() {
    std::printf("%-46s %12s %12s %8s %8s\n", "case", "floor", "ours", "ratio", "limit");
}

bool MeasureAll(const std::vector<Case>& cases, const QString& filter) {
    bool allHold = true;
    for (const Case& subject : cases) {
        if (!subject.name.contains(filter, Qt::CaseInsensitive))
            continue;
        const Outcome outcome = Measure(subject);
        const bool holds = outcome.ratio() <= subject.limitRatio;
        allHold = allHold && holds;
        std::printf("%-46s %12.2f %12.2f %8.2f %8.2f  %s%s\n", qUtf8Printable(subject.name), outcome.floor,
                    outcome.ours, outcome.ratio(), subject.limitRatio, qUtf8Printable(subject.unit),
                    holds ? "" : "  BROKEN");
        std::fflush(stdout);
    }
    return allHold;
}

double Microseconds(int steps, const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    return taken.count() / steps;
}

} // namespace vorta::bench

#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace vorta::bench {

/// One measured subject: what the register takes for a piece of work, against the least that this machine needs for it
/// at that very moment. Only their ratio is judged, so that a slow or busy machine breaks no limit.
struct Case {
    QString name;
    QString unit; ///< of both figures, such as "us/statement"
    std::function<double()> floor;
    std::function<double()> ours;
    double limitRatio; ///< greatest ours/floor that is still good
    int rounds = 11;   ///< fewer where one of them takes long
};

/// The medians of a case.
struct Outcome {
    double floor;
    double ours;
    double ratio() const { return ours / floor; }
};

/// Measures both sides in turns, after one round that only warms up.
Outcome Measure(const Case& subject);
/// The words above the columns of `MeasureAll`.
void PrintHeader();
/// Measures the cases whose name contains `filter` and prints a line for each; true when every limit holds.
bool MeasureAll(const std::vector<Case>& cases, const QString& filter);

/// Microseconds per step that `work` takes for all its `steps`.
double Microseconds(int steps, const std::function<void()>& work);

} // namespace vorta::bench

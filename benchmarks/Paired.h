#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook::bench {

// One line of the table. Times are medians for one operation.
struct Result {
    std::string name;
    int n = 1;  // items, rows or locations in one operation
    std::string unit;
    double ours = 0;
    std::optional<double> baseline;  // absent for an absolute bar
    std::optional<double> bar;       // upper bound of ours / baseline, or of ours; absent if it is only reported

    double Ratio() const { return baseline ? ours / *baseline : 0; }
    bool IsWithinBar() const { return !bar || (baseline ? Ratio() : ours) <= *bar; }
};

// Alternates between both in batches of `batch` operations, so that other load on the machine affects both equally.
// Returns the medians per operation in microseconds.
struct PairedTimes {
    double ours;
    double baseline;
};
PairedTimes MeasurePair(const std::function<void()>& ours, const std::function<void()>& baseline, int turns, int batch);
double Measure(const std::function<void()>& operation, int turns, int batch);

// Stops the run with the message unless the condition is true, to prevent a row from comparing different results.
void Require(bool condition, const std::string& message);

void PrintTable(const std::vector<Result>& results);
void WriteJson(const std::vector<Result>& results, const std::string& path);

}  // namespace quellbrook::bench

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
    std::optional<double> baseline;  // none for an absolute bar
    double bar = 0;                  // of ours / baseline, or of ours itself

    double Ratio() const { return baseline ? ours / *baseline : 0; }
    bool Holds() const { return baseline ? Ratio() <= bar : ours <= bar; }
};

// Runs both by turns, so that whatever else the machine does meets both alike, each turn `batch` operations long, and
// gives the medians of the operations in microseconds.
struct PairedTimes {
    double ours;
    double baseline;
};
PairedTimes MeasurePair(const std::function<void()>& ours, const std::function<void()>& baseline, int turns, int batch);
double Measure(const std::function<void()>& operation, int turns, int batch);

// Stops the run with the sentence, so that no row compares two different things.
void Require(bool holds, const std::string& sentence);

void PrintTable(const std::vector<Result>& results);
void WriteJson(const std::vector<Result>& results, const std::string& path);

}  // namespace quellbrook::bench

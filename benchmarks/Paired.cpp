#include "benchmarks/Paired.h"

#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <stdexcept>

namespace quellbrook::bench {

namespace {

// Times each operation separately, so that an interrupted one does not affect the others.
void Time(const std::function<void()>& operation, int batch, std::vector<double>& times) {
    for (int i = 0; i < batch; ++i) {
        const auto start = std::chrono::steady_clock::now();
        operation();
        const std::chrono::duration<double, std::micro> elapsed = std::chrono::steady_clock::now() - start;
        times.push_back(elapsed.count());
    }
}

double Median(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

}  // namespace

PairedTimes MeasurePair(const std::function<void()>& ours, const std::function<void()>& baseline, int turns,
                        int batch) {
    ours();
    baseline();
    std::vector<double> oursTimes, baselineTimes;
    for (int turn = 0; turn < turns; ++turn) {
        const bool oursFirst = turn % 2 == 0;
        if (oursFirst) Time(ours, batch, oursTimes);
        Time(baseline, batch, baselineTimes);
        if (!oursFirst) Time(ours, batch, oursTimes);
    }
    return {Median(oursTimes), Median(baselineTimes)};
}

double Measure(const std::function<void()>& operation, int turns, int batch) {
    operation();
    std::vector<double> times;
    Time(operation, turns * batch, times);
    return Median(times);
}

void Require(bool condition, const std::string& message) {
    if (!condition) throw std::runtime_error(message);
}

void PrintTable(const std::vector<Result>& results) {
    fmt::print("{:<58} {:>8} {:>12} {:>12} {:>7} {:>7}  {}\n", "row", "n", "ours", "baseline", "ratio", "bar", "holds");
    for (const Result& result : results) {
        const std::string baseline = result.baseline ? fmt::format("{:.1f} {}", *result.baseline, result.unit) : "";
        const std::string ratio = result.baseline ? fmt::format("{:.2f}", result.Ratio()) : "";
        const std::string bar = result.bar ? fmt::format("{:.4g}", *result.bar) : "";
        fmt::print("{:<58} {:>8} {:>12} {:>12} {:>7} {:>7}  {}\n", result.name, result.n,
                   fmt::format("{:.1f} {}", result.ours, result.unit), baseline, ratio, bar,
                   result.IsWithinBar() ? "yes" : "NO");
    }
}

void WriteJson(const std::vector<Result>& results, const std::string& path) {
    std::ofstream file(path);
    file << "{\"rows\": [";
    for (size_t i = 0; i < results.size(); ++i) {
        const Result& result = results[i];
        file << (i > 0 ? ",\n  " : "\n  ")
             << fmt::format(
                    "{{\"name\": \"{}\", \"n\": {}, \"unit\": \"{}\", \"ours\": {:.3f}, \"baseline\": {}, "
                    "\"ratio\": {}, \"bar\": {}, \"holds\": {}}}",
                    result.name, result.n, result.unit, result.ours,
                    result.baseline ? fmt::format("{:.3f}", *result.baseline) : "null",
                    result.baseline ? fmt::format("{:.3f}", result.Ratio()) : "null",
                    result.bar ? fmt::format("{:.4g}", *result.bar) : "null", result.IsWithinBar());
    }
    file << "\n]}\n";
}

}  // namespace quellbrook::bench

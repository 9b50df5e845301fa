#include "app/sample/SampleDepartment.h"
#include "benchmarks/Rows.h"
#include "host/HostServices.h"
#include "host/engines/SqliteEngine.h"

#include <fmt/core.h>

#include <cstring>
#include <exception>
#include <filesystem>

using namespace quellbrook;

namespace {

// Every right; the benchmark has no accounts.
class EverybodySession : public HostSession {
public:
    std::string Username() const override { return "bench"; }
    std::string AgencyName() const override { return "Benchmark"; }
    void Login(const std::string&, const std::string&, const std::string&) override {}
    bool HasPermission(const std::string&, int16_t) override { return true; }
};

int Run(bool quick, const std::string& directory) {
    const int items = quick ? 100'000 : 1'000'000;
    const std::string path = directory + "/bench-" + std::to_string(items) + ".db";
    std::filesystem::create_directories(directory);
    if (!std::filesystem::exists(path)) {
        fmt::print("Making a department of {} items...\n", items);
        SampleOptions options;
        options.items = items;
        CreateSampleDepartment(path, options, {});
    }
    HostServices::Current().SetSession(std::make_shared<EverybodySession>());
    HostServices::Current().SetEngine(SqliteEngine::Open(path));

    bench::Baseline baseline(path);
    std::vector<bench::Result> results;
    bench::MeasureItemByKey(baseline, results);
    bench::MeasureLocationContents(baseline, results);
    bench::MeasureTransfers(baseline, results);
    bench::MeasureLocationTree(results);
    bench::PrintTable(results);
    bench::WriteJson(results, directory + "/bench.json");

    HostServices::Current().SetEngine(nullptr);
    for (const bench::Result& result : results)
        if (!result.Holds()) return 1;
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    bool quick = false;
    std::string directory = "build";
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--quick") == 0) {
            quick = true;
        } else if (std::strcmp(argv[i], "--directory") == 0 && i + 1 < argc) {
            directory = argv[++i];
        } else {
            fmt::print(stderr, "Usage: quellbrook_bench [--quick] [--directory DIR]\n");
            return 2;
        }
    }
    try {
        return Run(quick, directory);
    } catch (const std::exception& failure) {
        fmt::print(stderr, "{}\n", failure.what());
        return 1;
    }
}

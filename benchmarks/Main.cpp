#include "benchmarks/LocationsOnly.h"
#include "benchmarks/Rows.h"
#include "benchmarks/StartRows.h"
#include "database/SqliteEngine.h"
#include "database/odbc/OdbcConnection.h"
#include "database/odbc/OdbcEngine.h"
#include "database/odbc/ServerDatabase.h"
#include "demo/sample/ProgressBar.h"
#include "demo/sample/SampleDepartment.h"
#include "host/HostLocationData.h"
#include "host/HostServices.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iterator>

using namespace quellbrook;

namespace {

// A session with every right, since the benchmark has no accounts.
class AllRightsSession : public HostSession {
public:
    std::string Username() const override { return "bench"; }
    std::string AgencyName() const override { return "Benchmark"; }
    void Login(const std::string&, const std::string&, const std::string&) override {}
    bool HasPermission(const std::string&, int16_t) override { return true; }
};

constexpr int quickSize = 100'000, fullSize = 1'000'000, manyLocations = 100'000;

std::string Department(const std::string& directory, int items) {
    const std::string path = directory + "/bench-" + std::to_string(items) + ".db";
    if (!std::filesystem::exists(path)) {
        sample::ProgressBar bar(fmt::format("Making a department of {} items", items));
        CreateSampleDepartment(path, SampleOptions{items}, [&bar](int percent) { bar.Show(percent); });
    }
    return path;
}

void Open(const std::string& path) {
    HostServices::Current().SetEngine(SqliteEngine::Open(path));
    HostLocationData::Discard();
}

using MeasureRows = void (*)(bench::Baseline&, std::vector<bench::Result>&);

void MeasureIn(const std::string& path, MeasureRows measure, std::vector<bench::Result>& results) {
    Open(path);
    bench::Baseline baseline(path);
    measure(baseline, results);
    HostServices::Current().SetEngine(nullptr);
}

void MeasureShellOn(const std::string& path, bool quick, std::vector<bench::Result>& results) {
    Open(path);
    bench::Baseline baseline(path);
    bench::MeasureShell(quick, baseline, results);
    bench::MeasureStart(path, quick, results);
    HostServices::Current().SetEngine(nullptr);
}

// Lookups may take at most twice the time with ten times the items.
void MeasureGrowth(const std::string& directory, std::vector<bench::Result>& results) {
    std::vector<bench::Result> few;
    const std::string path = Department(directory, quickSize);
    MeasureIn(path, bench::MeasureLookups, few);
    for (const bench::Result& small : few)
        for (const bench::Result& large : std::vector(results))
            if (large.name == small.name)
                results.push_back({"growth from 100,000 items, " + large.name, 1, "us", large.ours, small.ours, 2});
}

void MeasureManyLocations(const std::string& directory, std::vector<bench::Result>& results) {
    const std::string path = directory + "/bench-locations.db";
    if (!std::filesystem::exists(path)) bench::CreateLocationsOnly(path, manyLocations);
    const MeasureRows measure = [](bench::Baseline& baseline, std::vector<bench::Result>& rows) {
        bench::MeasureLocationTree(baseline, 300, rows);
    };
    MeasureIn(path, measure, results);
}

bool HasDepartment(const std::string& connectionString) {
    bool hasTable = false;
    OdbcConnection(connectionString, {})
        .QueryNative("SELECT 1 FROM pg_class WHERE relname = 'propertytracking'", {},
                     [&](const Row&) { return hasTable = true; });
    return hasTable;
}

// Copies the department into a database of the server, unless it is there from an earlier run.
void MeasureOnServer(const std::string& department, const std::string& connectionString,
                     std::vector<bench::Result>& results) {
    if (!HasDepartment(connectionString)) {
        const std::unique_ptr<Connection> from = SqliteEngine::Open(department)->Open();
        sample::ProgressBar bar("Copying the department to PostgreSQL");
        constexpr ServerLimits patient{15, 3600};
        CreateServerDatabase(connectionString, patient, {from.get(), [&bar](int percent) { bar.Show(percent); }});
        OdbcConnection(connectionString, patient).ExecuteNative("VACUUM ANALYZE");
    }
    HostServices::Current().SetEngine(OdbcEngine::Open(connectionString));
    HostLocationData::Discard();
    bench::MeasureServer(connectionString, results);
    HostServices::Current().SetEngine(nullptr);
}

// A copy of a database file that is removed after use, so that the original stays unchanged.
class Copy {
public:
    explicit Copy(const std::string& path) : m_path(path + ".copy") {
        Remove();
        std::filesystem::copy_file(path, m_path);
    }
    ~Copy() { Remove(); }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    const std::string& Path() const { return m_path; }

private:
    void Remove() const {
        for (const char* ending : {"", "-wal", "-shm"}) std::filesystem::remove(m_path + ending);
    }

    std::string m_path;
};

struct Group {
    const char* name;
    MeasureRows measure;
    bool writes = false;
};
const Group groups[] = {
    {"items", bench::MeasureItemByKey},
    {"lookups", bench::MeasureLookups},
    {"contents", bench::MeasureLocationContents},
    {"descriptions", bench::MeasureDescriptions},
    {"broad", bench::MeasureBroadCriteria},
    {"chains", bench::MeasureChain, true},
    {"relations", bench::MeasureRelations},
    {"locations", [](bench::Baseline& baseline,
                     std::vector<bench::Result>& results) { bench::MeasureLocationTree(baseline, 10, results); }},
    {"transfers", bench::MeasureTransfers, true},
    {"many", bench::MeasureManyHits},
    {"busy",
     [](bench::Baseline&, std::vector<bench::Result>& results) { bench::MeasureBusyLocation("SQLite", results); }},
};

bool IsGroup(const std::string& name) {
    const auto isNamed = [&](const Group& group) { return group.name == name; };
    return name == "shell" || name == "server" || std::any_of(std::begin(groups), std::end(groups), isNamed);
}

int Run(bool quick, const std::string& directory, const std::string& only) {
    std::filesystem::create_directories(directory);
    HostServices::Current().SetSession(std::make_shared<AllRightsSession>());
    std::vector<bench::Result> results;
    const std::string path = Department(directory, quick ? quickSize : fullSize);
    for (const Group& group : groups) {
        if (!only.empty() && only != group.name) continue;
        if (group.writes)
            MeasureIn(Copy(path).Path(), group.measure, results);
        else
            MeasureIn(path, group.measure, results);
    }
    const char* const server = std::getenv("QUELLBROOK_BENCH_ODBC");
    if (server && (only.empty() || only == "server"))
        MeasureOnServer(path, fmt::format("{};Database=bench_{}", server, quick ? quickSize : fullSize), results);
    if (only.empty() || only == "shell") MeasureShellOn(path, quick, results);
    if (!quick && (only.empty() || only == "lookups")) MeasureGrowth(directory, results);
    if (only.empty() || only == "locations") MeasureManyLocations(directory, results);
    bench::PrintTable(results);
    bench::WriteJson(results, directory + "/bench.json");

    for (const bench::Result& result : results)
        if (!result.IsWithinBar()) return 1;
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 4 && std::strcmp(argv[1], "--start") == 0) return bench::RunStart(argv[2], argv[3]);
    bool quick = false;
    std::string directory = "build", only;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--quick") == 0) {
            quick = true;
        } else if (std::strcmp(argv[i], "--directory") == 0 && i + 1 < argc) {
            directory = argv[++i];
        } else if (std::strcmp(argv[i], "--only") == 0 && i + 1 < argc && IsGroup(argv[i + 1])) {
            only = argv[++i];
        } else {
            fmt::print(stderr, "Usage: quellbrook_bench [--quick] [--only GROUP] [--directory DIR]\n");
            return 2;
        }
    }
    try {
        return Run(quick, directory, only);
    } catch (const std::exception& failure) {
        fmt::print(stderr, "{}\n", failure.what());
        return 1;
    }
}

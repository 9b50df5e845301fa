#include "tests/support/WorkstationPrograms.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace quellbrook::testing {

WorkstationPrograms::~WorkstationPrograms() {
    for (const int workstation : Running()) Kill(workstation);
    while (!m_running.empty()) WaitForEnd(m_running.begin()->first);
}

int WorkstationPrograms::Start(const char* task, int count) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("No pipe is left.");
    std::string arguments[] = {QUELLBROOK_WORKSTATION, task, std::to_string(++m_started), std::to_string(count),
                               m_path};
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], WorkstationReportPipe);
    pid_t process = 0;
    const int failure = posix_spawn(&process, QUELLBROOK_WORKSTATION, &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (failure != 0) throw std::runtime_error("The workstation program could not be started.");
    m_running[m_started] = {process, ends[0], false};
    return m_started;
}

// The workstation whose pipe can be read next; each in turn.
int WorkstationPrograms::WaitForReport() const {
    std::vector<int> workstations;
    std::vector<pollfd> waiting;
    for (const auto& [workstation, program] : m_running) {
        workstations.push_back(workstation);
        waiting.push_back({program.pipe, POLLIN, 0});
    }
    while (poll(waiting.data(), waiting.size(), -1) < 0) {
    }
    const auto next = std::upper_bound(workstations.begin(), workstations.end(), m_latest) - workstations.begin();
    std::rotate(waiting.begin(), waiting.begin() + next, waiting.end());
    const auto ready =
        std::find_if(waiting.begin(), waiting.end(), [](const pollfd& pipe) { return pipe.revents != 0; });
    const auto index = static_cast<size_t>(ready - waiting.begin() + next) % workstations.size();
    return workstations[index];
}

std::optional<WorkstationReport> WorkstationPrograms::Next() {
    while (!m_running.empty()) {
        m_latest = WaitForReport();
        WorkstationReport report{};
        if (read(m_running.at(m_latest).pipe, &report, sizeof report) == sizeof report) return report;
        WaitForEnd(m_latest);
    }
    return std::nullopt;
}

void WorkstationPrograms::Kill(int workstation) {
    Program& program = m_running.at(workstation);
    program.isKilled = true;
    kill(program.process, SIGKILL);
}

std::vector<int> WorkstationPrograms::Running() const {
    std::vector<int> workstations;
    for (const auto& [workstation, program] : m_running)
        if (!program.isKilled) workstations.push_back(workstation);
    return workstations;
}

void WorkstationPrograms::WaitForEnd(int workstation) {
    const Program program = m_running.at(workstation);
    m_running.erase(workstation);
    close(program.pipe);
    int status = 0;
    waitpid(program.process, &status, 0);
    if (!program.isKilled) {
        EXPECT_EQ(status, 0) << "of workstation " << workstation;
    }
}

void WorkstationRecords::AddItems(int count, int32_t location) {
    for (int i = 0; i < count; ++i)
        if (i % 10 == 9)
            m_database.AddStored(VehicleFields{}, location);
        else
            m_database.AddStored(PropertyFields{}, location);
}

void WorkstationRecords::Record(const WorkstationReport& report) {
    switch (report.kind) {
    case WorkstationReport::Kind::Begins:
        m_batches[report.number] = Items(report.items.begin(), report.items.begin() + report.itemCount);
        break;
    case WorkstationReport::Kind::Written: m_written.insert(report.number); break;
    case WorkstationReport::Kind::Refused: m_refused.insert(report.number); break;
    case WorkstationReport::Kind::Unknown: m_unknown.insert(report.number); break;
    }
}

std::map<int32_t, WorkstationRecords::Items> WorkstationRecords::ReadBatches() {
    std::map<int32_t, Items> batches;
    for (const Row& row : m_database.QueryRows(
             "SELECT ReceivedFrom, 1 AS Type, PropertyNo, SeqNo - 1 FROM PropertyTracking WHERE ReceivedFrom > 0 "
             "UNION ALL SELECT ReceivedFrom, 2, VehicleNo, SeqNo - 1 FROM VehicleTracking WHERE ReceivedFrom > 0"))
        batches[ToInt32(row.At(0))].insert({ToInt32(row.At(1)), ToInt32(row.At(2)), ToInt32(row.At(3))});
    return batches;
}

void WorkstationRecords::ExpectKept() {
    std::set<int32_t> missing = m_written;
    m_keptWithoutReport = 0;
    for (const auto& [number, items] : ReadBatches()) {
        EXPECT_TRUE(items == m_batches[number]) << "batch " << number << " has " << items.size() << " of "
                                                << m_batches[number].size() << " rows, or other ones";
        EXPECT_FALSE(m_refused.contains(number)) << "batch " << number << " was reported as refused";
        if (missing.erase(number) == 0) ++m_keptWithoutReport;
    }
    for (const int32_t number : missing) ADD_FAILURE() << "batch " << number << " was reported as written";
    ExpectWholeChains(m_database);
}

void ExpectWholeChains(TestDatabase& database) {
    const auto count = [&](const std::string& query) {
        return ToInt32(database.QueryValue("SELECT COUNT(*) " + query));
    };
    int32_t items = 0;
    for (const std::string kind : {"Property", "Vehicle"}) {
        const std::string tracking = kind + "Tracking", key = kind + "No";
        EXPECT_EQ(count("FROM (SELECT " + key + " FROM " + tracking + " GROUP BY " + key +
                        " HAVING MIN(SeqNo) <> 1 OR MAX(SeqNo) <> COUNT(*)) AS Gaps"),
                  0)
            << kind;
        EXPECT_EQ(count("FROM " + kind + " i WHERE COALESCE(CurrTrackSeq, 0) <> (SELECT MAX(SeqNo) FROM " + tracking +
                        " t WHERE t." + key + " = i." + key + ")"),
                  0)
            << kind;
        items += count("FROM " + kind);
    }
    EXPECT_EQ(count("FROM CurrentPlace"), items);
    if (!database.Path().empty()) {
        EXPECT_EQ(ToText(database.QueryValue("PRAGMA integrity_check")), "ok");
    }
}

int LongTestScale() { return std::getenv("QUELLBROOK_LONG") ? 10 : 1; }

}  // namespace quellbrook::testing

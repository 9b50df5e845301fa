#pragma once

#include "tests/support/TestDatabase.h"
#include "tests/support/WorkstationReport.h"

#include <sys/types.h>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quellbrook::testing {

// Processes that work on the database of a test like the program on several workstations: the program of
// tests/workstation. At destruction, those that still run are killed.
class WorkstationPrograms {
public:
    explicit WorkstationPrograms(const TestDatabase& database) : m_path(database.Path()) {}
    ~WorkstationPrograms();
    WorkstationPrograms(const WorkstationPrograms&) = delete;
    WorkstationPrograms& operator=(const WorkstationPrograms&) = delete;

    // Returns the number of the new workstation, from 1. The task is TransferTask or LocationTask. Count: batches to
    // write, or changes to try.
    int Start(const char* task, int count);
    // Waits for the next report. Nothing when all programs have ended. A program that ends with an error fails the
    // test.
    std::optional<WorkstationReport> Next();
    // Kills the program, whatever it is doing. Its last reports may be still to come.
    void Kill(int workstation);

    std::vector<int> Running() const;  // without those that have been killed
    int Started() const { return m_started; }

private:
    struct Program {
        pid_t process;
        int pipe;
        bool isKilled;
    };

    int WaitForReport() const;
    void WaitForEnd(int workstation);

    std::string m_path;
    std::map<int, Program> m_running;
    int m_started = 0;
    int m_latest = 0;  // the workstation of the latest report
};

// Compares what workstation programs report with the custody rows of the database.
class WorkstationRecords {
public:
    explicit WorkstationRecords(TestDatabase& database) : m_database(database) {}

    // Items of both types with one custody row each.
    void AddItems(int count, int32_t location);
    void Record(const WorkstationReport& report);

    int Begun() const { return static_cast<int>(m_batches.size()); }
    int Written() const { return static_cast<int>(m_written.size()); }
    int Refused() const { return static_cast<int>(m_refused.size()); }
    int Unknown() const { return static_cast<int>(m_unknown.size()); }

    // Expects the rows of every batch that was reported as written and of none that was refused; the rows of any other
    // batch all or not at all; and that the numbers of each batch follow those that its items had before. Also
    // ExpectWholeChains.
    void ExpectKept();
    // The batches in the database without a report that they were written. Valid after ExpectKept.
    int KeptWithoutReport() const { return m_keptWithoutReport; }

private:
    using Items = std::set<WorkstationReport::Item>;

    std::map<int32_t, Items> ReadBatches();

    TestDatabase& m_database;
    std::map<int32_t, Items> m_batches;
    std::set<int32_t> m_written, m_refused, m_unknown;
    int m_keptWithoutReport = 0;
};

// Expects that each chain is numbered from 1 without a gap, that its item refers to its end, and that every item has a
// place, which is listed once.
void ExpectWholeChains(TestDatabase& database);

// QUELLBROOK_LONG multiplies the counts of long tests by ten.
int LongTestScale();

}  // namespace quellbrook::testing

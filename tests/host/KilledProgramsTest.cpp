#include "base/Error.h"
#include "base/Text.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <map>
#include <random>
#include <set>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

constexpr int programs = 8;
constexpr int batchesOfAProgram = 100;
constexpr int largestBatch = 20;
constexpr int items = 50;
constexpr int kills = 30;

// What a program reports about one of its batches.
struct Report {
    int program;
    int batch;
    enum class Kind { Begins, Written, Failed, Ends } kind;
};

// The number of a batch, which its custody rows contain.
int NumberOf(const Report& report) { return report.program * 1000 + report.batch; }
int ItemsOf(int batch) { return 1 + batch % largestBatch; }

std::vector<std::string> Statements(int number) {
    std::vector<std::string> statements = {"CREATE TABLE #NextSeqNo (Value INT NOT NULL)",
                                           "INSERT INTO #NextSeqNo (Value) VALUES (0)"};
    for (int i = 0; i < ItemsOf(number); ++i) {
        const std::string key = std::to_string((number + i) % items + 1);
        for (const char* text :
             {"DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM PropertyTracking WHERE PropertyNo={0} "
              "GROUP BY PropertyNo;UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)",
              "INSERT INTO PropertyTracking (PropertyNo,SeqNo,ReceivedFrom,LastUpdated) VALUES ({0},(SELECT Value FROM "
              "#NextSeqNo),{1},'2026-11-20T13:14:15.123')",
              "UPDATE Property SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE PropertyNo={0}"})
            statements.push_back(Replace(Replace(text, "{0}", key), "{1}", std::to_string(number)));
    }
    statements.push_back("DROP TABLE #NextSeqNo");
    return statements;
}

class KilledPrograms : public ::testing::Test {
protected:
    KilledPrograms() {
        CreateDatabase(m_path);
        SQLite::Database database(m_path, SQLite::OPEN_READWRITE);
        for (int i = 0; i < items; ++i) database.exec("INSERT INTO Property (Description) VALUES ('bicycle')");
        EXPECT_EQ(pipe(m_pipe), 0);
    }
    ~KilledPrograms() override {
        close(m_pipe[0]);
        close(m_pipe[1]);
    }

    void Start() {
        const int program = m_started++;
        const pid_t process = fork();
        if (process == 0) RunProgram(program);
        m_running[program] = process;
    }

    // Runs in a process of its own.
    [[noreturn]] void RunProgram(int program) {
        Report report{program, 0, Report::Kind::Begins};
        const auto tell = [&](Report::Kind kind) {
            report.kind = kind;
            if (write(m_pipe[1], &report, sizeof report) != sizeof report) _exit(1);
        };
        try {
            HostServices::Current().SetEngine(SqliteEngine::Open(m_path));
            for (; report.batch < batchesOfAProgram; ++report.batch) {
                tell(Report::Kind::Begins);
                GetHostDatabase().ExecuteBatch(Statements(NumberOf(report)));
                tell(Report::Kind::Written);
            }
            tell(Report::Kind::Ends);
        } catch (const Error& error) {
            fprintf(stderr, "%s\n", error.what());
            tell(Report::Kind::Failed);
        }
        _exit(0);
    }

    void WaitFor(int program) {
        waitpid(m_running.at(program), nullptr, 0);
        m_running.erase(program);
    }

    // Kills programs, whatever they are doing, and starts another one for each.
    void RunAll() {
        std::mt19937 random(20261120);
        for (int i = 0; i < programs; ++i) Start();
        Report report{};
        while (!m_running.empty() && read(m_pipe[0], &report, sizeof report) == sizeof report) {
            if (report.kind == Report::Kind::Written) m_written.insert(NumberOf(report));
            if (m_running.count(report.program) == 0) continue;  // killed since
            if (report.kind == Report::Kind::Failed) ADD_FAILURE() << "batch " << NumberOf(report);
            if (report.kind == Report::Kind::Ends || report.kind == Report::Kind::Failed) WaitFor(report.program);
            if (m_running.empty() || m_started >= programs + kills || random() % 12 > 0) continue;
            const int victim = std::next(m_running.begin(), static_cast<long>(random() % m_running.size()))->first;
            kill(m_running.at(victim), SIGKILL);
            WaitFor(victim);
            Start();
        }
    }

    ScratchFolder m_folder;
    std::string m_path = m_folder.In("department.db");
    int m_pipe[2] = {-1, -1};
    std::map<int, pid_t> m_running;
    int m_started = 0;
    std::set<int> m_written;
};

}  // namespace

TEST_F(KilledPrograms, EveryBatchIsWrittenAsAWholeOrNotAtAllAndNoneIsLost) {
    RunAll();
    ASSERT_EQ(m_started, programs + kills);
    EXPECT_GE(m_written.size(), static_cast<size_t>(programs * batchesOfAProgram));

    SQLite::Database database(m_path, SQLite::OPEN_READWRITE);
    EXPECT_EQ(database.execAndGet("PRAGMA integrity_check").getString(), "ok");
    SQLite::Statement batches(database, "SELECT ReceivedFrom, COUNT(*) FROM PropertyTracking GROUP BY ReceivedFrom");
    while (batches.executeStep()) {
        const int number = batches.getColumn(0).getInt();
        EXPECT_EQ(batches.getColumn(1).getInt(), ItemsOf(number)) << number;
        m_written.erase(number);
    }
    EXPECT_TRUE(m_written.empty()) << *m_written.begin() << " was reported as written";
    const char* const gaps =
        "SELECT COUNT(*) FROM Property p WHERE CurrTrackSeq <> (SELECT COUNT(*) FROM PropertyTracking t "
        "WHERE t.PropertyNo = p.PropertyNo) OR CurrTrackSeq <> (SELECT MAX(SeqNo) FROM PropertyTracking t "
        "WHERE t.PropertyNo = p.PropertyNo)";
    EXPECT_EQ(database.execAndGet(gaps).getInt(), 0);
}

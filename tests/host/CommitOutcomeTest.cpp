#include "base/Environment.h"
#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"
#include "host/TransferOutcome.h"
#include "tests/support/FaultyFileSystem.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <set>

using namespace quellbrook;
using namespace quellbrook::testing;
namespace fs = std::filesystem;

namespace {

using Call = FaultyFileSystem::Call;

enum class Outcome { Completed, Refused, Unknown };

class CountingLog : public ErrorLog {
public:
    void Log(const std::string&, const std::string&, const std::string&) override { ++entries; }
    int entries = 0;
};

struct Fault {
    Call call;
    int n;
    int times;
    bool hasOtherProgram;

    std::string Name() const {
        return std::string(call == Call::Write ? "write " : "synchronization ") + std::to_string(n) + ", " +
               std::to_string(times) + " times" + (hasOtherProgram ? ", with another program" : "");
    }
};

// A department on a disk that fails.
class CommitOutcomeTest : public ::testing::Test {
protected:
    CommitOutcomeTest() {
        m_environment->errorLog = &m_log;
        CreateDatabase(m_empty);
    }
    ~CommitOutcomeTest() override { HostServices::Current().SetEngine(nullptr); }

    // A new department that is kept open by another connection, as another program would.
    void Open(bool hasOtherProgram) {
        HostServices::Current().SetEngine(nullptr);
        m_other.reset();
        m_path = m_folder.In("department-" + std::to_string(++m_count) + ".db");
        fs::copy_file(m_empty, m_path);
        HostServices::Current().SetEngine(SqliteEngine::Open(m_path));
        GetHostDatabase().Execute("INSERT INTO Setting (Name) VALUES ('before')");
        if (!hasOtherProgram) return;
        m_other = std::make_unique<SQLite::Database>(m_path, SQLite::OPEN_READWRITE);
        m_other->exec("SELECT * FROM Setting");
    }
    void Close() {
        HostServices::Current().SetEngine(nullptr);
        m_other.reset();
    }

    // Writes several pages and one row to count, or only the row by a statement of its own.
    Outcome RunBatch() const {
        std::vector<std::string> statements;
        for (int i = 0; i < m_propertiesOfBatch; ++i)
            statements.push_back("INSERT INTO Property (Description) VALUES ('" + std::string(1000, 'x') + "')");
        const std::string counted = "INSERT INTO AttachmentFolder (Path) VALUES ('batch')";
        statements.push_back(counted);
        try {
            if (m_propertiesOfBatch > 0)
                GetHostDatabase().ExecuteBatch(statements);
            else
                GetHostDatabase().Execute(counted);
            return Outcome::Completed;
        } catch (const UnknownOutcome&) {
            return Outcome::Unknown;
        } catch (const Error&) {
            return Outcome::Refused;
        }
    }

    // How often the whole batch is in the file, which is opened by a program that knows of no other.
    int BatchesIn(const std::string& path) {
        SQLite::Database database(path, SQLite::OPEN_READWRITE);
        EXPECT_EQ(database.execAndGet("PRAGMA quick_check").getString(), "ok");
        const int batches = database.execAndGet("SELECT COUNT(*) FROM AttachmentFolder").getInt();
        EXPECT_EQ(database.execAndGet("SELECT COUNT(*) FROM Property").getInt(), batches * m_propertiesOfBatch);
        return batches;
    }
    int BatchesAfterACrash() {
        const std::string copy = m_path + ".crash";
        for (const char* ending : {"", "-wal"})
            if (fs::exists(m_path + ending)) fs::copy_file(m_path + ending, copy + ending);
        return BatchesIn(copy);
    }
    int BatchesAfterAPowerLoss() {
        const std::string copy = m_path + ".power";
        m_system.CopyAfterPowerLoss(m_path, copy);
        return BatchesIn(copy);
    }

    static void ExpectFits(Outcome outcome, int batches) {
        if (outcome == Outcome::Unknown)
            EXPECT_LE(batches, 1);
        else
            EXPECT_EQ(batches, outcome == Outcome::Completed ? 1 : 0);
    }

    void TryBatch(const Fault& fault) {
        SCOPED_TRACE(fault.Name());
        Open(fault.hasOtherProgram);
        m_log.entries = 0;
        m_system.Fail(fault.call, fault.n, fault.times);
        const int failedBefore = m_system.Failed();
        const Outcome outcome = RunBatch();
        m_hasStruck = m_system.Failed() > failedBefore;
        m_system.Heal();
        m_seen.insert(outcome);
        EXPECT_EQ(m_log.entries, outcome == Outcome::Unknown ? 1 : 0);
        ExpectFits(outcome, BatchesAfterACrash());
        ExpectFits(outcome, BatchesAfterAPowerLoss());
        if (outcome == Outcome::Refused) {
            EXPECT_EQ(RunBatch(), Outcome::Completed);
            Close();
            EXPECT_EQ(BatchesIn(m_path), 1);
        }
    }

    void TryEachFault() {
        for (const auto& [call, times] :
             {std::pair(Call::Write, 1), std::pair(Call::Write, 1000), std::pair(Call::Sync, 1),
              std::pair(Call::Sync, 2), std::pair(Call::Sync, 1000)})
            for (const bool hasOtherProgram : {false, true}) {
                m_hasStruck = true;
                for (int n = 1; m_hasStruck; ++n) TryBatch({call, n, times, hasOtherProgram});
            }
        EXPECT_EQ(m_seen, (std::set<Outcome>{Outcome::Completed, Outcome::Refused, Outcome::Unknown}));
    }

    ScratchFolder m_folder;
    FaultyFileSystem m_system;
    CountingLog m_log;
    EnvironmentScope m_environment;
    std::unique_ptr<SQLite::Database> m_other;
    std::string m_empty = m_folder.In("empty.db");
    std::string m_path;
    int m_count = 0;
    int m_propertiesOfBatch = 4;
    bool m_hasStruck = false;
    std::set<Outcome> m_seen;
};

}  // namespace

TEST_F(CommitOutcomeTest, WhateverCallOfTheDiskFailsTheReportOfABatchFitsWhatIsFoundLater) { TryEachFault(); }

TEST_F(CommitOutcomeTest, WhateverCallOfTheDiskFailsTheReportOfAStatementFitsWhatIsFoundLater) {
    m_propertiesOfBatch = 0;
    TryEachFault();
}

#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "tests/support/FaultyFileSystem.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

using Call = FaultyFileSystem::Call;

class WasCommittedTest : public ::testing::Test {
protected:
    WasCommittedTest() {
        CreateDatabase(m_path);
        m_engine = SqliteEngine::Open(m_path);
        m_connection = m_engine->Open();
    }

    // Returns the transaction's name.
    std::string Commit() {
        m_connection->Begin();
        m_connection->Execute("INSERT INTO AttachmentFolder (Path) VALUES ('" + std::string(10000, 'x') + "')");
        m_connection->Commit();
        return m_connection->TransactionName();
    }
    // Every synchronization fails from here on.
    std::string FailToCommit() {
        m_system.Fail(Call::Sync, 1, 1000);
        EXPECT_EQ(RaisedBy([&] { Commit(); }).Source(), "SqliteConnection.Commit");
        const std::string name = m_connection->TransactionName();
        m_connection->Rollback();
        return name;
    }

    int RowsAfterAPowerLoss() {
        const std::string copy = m_folder.In("copy.db");
        m_system.CopyAfterPowerLoss(m_path, copy);
        SQLite::Database database(copy, SQLite::OPEN_READWRITE);
        return database.execAndGet("SELECT COUNT(*) FROM AttachmentFolder").getInt();
    }

    ScratchFolder m_folder;
    FaultyFileSystem m_system;
    std::string m_path = m_folder.In("department.db");
    std::shared_ptr<SqliteEngine> m_engine;
    std::unique_ptr<Connection> m_connection;
};

}  // namespace

TEST_F(WasCommittedTest, ACommittedTransactionIsFound) { EXPECT_TRUE(m_engine->WasCommitted(Commit())); }

TEST_F(WasCommittedTest, ATransactionThatIsStillOpenWasNotCommitted) {
    Commit();
    m_connection->Begin();
    EXPECT_EQ(m_connection->TransactionName(), "");
}

TEST_F(WasCommittedTest, ARefusedCommitWasCertainlyNotCommitted) {
    SQLite::Database(m_path, SQLite::OPEN_READWRITE)
        .exec("CREATE TABLE Late (A TEXT REFERENCES Setting (Name) DEFERRABLE INITIALLY DEFERRED)");
    m_connection->Begin();
    m_connection->Execute("INSERT INTO Late (A) VALUES ('x')");
    EXPECT_EQ(RaisedBy([&] { m_connection->Commit(); }).Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(m_connection->TransactionName(), "");
}

TEST_F(WasCommittedTest, ATransactionWhoseEndCouldNotBeWrittenWasCertainlyNotCommitted) {
    m_system.Fail(Call::Write, 1, 1);
    RaisedBy([&] { Commit(); });
    EXPECT_EQ(m_system.Failed(), 1);
    EXPECT_EQ(m_connection->TransactionName(), "");
}

TEST_F(WasCommittedTest, AFailedCommitThatNobodySeesIsOverwritten) {
    const std::string name = FailToCommit();
    m_system.Heal();
    EXPECT_FALSE(m_engine->WasCommitted(name));
    m_connection.reset();
    EXPECT_EQ(RowsAfterAPowerLoss(), 0);
}

TEST_F(WasCommittedTest, AFailedCommitThatIsFoundInTheLogIsSavedForGood) {
    Commit();
    const std::string name = FailToCommit();
    m_connection.reset();
    m_system.Heal();
    EXPECT_TRUE(m_engine->WasCommitted(name));
    EXPECT_EQ(RowsAfterAPowerLoss(), 2);
}

TEST_F(WasCommittedTest, NothingIsKnownWhileTheDiskFails) {
    const std::string name = FailToCommit();
    EXPECT_NE(RaisedBy([&] { m_engine->WasCommitted(name); }).Number(), 0);
    m_connection.reset();
    EXPECT_NE(RaisedBy([&] { m_engine->WasCommitted(name); }).Number(), 0);
}

TEST_F(WasCommittedTest, AFailedCommitIsNotMistakenForTheNextOneWithItsNumber) {
    const std::string name = FailToCommit();
    m_system.Heal();
    m_connection = m_engine->Open();
    Commit();
    EXPECT_FALSE(m_engine->WasCommitted(name));
}

TEST_F(WasCommittedTest, ATransactionThatIsTooOldIsUnknown) {
    const std::string name = Commit();
    const auto commitEmpty = [&] {
        m_connection->Begin();
        m_connection->Commit();
    };
    for (int i = 0; i < 63; ++i) commitEmpty();
    EXPECT_TRUE(m_engine->WasCommitted(name));
    commitEmpty();
    EXPECT_NE(RaisedBy([&] { m_engine->WasCommitted(name); }).Number(), 0);
}

TEST_F(WasCommittedTest, AConnectionIsGivenUpAfterAFailureOfTheDisk) {
    m_connection->Execute("INSERT INTO Setting (Name) VALUES ('before')");
    EXPECT_NE(RaisedBy([&] { m_connection->Execute("INSERT INTO Setting (Name) VALUES ('BEFORE')"); }).Number(), 0);
    EXPECT_TRUE(m_connection->IsHealthy());
    for (const Call call : {Call::Write, Call::Sync}) {
        m_system.Fail(call, 1, 1);
        EXPECT_NE(RaisedBy([&] { m_connection->Execute("INSERT INTO Setting (Name) VALUES ('x')"); }).Number(), 0);
        EXPECT_FALSE(m_connection->IsHealthy());
        m_connection = m_engine->Open();
        EXPECT_TRUE(m_connection->IsHealthy());
    }
}

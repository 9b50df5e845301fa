#include "base/Error.h"
#include "database/DatabaseFile.h"
#include "database/LogCheck.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <fstream>

using namespace quellbrook;
using namespace quellbrook::testing;
using ::testing::HasSubstr;
namespace fs = std::filesystem;

namespace {

// A department whose program was killed: its log is still beside it.
class RestoredFileTest : public ::testing::Test {
protected:
    RestoredFileTest() { CreateDatabase(m_path); }

    void Batches(int count, const std::string& path) {
        const auto connection = SqliteEngine::Open(path)->Open();
        for (int i = 0; i < count; ++i) WriteBatch(*connection);
    }
    static void WriteBatch(Connection& connection) {
        connection.Begin();
        connection.Execute("INSERT INTO Property (Description) VALUES ('" + std::string(3000, 'x') + "')");
        connection.Commit();
    }

    // Copies the department as a crash after some batches in its log would leave it.
    void CrashInto(const std::string& target, int batchesInLog) {
        const auto connection = SqliteEngine::Open(m_path)->Open();
        for (int i = 0; i < batchesInLog; ++i) WriteBatch(*connection);
        for (const char* ending : {"", "-wal"})
            fs::copy_file(m_path + ending, target + ending, fs::copy_options::overwrite_existing);
    }
    static std::string BytesOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    }
    // Opening is refused, names the log, and changes neither file.
    void ExpectLogRefused(const std::string& words) {
        const std::string file = BytesOf(m_crashed), log = BytesOf(m_crashed + "-wal");
        const Error error = RaisedBy([&] { SqliteEngine::Open(m_crashed); });
        EXPECT_THAT(error.Description(), HasSubstr(words));
        EXPECT_THAT(error.Description(), HasSubstr("'" + m_crashed + "-wal'"));
        EXPECT_TRUE(BytesOf(m_crashed) == file);
        EXPECT_TRUE(BytesOf(m_crashed + "-wal") == log);
    }

    ScratchFolder m_folder;
    std::string m_path = m_folder.In("department 100%?#.db");
    std::string m_crashed = m_folder.In("crashed 100%?#.db");
};

}  // namespace

TEST_F(RestoredFileTest, TheLogOfACrashIsApplied) {
    Batches(70, m_path);
    CrashInto(m_crashed, 3);
    EXPECT_FALSE(HasLogOfAnotherFile(m_crashed));
    const auto connection = SqliteEngine::Open(m_crashed)->Open();
    connection->Query("SELECT COUNT(*) FROM Property", {}, [](const Row& row) {
        EXPECT_EQ(row.At(0), TaggedValue(73));
        return false;
    });
}

TEST_F(RestoredFileTest, TheFirstBatchesOfADepartmentAreApplied) {
    CrashInto(m_crashed, 1);
    EXPECT_FALSE(HasLogOfAnotherFile(m_crashed));
    SqliteEngine::Open(m_crashed);
}

TEST_F(RestoredFileTest, ALogThatWasPartlyMovedIntoTheFileIsApplied) {
    const auto connection = SqliteEngine::Open(m_path)->Open();
    for (int i = 0; i < 400; ++i) WriteBatch(*connection);
    for (const char* ending : {"", "-wal"}) fs::copy_file(m_path + ending, m_crashed + ending);
    EXPECT_FALSE(HasLogOfAnotherFile(m_crashed));
    SqliteEngine::Open(m_crashed);
}

TEST_F(RestoredFileTest, ABackupBesideTheLogOfALaterFileIsRefused) {
    Batches(3, m_path);
    const std::string backup = BytesOf(m_path);
    Batches(2, m_path);
    CrashInto(m_crashed, 3);
    std::ofstream(m_crashed, std::ios::binary) << backup;
    ExpectLogRefused("belongs to another copy of the database");

    fs::remove(m_crashed + "-wal");
    SqliteEngine::Open(m_crashed);
}

TEST_F(RestoredFileTest, AWholeFileThatItsLogDamagesIsRefusedForItsLog) {
    Batches(30, m_path);
    CreateDatabase(m_crashed);
    {
        const auto connection = SqliteEngine::Open(m_path)->Open();
        const std::string insert = "INSERT INTO Property (Description) VALUES ('" + std::string(3000, 'x') + "')";
        for (int i = 0; i < 5; ++i) connection->Execute(insert);  // a log without a batch
        fs::copy_file(m_path + "-wal", m_crashed + "-wal");
    }
    EXPECT_FALSE(HasLogOfAnotherFile(m_crashed));
    EXPECT_TRUE(IsWholeWithoutLog(m_crashed));
    ExpectLogRefused("belongs to another copy of the database");
}

TEST_F(RestoredFileTest, ADamagedFileWithALogNamesBoth) {
    CrashInto(m_crashed, 1);
    std::string bytes = BytesOf(m_crashed);
    bytes.replace(4096 * 5, 4096 * 20, std::string(4096 * 20, '\xA5'));
    std::ofstream(m_crashed, std::ios::binary) << bytes;
    EXPECT_FALSE(IsWholeWithoutLog(m_crashed));
    ExpectLogRefused("is damaged. Move '");
}

TEST_F(RestoredFileTest, AFileThatTakesThePlaceOfOursUnderARunningProgramIsNotOpened) {
    Batches(3, m_path);
    const std::string backup = m_folder.In("backup.db");
    fs::copy_file(m_path, backup);
    const std::string bytes = BytesOf(backup);
    const auto engine = SqliteEngine::Open(m_path);
    const auto connection = engine->Open();
    WriteBatch(*connection);
    fs::rename(backup, m_path);

    EXPECT_FALSE(connection->IsHealthy());
    const std::string words = "has been replaced while this program was running";
    EXPECT_THAT(RaisedBy([&] { engine->Open(); }).Description(), HasSubstr(words));
    EXPECT_THAT(RaisedBy([&] { engine->WasCommitted("1 1"); }).Description(), HasSubstr(words));
    EXPECT_TRUE(BytesOf(m_path) == bytes);
}

TEST_F(RestoredFileTest, AnOlderFileThatIsCopiedOverOursUnderARunningProgramIsNotOpened) {
    Batches(3, m_path);
    const std::string backup = BytesOf(m_path);
    Batches(2, m_path);
    const auto engine = SqliteEngine::Open(m_path);
    const auto connection = engine->Open();
    WriteBatch(*connection);
    std::ofstream(m_path, std::ios::binary) << backup;
    EXPECT_THAT(RaisedBy([&] { engine->Open(); }).Description(), HasSubstr("has been replaced"));
    EXPECT_TRUE(BytesOf(m_path) == backup);
}

TEST_F(RestoredFileTest, AConnectionThatIsOpenNoticesAFileThatIsCopiedOverOursAndLeavesItAlone) {
    Batches(3, m_path);
    const std::string backup = BytesOf(m_path);
    Batches(2, m_path);
    const auto engine = SqliteEngine::Open(m_path);
    auto connection = engine->Open();
    WriteBatch(*connection);
    EXPECT_TRUE(connection->IsHealthy());
    std::ofstream(m_path, std::ios::binary) << backup;
    EXPECT_FALSE(connection->IsHealthy());
    connection.reset();
    EXPECT_TRUE(BytesOf(m_path) == backup);
    EXPECT_THAT(RaisedBy([&] { engine->Open(); }).Description(), HasSubstr("has been replaced"));
}

TEST_F(RestoredFileTest, AConnectionReadsAFileThatWasCopiedOverOursIfNoLogIsLost) {
    const std::string empty = BytesOf(m_path);
    Batches(1, m_path);
    const auto connection = SqliteEngine::Open(m_path)->Open();
    const auto count = [&] {
        TaggedValue number;
        connection->Query("SELECT COUNT(*) FROM Property", {}, [&](const Row& row) {
            number = row.At(0);
            return false;
        });
        return number;
    };
    EXPECT_EQ(count(), TaggedValue(1));
    std::ofstream(m_path, std::ios::binary) << empty;
    EXPECT_TRUE(connection->IsHealthy());
    EXPECT_EQ(count(), TaggedValue(0));
}

TEST_F(RestoredFileTest, AConnectionStaysUsableAfterItsOwnBatchesMovedTheLogIntoTheFile) {
    const auto connection = SqliteEngine::Open(m_path)->Open();
    const int64_t before = StateOf(m_path)->lastWrite;
    for (int i = 0; i < 400; ++i) WriteBatch(*connection);
    EXPECT_NE(StateOf(m_path)->lastWrite, before);
    EXPECT_TRUE(connection->IsHealthy());
}

TEST_F(RestoredFileTest, ALogThatMovedTheMarksToAnotherPageIsApplied) {
    {
        const auto connection = SqliteEngine::Open(m_path)->Open();
        WriteBatch(*connection);
        connection->Execute("INSERT INTO Property (PropertyNo) VALUES (100000)");
        const std::string insert = "INSERT INTO Property (Description) VALUES ('" + std::string(3000, 'x') + "')";
        for (int i = 0; i < 300; ++i) connection->Execute(insert);
    }
    {
        const auto connection = SqliteEngine::Open(m_path)->Open();
        SQLite::Database(m_path, SQLite::OPEN_READWRITE).exec("DROP TABLE AttachmentIndex; VACUUM");
        for (const char* ending : {"", "-wal"}) fs::copy_file(m_path + ending, m_crashed + ending);
    }
    EXPECT_GT(fs::file_size(m_crashed + "-wal"), 0u);
    EXPECT_FALSE(HasLogOfAnotherFile(m_crashed));
}

TEST_F(RestoredFileTest, APathThatBeginsWithTwoSlashesIsCheckedToo) {
    Batches(3, m_path);
    const std::string backup = BytesOf(m_path);
    Batches(2, m_path);
    CrashInto(m_crashed, 3);
    EXPECT_TRUE(IsWholeWithoutLog("/" + m_crashed));
    std::ofstream(m_crashed, std::ios::binary) << backup;
    EXPECT_TRUE(HasLogOfAnotherFile("/" + m_crashed));
}

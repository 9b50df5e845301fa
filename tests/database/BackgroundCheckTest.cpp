#include "base/Error.h"
#include "database/BackgroundCheck.h"
#include "database/PageCheck.h"
#include "database/SqliteConnection.h"
#include "database/SqliteEngine.h"
#include "database/SqliteFileCheck.h"
#include "database/schema/SqliteSchema.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <thread>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

// A department that is too large to be checked when it is opened.
class BackgroundCheckTest : public ::testing::Test {
protected:
    BackgroundCheckTest() {
        CreateDatabase(m_path);
        const auto connection = SqliteEngine::Open(m_path)->Open();
        connection->Execute("INSERT INTO Setting (Name, Value) VALUES ('long', ?)", {std::string(70'000'000, 'x')});
        connection->Execute("INSERT INTO Setting (Name, Value) VALUES ('last', '')");
    }

    // Overwrites the pages at the end of the file.
    static void Damage(const std::string& path) {
        std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
        const std::string bytes(4096 * 8, '\xA5');
        file.seekp(-static_cast<std::streamoff>(bytes.size()), std::ios::end);
        file << bytes;
    }

    static std::ptrdiff_t OpenFiles() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    }

    ScratchFolder m_folder;
    std::string m_path = m_folder.In("department.db");
};

}  // namespace

TEST_F(BackgroundCheckTest, AWholeFileStaysInUse) {
    EXPECT_FALSE(IsCheckedWhenOpened(m_path));
    const auto engine = SqliteEngine::Open(m_path);
    const auto connection = engine->Open();
    engine->CheckInBackground();
    engine->WaitForCheck();
    EXPECT_TRUE(connection->IsHealthy());
    EXPECT_TRUE(engine->Open()->IsHealthy());
}

TEST_F(BackgroundCheckTest, ADamagedFileIsNotUsedAfterTheCheck) {
    Damage(m_path);
    const auto engine = SqliteEngine::Open(m_path);
    engine->CheckInBackground();
    engine->WaitForCheck();
    const Error error = RaisedBy([&] { engine->Open(); });
    EXPECT_EQ(error.Number(), SQLITE_CORRUPT);
    EXPECT_THAT(error.Description(), ::testing::StartsWith("The database is damaged. Stop working with it"));
    EXPECT_EQ(RaisedBy([&] { engine->WasCommitted("1 1"); }).Number(), SQLITE_CORRUPT);
}

TEST_F(BackgroundCheckTest, AConnectionIsNotReusedAfterTheCheckHasFoundDamage) {
    Damage(m_path);
    const auto check = std::make_shared<BackgroundCheck>(m_path);
    SqliteConnection connection(m_path, 1000, check);
    check->Wait();
    EXPECT_FALSE(connection.IsHealthy());
}

TEST_F(BackgroundCheckTest, AFileThatIsLockedAtFirstIsCheckedAfterwards) {
    Damage(m_path);
    auto lock = std::make_unique<SQLite::Database>(m_path, SQLite::OPEN_READWRITE);
    lock->exec("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
    const BackgroundCheck check(m_path);
    for (int i = 0; i < 10'000; ++i) std::this_thread::yield();  // so that the check has met the lock
    EXPECT_FALSE(check.HasFoundDamage());
    lock.reset();
    check.Wait();
    EXPECT_TRUE(check.HasFoundDamage());
}

TEST_F(BackgroundCheckTest, ACheckThatIsStoppedClosesTheFile) {
    const auto before = OpenFiles();
    for (int i = 0; i < 20; ++i) {
        const BackgroundCheck check(m_path);
        EXPECT_GT(OpenFiles(), before);
    }
    EXPECT_EQ(OpenFiles(), before);
}

TEST_F(BackgroundCheckTest, ARowThatBreaksARuleOfTheSchemaIsNotDamage) {
    {
        SQLite::Database database(m_path, SQLite::OPEN_READWRITE);
        database.exec("CREATE TABLE Ruled (A INT CHECK (A > 1), B INT NOT NULL)");
        database.exec(
            "PRAGMA ignore_check_constraints = ON; INSERT INTO Ruled VALUES (1, 1); "
            "PRAGMA ignore_check_constraints = OFF");
        database.exec(
            "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = REPLACE(sql, 'B INT NOT NULL', "
            "'B INT') WHERE name = 'Ruled'; PRAGMA writable_schema = RESET");
        database.exec(
            "INSERT INTO Ruled VALUES (2, NULL); PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = "
            "REPLACE(sql, 'B INT', 'B INT NOT NULL') WHERE name = 'Ruled'; PRAGMA writable_schema = RESET");
        EXPECT_EQ(database.execAndGet("SELECT COUNT(*) FROM pragma_quick_check WHERE quick_check <> 'ok'").getInt(), 2);
        EXPECT_TRUE(IsFileSound(database));
    }
    BackgroundCheck check(m_path);
    check.Wait();
    EXPECT_FALSE(check.HasFoundDamage());
}

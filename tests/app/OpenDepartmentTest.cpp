#include "app/Department.h"
#include "app/Termination.h"
#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "host/HostServices.h"
#include "tests/demo/sample/SampleFile.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

class OpenDepartmentTest : public ::testing::Test {
protected:
    std::string InScratch(const std::string& name) const { return m_directory.In(name); }

    std::string CopyOfSample(const std::string& name) const {
        CopySample(InScratch(name));
        return InScratch(name);
    }

    // Returns the error message. Checks that the file did not change.
    static std::string RefusalOf(const std::string& path) {
        const std::string before = Bytes(path);
        Options options;
        options.databasePath = path;
        std::string sentence;
        try {
            OpenDepartment(options, "/nowhere", {});
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::General);
            sentence = error.Description();
        }
        EXPECT_EQ(Bytes(path), before);
        return sentence;
    }

    ScratchFolder m_directory;
};

}  // namespace

TEST_F(OpenDepartmentTest, ADatabaseOfThisProgramOpens) {
    Options options;
    options.databasePath = CopyOfSample("room.sqlite");
    const Department department = OpenDepartment(options, "/nowhere", {});
    EXPECT_EQ(department.path, InScratch("room.sqlite"));
    EXPECT_NE(department.engine, nullptr);
    EXPECT_EQ(department.scratch, nullptr);
}

TEST_F(OpenDepartmentTest, AMissingFileIsNotCreated) {
    const std::string path = InScratch("absent.sqlite");
    EXPECT_EQ(RefusalOf(path), "There is no database '" + path + "'.");
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(OpenDepartmentTest, AFileThatIsNotADatabaseIsRefused) {
    const std::string path = InScratch("notes.txt");
    std::ofstream(path) << std::string(4096, 'x');
    EXPECT_EQ(RefusalOf(path), "The file '" + path + "' is not a database.");
}

TEST_F(OpenDepartmentTest, AnotherProgramsDatabaseIsRefused) {
    const std::string path = InScratch("other.sqlite");
    SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec("CREATE TABLE Property (Name TEXT)");
    EXPECT_EQ(RefusalOf(path), "The database '" + path + "' belongs to another program.");
}

TEST_F(OpenDepartmentTest, ANewerDatabaseIsRefused) {
    const std::string path = CopyOfSample("newer.sqlite");
    SQLite::Database(path, SQLite::OPEN_READWRITE).exec("PRAGMA user_version = 999");
    EXPECT_EQ(RefusalOf(path), "The database '" + path + "' was created by a newer version of this program.");
}

TEST_F(OpenDepartmentTest, ADamagedDatabaseIsRefusedWithASentence) {
    const std::string path = CopyOfSample("damaged.sqlite");
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    for (const int offset : {8192, 40960, 81920}) {
        file.seekp(offset);
        file << std::string(2048, '\xEE');
    }
    file.close();
    const std::string sentence = RefusalOf(path);
    EXPECT_NE(sentence.find(path), std::string::npos) << sentence;
}

TEST_F(OpenDepartmentTest, ALargeFileIsCheckedWhileItIsInUse) {
    Options options;
    options.databasePath = CopyOfSample("large.sqlite");
    {
        SQLite::Database file(*options.databasePath, SQLite::OPEN_READWRITE);
        SQLite::Statement insert(file, "INSERT INTO Setting (Name, Value) VALUES ('long', ?), ('last', '')");
        insert.bind(1, std::string(70'000'000, 'x'));
        insert.exec();
    }
    std::fstream file(*options.databasePath, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(-32768, std::ios::end);
    file << std::string(32768, '\xA5');
    file.close();
    const Department department = OpenDepartment(options, "/nowhere", {});
    const auto engine = std::dynamic_pointer_cast<SqliteEngine>(department.engine);
    engine->WaitForCheck();
    EXPECT_NE(RaisedBy([&] { engine->Open(); }).Description().find("The database is damaged."), std::string::npos);
}

TEST_F(OpenDepartmentTest, TheSampleIsCreatedOnceInTheDataDirectory) {
    const std::string data = InScratch("data/quellbrook");
    int made = 0;
    const auto progress = [&made](int percent) { made += percent == 100 ? 1 : 0; };
    EXPECT_EQ(OpenDepartment({}, data, progress).path, data + "/sample.sqlite");
    EXPECT_GT(made, 0);
    made = 0;
    EXPECT_EQ(OpenDepartment({}, data, progress).path, data + "/sample.sqlite");
    EXPECT_EQ(made, 0);
}

TEST_F(OpenDepartmentTest, AGeneratedDepartmentHasItsOwnFile) {
    Options options;
    options.size = 20;
    EXPECT_EQ(OpenDepartment(options, InScratch("data"), {}).path, InScratch("data") + "/department-20.sqlite");
}

TEST_F(OpenDepartmentTest, OnlyASampleDepartmentShowsItsAccounts) {
    Options options;
    options.databasePath = CopyOfSample("room.sqlite");
    HostServices::Current().SetEngine(OpenDepartment(options, "/nowhere", {}).engine);
    EXPECT_FALSE(AccountsToShow().empty());
    SQLite::Database(*options.databasePath, SQLite::OPEN_READWRITE).exec("DELETE FROM Setting");
    EXPECT_TRUE(AccountsToShow().empty());
    HostServices::Current().SetEngine(nullptr);
}

TEST_F(OpenDepartmentTest, AScratchCopyIsDeletedAfterwards) {
    Options options;
    options.fresh = true;
    std::string path;
    {
        const Department department = OpenDepartment(options, InScratch("data"), {});
        path = department.path;
        EXPECT_TRUE(std::filesystem::exists(path));
        EXPECT_FALSE(std::filesystem::exists(InScratch("data")));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(path).parent_path()));
}

TEST_F(OpenDepartmentTest, AFreshUncategorizedDepartmentHasNoCategories) {
    Options options;
    options.fresh = true;
    options.uncategorized = true;
    const Department department = OpenDepartment(options, InScratch("data"), {});
    SQLite::Database file(department.path);
    EXPECT_EQ(file.execAndGet("SELECT COUNT(*) FROM StorageLocation WHERE Type <> 1").getInt(), 0);
    EXPECT_EQ(file.execAndGet("SELECT COUNT(*) FROM StorageLocation").getInt(), 21);
}

TEST_F(OpenDepartmentTest, ATerminationCancelsTheCreation) {
    const Termination termination;
    std::raise(SIGTERM);
    const Error canceled = RaisedBy([&] { OpenDepartmentWithProgress({}, InScratch("data"), termination); });
    EXPECT_EQ(canceled.Description(), "The creation of the department was canceled.");
    EXPECT_FALSE(std::filesystem::exists(InScratch("data/sample.sqlite")));
}

TEST_F(OpenDepartmentTest, ADataDirectoryThatCannotBeCreatedIsReported) {
    std::ofstream(InScratch("file")) << "";
    try {
        OpenDepartment({}, InScratch("file") + "/data", {});
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Description(),
                  "The directory '" + InScratch("file") + "/data' can't be created: Not a directory.");
    }
}

}  // namespace quellbrook::testing

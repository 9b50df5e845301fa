#include "database/schema/SchemaUpgrade.h"

#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "tests/support/InterruptedSqlite.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace quellbrook;
using namespace quellbrook::testing;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

Lines Query(const std::string& path, const std::string& sql) {
    SQLite::Database database(path, SQLite::OPEN_READWRITE);
    SQLite::Statement statement(database, sql);
    Lines lines;
    while (statement.executeStep()) {
        std::string line;
        for (int i = 0; i < statement.getColumnCount(); ++i)
            line += (statement.isColumnNull(i) ? "NULL" : statement.getColumn(i).getString()) + "|";
        lines.push_back(line);
    }
    return lines;
}

const char* const tables[] = {"StorageLocation", "Property",       "Vehicle",     "PropertyTracking", "VehicleTracking",
                              "Incident",        "IncdProperty",   "IncdVehicle", "AttachmentFolder", "AttachmentIndex",
                              "CodeTable",       "Person",         "Account",     "AccountRight",     "Setting",
                              "CurrentPlace",    "sqlite_sequence"};

// Every row with the columns of version 1.
Lines RowsOf(const std::string& path) {
    Lines rows;
    for (const std::string table : tables) {
        const bool isLocation = table == "StorageLocation";
        const std::string columns =
            isLocation ? "IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated, ContainerNo" : "*";
        for (const std::string& row : Query(path, "SELECT " + columns + " FROM " + table + " ORDER BY 1, 2"))
            rows.push_back(table + ": " + row);
    }
    return rows;
}

Lines SchemaOf(const std::string& path) {
    Lines objects = Query(path, "SELECT type, name, tbl_name, sql FROM sqlite_schema ORDER BY type, name");
    for (std::string& object : objects)
        object.erase(std::remove_if(object.begin(), object.end(), [](unsigned char c) { return std::isspace(c); }),
                     object.end());
    return objects;
}

std::string VersionOf(const std::string& path) { return Query(path, "PRAGMA user_version").at(0); }

class SchemaUpgradeTest : public ::testing::Test {
protected:
    SchemaUpgradeTest() { WriteVersion1(); }

    void WriteVersion1() const {
        std::ifstream file(QUELLBROOK_SOURCE_DIR "/tests/database/schema/version1.sql");
        std::stringstream text;
        text << file.rdbuf();
        SQLite::Database database(m_path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec("PRAGMA journal_mode = WAL");
        database.exec(text.str());
    }
    void Execute(const std::string& sql) const { SQLite::Database(m_path, SQLite::OPEN_READWRITE).exec(sql); }

    ScratchFolder m_folder;
    const std::string m_path = m_folder.In("department.sqlite");
    const std::string m_copy = m_path + ".version-1";
};

}  // namespace

TEST_F(SchemaUpgradeTest, TheStepsLeadToThePresentVersion) {
    int32_t version = 1;
    for (const SchemaStep& step : SchemaSteps()) EXPECT_EQ(step.version, ++version);
    EXPECT_EQ(version, SchemaVersion);
}

TEST_F(SchemaUpgradeTest, OpeningUpgradesAnOlderDatabaseAndSaysSo) {
    const Lines before = RowsOf(m_path);
    ASSERT_THAT(before, Contains(HasSubstr("PropertyTracking: ")));
    EXPECT_EQ(VersionOf(m_path), "1|");
    const auto engine = SqliteEngine::Open(m_path);
    EXPECT_EQ(VersionOf(m_path), std::to_string(SchemaVersion) + "|");
    EXPECT_EQ(RowsOf(m_path), before);
    EXPECT_THAT(engine->Notes(),
                ::testing::ElementsAre("The database '" + m_path +
                                       "' was upgraded from version 1 to 3. The file as it was is '" + m_copy +
                                       "'. It contains the same records: keep it as safe as the database."));
    EXPECT_TRUE(engine->GetDialect().hasCurrentPlace);
    EXPECT_TRUE(engine->GetDialect().hasDescriptionIndex);
    EXPECT_TRUE(engine->GetDialect().itemsAreDistinct);
    EXPECT_THAT(SqliteEngine::Open(m_path)->Notes(), IsEmpty());
}

TEST_F(SchemaUpgradeTest, AnUpgradedDatabaseHasTheSchemaOfANewOne) {
    const std::string created = m_folder.In("new.sqlite");
    CreateDatabase(created);
    UpgradeDatabase(m_path, 20);
    EXPECT_EQ(SchemaOf(m_path), SchemaOf(created));
    EXPECT_EQ(Query(m_path, "PRAGMA integrity_check").at(0), "ok|");
    EXPECT_THAT(Query(m_path, "PRAGMA foreign_key_check"), IsEmpty());
    EXPECT_EQ(Query(m_path, "PRAGMA foreign_key_list(Property)").size(), 2u);
}

TEST_F(SchemaUpgradeTest, TheCopyIsTheDatabaseAsItWas) {
    const Lines rows = RowsOf(m_path), schema = SchemaOf(m_path);
    const auto upgrade = UpgradeDatabase(m_path, 20);
    ASSERT_TRUE(upgrade);
    EXPECT_EQ(upgrade->fromVersion, 1);
    EXPECT_EQ(upgrade->backupPath, m_copy);
    struct stat status {};
    stat(m_copy.c_str(), &status);
    EXPECT_EQ(status.st_mode & 0777u, 0600u);
    EXPECT_EQ(RowsOf(m_copy), rows);
    EXPECT_EQ(SchemaOf(m_copy), schema);
    EXPECT_EQ(VersionOf(m_copy), "1|");
    EXPECT_FALSE(UpgradeDatabase(m_path, 20));
    EXPECT_EQ(m_folder.CountOfEntries(), 2);
}

TEST_F(SchemaUpgradeTest, ACopyIsNeverOverwritten) {
    std::ofstream(m_copy) << "an earlier copy";
    EXPECT_EQ(UpgradeDatabase(m_path, 20)->backupPath, m_copy + "-2");
    std::stringstream text;
    text << std::ifstream(m_copy).rdbuf();
    EXPECT_EQ(text.str(), "an earlier copy");
}

TEST_F(SchemaUpgradeTest, ADatabaseWithoutFactsGetsThem) {
    Execute("DROP TABLE SchemaFact");
    EXPECT_TRUE(SqliteEngine::Open(m_path)->GetDialect().itemsAreDistinct);
}

TEST_F(SchemaUpgradeTest, ItemsAreNotTakenAsDistinctWithTheViewOfAHost) {
    for (const char* facts : {"DELETE FROM SchemaFact", "DROP TABLE SchemaFact"}) {
        std::filesystem::remove(m_path);
        WriteVersion1();
        Execute(
            "DROP VIEW vwVehicleDisplayInfo; CREATE VIEW vwVehicleDisplayInfo AS SELECT VehicleNo, RegNumber, "
            "RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle UNION ALL SELECT VehicleNo, RegNumber, "
            "RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle");
        Execute(facts);
        EXPECT_FALSE(SqliteEngine::Open(m_path)->GetDialect().itemsAreDistinct) << facts;
    }
}

// Rows that version 1 accepted and this version does not.
TEST_F(SchemaUpgradeTest, WrongRowsStayAsTheyAre) {
    Execute(
        "INSERT INTO PropertyTracking (PropertyNo, SeqNo, ReceivedBy, DateReceived, LastUpdated) "
        "SELECT PropertyNo, 99, 'nobody', 'yesterday', '' FROM Property LIMIT 1");
    Execute("UPDATE Property SET CurrTrackSeq = 77 WHERE PropertyNo = (SELECT MAX(PropertyNo) FROM Property)");
    Execute("UPDATE StorageLocation SET Type = 4, ActiveFlag = 'maybe' WHERE Path LIKE '/0/1/11/13/%'");
    const Lines before = RowsOf(m_path);
    ASSERT_THAT(before, Contains(HasSubstr("nobody")));
    EXPECT_TRUE(SqliteEngine::Open(m_path)->GetDialect().hasCurrentPlace);
    EXPECT_EQ(RowsOf(m_path), before);
}

TEST_F(SchemaUpgradeTest, WhatAnAdministratorAddedStays) {
    Execute(
        "ALTER TABLE Property ADD COLUMN Bench TEXT DEFAULT 'north'; CREATE INDEX PropertyByBench ON Property (Bench); "
        "CREATE TABLE Bench (Name TEXT); CREATE TRIGGER BenchAfterInsert AFTER INSERT ON Bench BEGIN SELECT 1; END");
    SqliteEngine::Open(m_path);
    EXPECT_EQ(Query(m_path,
                    "SELECT COUNT(*) FROM sqlite_schema WHERE name IN ('PropertyByBench', 'Bench', "
                    "'BenchAfterInsert')"),
              Lines{"3|"});
    EXPECT_EQ(Query(m_path, "SELECT DISTINCT Bench FROM Property"), Lines{"north|"});
    EXPECT_EQ(Query(m_path, "PRAGMA foreign_key_list(Property)").size(), 2u);
}

TEST_F(SchemaUpgradeTest, AFailureAtAnyStepChangesNothing) {
    const Lines rows = RowsOf(m_path), schema = SchemaOf(m_path);
    int failures = 0;
    for (int steps = 1;; steps += 5) {
        Error error(0, "", "");
        {
            const InterruptedSqlite interruption(steps);
            error = RaisedBy([&] { UpgradeDatabase(m_path, 20); });
            if (error.Number() == 0) break;
        }
        ++failures;
        ASSERT_THAT(error.Description(), HasSubstr("interrupted. It has not been changed."));
        ASSERT_EQ(m_folder.CountOfEntries(), 1) << steps;
        ASSERT_EQ(VersionOf(m_path), "1|") << steps;
        ASSERT_EQ(SchemaOf(m_path), schema) << steps;
    }
    EXPECT_GT(failures, 20);
    EXPECT_EQ(RowsOf(m_path), rows);
    EXPECT_EQ(VersionOf(m_path), std::to_string(SchemaVersion) + "|");
    EXPECT_EQ(RowsOf(m_copy), rows);
}

TEST_F(SchemaUpgradeTest, ACrashAtAnyStepLosesNothing) {
    const Lines rows = RowsOf(m_path);
    int crashes = 0;
    for (int steps = 1;; steps += 29) {
        const pid_t child = fork();
        if (child == 0) {
            const InterruptedSqlite interruption(steps, InterruptedSqlite::End::Crash);
            UpgradeDatabase(m_path, 20);
            _exit(1);
        }
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_EQ(RowsOf(m_path), rows) << steps;
        if (status != 0) break;
        ++crashes;
        ASSERT_EQ(VersionOf(m_path), "1|") << steps;
    }
    EXPECT_GT(crashes, 5);
    EXPECT_EQ(VersionOf(m_path), std::to_string(SchemaVersion) + "|");
    EXPECT_TRUE(SqliteEngine::Open(m_path)->GetDialect().hasCurrentPlace);
}

TEST_F(SchemaUpgradeTest, WithoutACopyThereIsNoUpgrade) {
    std::filesystem::create_directories(m_path + ".copying/occupied");
    const Error error = RaisedBy([&] { SqliteEngine::Open(m_path, 20); });
    EXPECT_THAT(error.Description(), HasSubstr("a copy can't be made as '" + m_path + ".copying'"));
    EXPECT_THAT(error.Description(), HasSubstr("It has not been changed."));
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(VersionOf(m_path), "1|");
}

TEST_F(SchemaUpgradeTest, ADatabaseInUseIsUpgradedLater) {
    {
        SQLite::Database other(m_path, SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE");
        EXPECT_THAT(
            RaisedBy([&] { SqliteEngine::Open(m_path, 20); }).Description(),
            HasSubstr("another program is writing to it. Close it there and try again. It has not been changed."));
        EXPECT_EQ(VersionOf(m_path), "1|");
        EXPECT_FALSE(std::filesystem::exists(m_copy));
    }
    SqliteEngine::Open(m_path, 20);
    EXPECT_TRUE(std::filesystem::exists(m_copy));
}

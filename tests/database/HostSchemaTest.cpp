#include "base/Error.h"
#include "database/HostTables.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "tests/support/FaultyFileSystem.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

using namespace quellbrook;
using namespace quellbrook::testing;
using ::testing::HasSubstr;
namespace fs = std::filesystem;

namespace {

class HostSchemaTest : public ::testing::Test {
protected:
    // A file with the tables and columns that are needed, apart from those that the filter refuses.
    using Filter = std::function<bool(const std::string& table, const std::string& column)>;
    void Create(const Filter& has = [](const auto&, const auto&) { return true; }) {
        fs::remove(m_path);
        SQLite::Database database(m_path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        for (const HostTable& table : HostTables()) {
            if (!has(table.name, "")) continue;
            std::string columns = "Other";
            for (const char* column : table.columns)
                if (has(table.name, column)) columns += std::string(", ") + column;
            database.exec(std::string("CREATE TABLE ") + table.name + " (" + columns + ")");
        }
    }
    void Execute(const char* sql) { SQLite::Database(m_path, SQLite::OPEN_READWRITE).exec(sql); }

    std::string Refusal() {
        const Error error = RaisedBy([&] { SqliteEngine::OpenHostSchema(m_path, 20); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_THAT(error.Description(), HasSubstr(m_path));
        return error.Description();
    }
    std::string Bytes() const {
        std::ifstream file(m_path, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    }

    // The name of a transaction whose commit has failed, with an unknown outcome.
    std::string FailToCommit(Connection& connection) {
        connection.Begin();
        connection.Execute("INSERT INTO Person (PersonNo, LastName) VALUES (1, 'Raman')");
        m_system.Fail(FaultyFileSystem::Call::Sync, 1, 1);
        EXPECT_NE(RaisedBy([&] { connection.Commit(); }).Number(), 0);
        std::string name = connection.TransactionName();
        connection.Rollback();
        return name;
    }

    const ScratchFolder m_folder;
    FaultyFileSystem m_system;
    const std::string m_path = m_folder.In("records.db");
};

}  // namespace

TEST_F(HostSchemaTest, AFileWithTheTablesOpens) {
    Create();
    const auto engine = SqliteEngine::OpenHostSchema(m_path);
    engine->Open()->Execute("INSERT INTO Person (PersonNo, LastName) VALUES (1, 'Raman')");
    Dialect plain;
    plain.concatenation = "||";
    EXPECT_EQ(engine->GetDialect(), plain);
    EXPECT_TRUE(engine->Notes().empty());
}

TEST_F(HostSchemaTest, TheReferenceSchemaHasTheTables) {
    CreateDatabase(m_path);
    const auto engine = SqliteEngine::OpenHostSchema(m_path);
    EXPECT_FALSE(engine->GetDialect().hasCurrentPlace);
    EXPECT_FALSE(engine->GetDialect().itemsAreDistinct);
}

TEST_F(HostSchemaTest, EachMissingTableAndColumnIsNamed) {
    for (const HostTable& table : HostTables()) {
        Create([&](const std::string& each, const std::string&) { return each != table.name; });
        EXPECT_THAT(Refusal(), HasSubstr(" has no table or view '" + std::string(table.name) + "'"));
        for (const char* column : table.columns) {
            Create(
                [&](const std::string& each, const std::string& name) { return each != table.name || name != column; });
            EXPECT_THAT(Refusal(), HasSubstr(" has no column '" + std::string(column) + "' in '" + table.name + "'"));
        }
    }
}

TEST_F(HostSchemaTest, AViewWithColumnsInAnyCaseCounts) {
    Create([](const std::string& table, const std::string&) { return table != "Incident"; });
    Execute("CREATE VIEW incident AS SELECT 1 AS INCIDENTNO, 2 AS incidentid, 3 AS CaseNbr, 0 AS IsSecured");
    EXPECT_NO_THROW(SqliteEngine::OpenHostSchema(m_path));
}

TEST_F(HostSchemaTest, FilesThatAreNoDatabaseAreRefused) {
    EXPECT_THAT(Refusal(), HasSubstr("There is no database"));
    EXPECT_FALSE(fs::exists(m_path));
    std::ofstream(m_path) << "A text that is longer than the header of a database file, which has a hundred bytes. "
                          << 1;
    EXPECT_THAT(Refusal(), HasSubstr("is not a database"));
}

TEST_F(HostSchemaTest, ARefusedFileIsNotChanged) {
    Create([](const std::string& table, const std::string&) { return table != "Person"; });
    const std::string before = Bytes();
    Refusal();
    EXPECT_TRUE(Bytes() == before);
}

TEST_F(HostSchemaTest, OpeningChangesTheJournalModeAndNoRights) {
    Create();
    fs::permissions(m_path, fs::perms(0640));
    SqliteEngine::OpenHostSchema(m_path)->Open();
    EXPECT_EQ(fs::status(m_path).permissions(), fs::perms(0640));
    EXPECT_EQ(SQLite::Database(m_path).execAndGet("PRAGMA journal_mode").getString(), "wal");
    const std::string before = Bytes();
    SqliteEngine::OpenHostSchema(m_path)->Open();
    EXPECT_TRUE(Bytes() == before);
}

TEST_F(HostSchemaTest, TriggersOfTheHostDoNotRunRecursively) {
    Create();
    Execute(
        "CREATE TRIGGER Counted AFTER UPDATE ON Person BEGIN UPDATE Person SET IsActive = IsActive + 1; END;"
        "INSERT INTO Person (PersonNo, IsActive) VALUES (1, 0)");
    SqliteEngine::OpenHostSchema(m_path)->Open()->Execute("UPDATE Person SET LastName = 'Raman'");
    EXPECT_EQ(SQLite::Database(m_path).execAndGet("SELECT IsActive FROM Person").getInt(), 1);
}

TEST_F(HostSchemaTest, ForeignKeysAreChecked) {
    Create();
    Execute("CREATE TABLE Parent (No INTEGER PRIMARY KEY); CREATE TABLE Child (No INTEGER REFERENCES Parent (No))");
    const auto connection = SqliteEngine::OpenHostSchema(m_path)->Open();
    EXPECT_EQ(RaisedBy([&] { connection->Execute("INSERT INTO Child (No) VALUES (1)"); }).Number(),
              ErrorNumber::IntegrityViolation);
}

TEST_F(HostSchemaTest, WithoutMarksTheOutcomeOfAFailedCommitIsUnknown) {
    Create();
    const auto engine = SqliteEngine::OpenHostSchema(m_path);
    const auto connection = engine->Open();
    const std::string name = FailToCommit(*connection);
    EXPECT_NE(name, "");
    EXPECT_EQ(RaisedBy([&] { engine->WasCommitted(name); }).Description(), "The database has no table BatchMark.");
    connection->Begin();
    EXPECT_NO_THROW(connection->Commit());
}

TEST_F(HostSchemaTest, WithMarksTheOutcomeOfAFailedCommitIsFound) {
    Create();
    Execute("CREATE TABLE BatchMark (MarkNo INTEGER PRIMARY KEY, Token INTEGER NOT NULL)");
    const auto engine = SqliteEngine::OpenHostSchema(m_path);
    const auto connection = engine->Open();
    const std::string name = FailToCommit(*connection);
    EXPECT_NE(name, "");
    EXPECT_EQ(engine->WasCommitted(name),
              SQLite::Database(m_path).execAndGet("SELECT COUNT(*) FROM Person").getInt() == 1);
}

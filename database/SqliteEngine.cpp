#include "database/SqliteEngine.h"

#include "base/Error.h"
#include "database/BackgroundCheck.h"
#include "database/LogCheck.h"
#include "database/SqliteConnection.h"
#include "database/SqliteError.h"
#include "database/SqliteFileCheck.h"
#include "database/schema/SchemaUpgrade.h"
#include "database/schema/SideTables.h"
#include "database/schema/SqliteSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace quellbrook {

namespace {

constexpr int longestOpening = 5000;

bool StatesThatItemsAreDistinct(Connection& connection) {
    bool found = false;
    const auto receiver = [&](const Row&) { return !(found = true); };
    connection.Query("SELECT name FROM sqlite_schema WHERE name = 'SchemaFact'", {}, receiver);
    if (!std::exchange(found, false)) return false;
    connection.Query("SELECT Name FROM SchemaFact WHERE Name = ?", {ItemsAreDistinctFact}, receiver);
    return found;
}

Dialect HostDialect() {
    Dialect dialect;
    dialect.concatenation = "||";
    return dialect;
}

Dialect DialectOf(Connection& connection, const SideTableState& sideTables) {
    Dialect dialect = HostDialect();
    dialect.equalsLikeLike = true;  // all text columns of the schema use NOCASE
    dialect.hasCurrentPlace = sideTables.currentPlace;
    dialect.hasDescriptionIndex = sideTables.descriptionIndex;
    dialect.itemsAreDistinct = StatesThatItemsAreDistinct(connection);
    return dialect;
}

std::string NoteOf(const std::string& path, const SchemaUpgrade& upgrade) {
    std::string note = "The database '" + path + "' was upgraded from version " + std::to_string(upgrade.fromVersion);
    note += " to " + std::to_string(SchemaVersion) + ". The file as it was is '" + upgrade.backupPath;
    return note + "'. It contains the same records: keep it as safe as the database.";
}

}  // namespace

std::shared_ptr<SqliteEngine> SqliteEngine::Open(const std::string& path, int busyMilliseconds) {
    const int lockLimit = std::min(busyMilliseconds, longestOpening);
    CheckSqliteFile(path, std::chrono::milliseconds(lockLimit));
    const std::optional<SchemaUpgrade> upgrade = UpgradeDatabase(path, lockLimit);
    SideTableState sideTables = ProveSideTables(path, lockLimit);
    SqliteConnection connection(path, busyMilliseconds);
    std::shared_ptr<SqliteEngine> engine(
        new SqliteEngine(path, busyMilliseconds, SchemaOwner::Program, DialectOf(connection, sideTables)));
    if (upgrade) engine->m_notes.push_back(NoteOf(path, *upgrade));
    for (std::string& note : sideTables.notes) engine->m_notes.push_back(std::move(note));
    return engine;
}

std::shared_ptr<SqliteEngine> SqliteEngine::OpenHostSchema(const std::string& path, int busyMilliseconds) {
    CheckHostFile(path, std::chrono::milliseconds(std::min(busyMilliseconds, longestOpening)));
    const SqliteConnection connection(path, busyMilliseconds, nullptr, SchemaOwner::Host);
    return std::shared_ptr<SqliteEngine>(new SqliteEngine(path, busyMilliseconds, SchemaOwner::Host, HostDialect()));
}

// Opening the other file would apply the log of ours to it.
void SqliteEngine::RequireSameFile() const {
    const std::optional<FileIdentity> present = IdentityOf(m_path);
    const bool isReplaced = present && present != m_file;
    if (!present || (!isReplaced && !HasLogOfAnotherFile(m_path))) return;
    Raise(ErrorNumber::General, "SqliteEngine.Open",
          "The database '" + m_path +
              "' has been replaced while this program was running, and is no longer used. Close the program "
              "everywhere, move '" +
              m_path + "-wal' and '" + m_path +
              "-shm' into another folder, restore the backup again, and start the program.");
}

void SqliteEngine::CheckInBackground() {
    if (IsCheckedWhenOpened(m_path)) return;
    try {
        m_check = std::make_shared<const BackgroundCheck>(m_path);
    } catch (const SQLite::Exception& failure) {
        RaiseOpenFailure(m_path, failure.getExtendedErrorCode(), failure.what());
    }
}

void SqliteEngine::WaitForCheck() const {
    if (m_check) m_check->Wait();
}

std::unique_ptr<SqliteConnection> SqliteEngine::Connect() const {
    RequireSameFile();
    if (m_check && m_check->HasFoundDamage()) RaiseSqliteError(SQLITE_CORRUPT, "quick_check", "SqliteEngine.Open");
    return std::make_unique<SqliteConnection>(m_path, m_busyMilliseconds, m_check, m_owner);
}

std::unique_ptr<Connection> SqliteEngine::Open() { return Connect(); }

bool SqliteEngine::WasCommitted(const std::string& transactionName) {
    return Connect()->SettleOutcome(transactionName);
}

}  // namespace quellbrook

#include "database/SqliteConnection.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/BackgroundCheck.h"
#include "database/DatabaseFile.h"
#include "database/LockWait.h"
#include "database/LogCheck.h"
#include "database/SqliteError.h"
#include "sql/tsql/TransactSqlRewriter.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <variant>

namespace quellbrook {

namespace {

const char* const executeSource = "SqliteConnection.Execute";
const char* const querySource = "SqliteConnection.Query";

const char* const settings =
    "PRAGMA journal_mode = WAL;"
    "PRAGMA synchronous = FULL;"
    "PRAGMA foreign_keys = ON;"
    "PRAGMA temp_store = MEMORY;"
    "PRAGMA cache_size = -65536";

// Makes delete triggers run also for rows that REPLACE removes. Triggers of a host may rely on the default.
const char* const settingOfProgram = "PRAGMA recursive_triggers = ON";

std::unique_ptr<SQLite::Database> OpenDatabase(const std::string& path, int busyMilliseconds, SchemaOwner owner) {
    try {
        auto database = std::make_unique<SQLite::Database>(path, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
        WaitForLocks(database->getHandle(), std::chrono::milliseconds(busyMilliseconds));
        database->exec(settings);
        if (owner == SchemaOwner::Program) database->exec(settingOfProgram);
        return database;
    } catch (const SQLite::Exception& failure) {
        RaiseOpenFailure(path, failure.getExtendedErrorCode(), failure.what());
    }
}

// One statement of a normalized text uses only some of the values, by their numbers.
void BindValues(SqliteStatement& statement, const sql::NormalizedStatement& normalized) {
    const size_t count = std::min(normalized.values.size(), static_cast<size_t>(statement.ParameterCount()));
    for (size_t i = 0; i < count; ++i)
        std::visit([&](const auto& value) { statement.Bind(static_cast<int>(i) + 1, value); }, normalized.values[i]);
}

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path, int busyMilliseconds,
                                   std::shared_ptr<const BackgroundCheck> check, SchemaOwner owner)
    : m_path(std::filesystem::absolute(path)),
      m_check(std::move(check)),
      m_database(OpenDatabase(path, busyMilliseconds, owner)),
      m_handle(m_database->getHandle()),
      m_statements(m_handle),
      m_temporaryTables(m_handle),
      m_marks(m_handle),
      m_file(StateOf(m_path).value_or(FileState())) {}

// The last connection to a file moves the log into it. That would destroy a backup that has been copied over the file.
SqliteConnection::~SqliteConnection() {
    const std::optional<FileState> present = StateOf(m_path);
    if (present && present->lastWrite != m_file.lastWrite && HasLogOfAnotherFile(m_path))
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

template <typename Work>
auto SqliteConnection::Watch(Work work) {
    try {
        return work();
    } catch (...) {
        if (!IsUsableAfterLastCall(m_handle)) m_isHealthy = false;
        throw;
    }
}

void SqliteConnection::Run(std::string_view sql, std::string_view source) {
    Watch([&] { SqliteStatement(m_handle, sql, source).Run(source); });
}

void SqliteConnection::Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
                             const RowReceiver& receiver) {
    Watch([&] {
        std::unique_ptr<SqliteStatement> query = m_statements.TakeQuery(sql);
        m_temporaryTables.RequireInUse(query->TemporaryTables(), querySource);
        query->Bind(parameters, querySource);
        if (query->Step(querySource)) {
            Row row = query->MakeRow();
            do query->Read(row);
            while (receiver(row) && query->Step(querySource));
        }
        query->Reset();
        m_statements.KeepQuery(sql, std::move(query));
    });
}

void SqliteConnection::Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    Watch([&] {
        if (m_inBatch && parameters.empty() && TryExecutePrepared(sql)) return;
        ExecuteText(sql, parameters);
    });
}

bool SqliteConnection::TryExecutePrepared(const std::string& sql) {
    if (!sql::NormalizeStatement(sql, m_normalized)) return false;
    std::vector<SqliteStatement>& statements = m_statements.ForBatch(m_normalized.text);
    for (SqliteStatement& statement : statements) {
        m_temporaryTables.RequireInUse(statement.TemporaryTables(), executeSource);
        BindValues(statement, m_normalized);
        statement.Run(executeSource);
    }
    return !statements.empty();
}

void SqliteConnection::ExecuteText(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    const auto statements = sql::RewriteTransactSql(sql);
    if (!parameters.empty() && statements.size() != 1)
        Raise(ErrorNumber::General, executeSource, "Only a single statement can have parameters.");
    for (const sql::RewrittenStatement& rewritten : statements) {
        if (rewritten.kind == sql::StatementKind::Creation) {
            m_temporaryTables.Create(rewritten.text, rewritten.temporaryTables.front());
        } else if (rewritten.kind == sql::StatementKind::Removal) {
            m_temporaryTables.Drop(rewritten.text, rewritten.temporaryTables.front());
        } else {
            SqliteStatement statement(m_handle, rewritten, executeSource);
            m_temporaryTables.RequireInUse(statement.TemporaryTables(), executeSource);
            statement.Bind(parameters, executeSource);
            statement.Run(executeSource);
        }
    }
}

std::vector<ColumnDescription> SqliteConnection::DescribeTable(const std::string& table) {
    return Watch([&] {
        const std::string query = "SELECT * FROM \"" + Replace(table, "\"", "\"\"") + "\"";
        return SqliteStatement(m_handle, query, "SqliteConnection.DescribeTable").Describe();
    });
}

// The identity is that of the statement itself: SQLite restores it after each trigger.
int32_t SqliteConnection::Insert(const std::string& sql, const std::vector<TaggedValue>& parameters,
                                 const std::string& /*keyColumn*/) {
    Execute(sql, parameters);
    return ToInt32(TaggedValue::FromInteger(sqlite3_last_insert_rowid(m_handle)));
}

void SqliteConnection::Begin() {
    m_mark.clear();
    m_temporaryTables.Begin();
    Run("BEGIN IMMEDIATE", "SqliteConnection.Begin");
    m_inBatch = true;
}

void SqliteConnection::Commit() {
    const char* const source = "SqliteConnection.Commit";
    std::string mark = Watch([&] { return m_marks.Write(); });
    try {
        m_mark = std::move(mark);
        Run("COMMIT", source);
    } catch (...) {
        if (!MayHaveCommitted()) m_mark.clear();
        throw;
    }
    EndBatch();
    // A commit may move the log into the file.
    if (const std::optional<FileState> present = StateOf(m_path)) m_file.lastWrite = present->lastWrite;
}

// After COMMIT failed. The end of a transaction is the last thing that is written, then it is synchronized.
bool SqliteConnection::MayHaveCommitted() {
    const bool isStillOpen = sqlite3_get_autocommit(m_handle) == 0;
    const int code = sqlite3_extended_errcode(m_handle);
    return !isStillOpen && code != SQLITE_FULL && code != SQLITE_IOERR_WRITE;
}

// The write-ahead log may contain the whole transaction although it could not be synchronized. Other connections do not
// see it there, but after a crash it would be found. The new transaction either follows it or overwrites it.
bool SqliteConnection::SettleOutcome(const std::string& mark) {
    try {
        Begin();
        const bool wasCommitted = m_marks.WasCommitted(mark);
        Commit();
        if (wasCommitted) MoveLogIntoFile();
        return wasCommitted;
    } catch (...) {
        Rollback();
        throw;
    }
}

// Synchronizing the log again would not be enough: after a failure, the system may regard its pages as written.
void SqliteConnection::MoveLogIntoFile() {
    const char* const source = "SqliteConnection.MoveLogIntoFile";
    SqliteStatement checkpoint(m_handle, "PRAGMA wal_checkpoint(FULL)", source);
    checkpoint.Step(source);
    Row row = checkpoint.MakeRow();
    checkpoint.Read(row);
    if (row.At(0) != TaggedValue(0)) Raise(ErrorNumber::General, source, "Another program uses the database.");
}

void SqliteConnection::EndBatch() noexcept {
    m_statements.EndBatch();
    m_inBatch = false;
}

void SqliteConnection::Rollback() noexcept {
    if (m_inBatch) m_temporaryTables.Rollback();
    EndBatch();
    if (sqlite3_get_autocommit(m_handle)) return;
    if (sqlite3_exec(m_handle, "ROLLBACK", nullptr, nullptr, nullptr) != SQLITE_OK) m_isHealthy = false;
}

bool SqliteConnection::IsHealthy() {
    if (!m_isHealthy || (m_check && m_check->HasFoundDamage())) return false;
    const std::optional<FileState> present = StateOf(m_path);
    m_isHealthy =
        present && present->identity == m_file.identity && (present->lastWrite == m_file.lastWrite || FollowFile());
    if (m_isHealthy) m_file.lastWrite = present->lastWrite;
    return m_isHealthy;
}

// After something else has written to the file: another connection that moved the log into it, or a copy over it.
bool SqliteConnection::FollowFile() {
    if (HasLogOfAnotherFile(m_path)) return false;
    sqlite3_db_release_memory(m_handle);  // the cached pages may be those of another file
    return true;
}

void SqliteConnection::Reset() {
    Rollback();
    m_temporaryTables.DropTablesInUse();
}

}  // namespace quellbrook

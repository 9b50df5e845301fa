#pragma once

#include "database/BatchMarks.h"
#include "database/Connection.h"
#include "database/DatabaseFile.h"
#include "database/StatementCache.h"
#include "database/TemporaryTables.h"
#include "sql/tsql/NormalizedStatement.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace SQLite {
class Database;
}

namespace quellbrook {

class BackgroundCheck;

// Whose schema a file has: the reference schema of this program, or one of the host's own.
enum class SchemaOwner { Program, Host };

// A connection to a SQLite file with a write-ahead log, full synchronization and foreign keys. Statements are rewritten
// from Transact-SQL. Queries and the data-changing statements of batches stay prepared.
class SqliteConnection : public Connection {
public:
    // The check belongs to the file and may be null.
    SqliteConnection(const std::string& path, int busyMilliseconds,
                     std::shared_ptr<const BackgroundCheck> check = nullptr, SchemaOwner owner = SchemaOwner::Program);
    ~SqliteConnection() override;

    void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
               const RowReceiver& receiver) override;
    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters = {}) override;
    int32_t Insert(const std::string& sql, const std::vector<TaggedValue>& parameters,
                   const std::string& keyColumn) override;
    std::vector<ColumnDescription> DescribeTable(const std::string& table) override;
    void Begin() override;
    void Commit() override;
    void Rollback() noexcept override;
    std::string TransactionName() const override { return m_mark; }
    // See Engine::WasCommitted.
    bool SettleOutcome(const std::string& mark);
    // Also false after the file has been deleted, replaced or overwritten by an older copy, since changes to it would
    // be lost, and after the check has found damage.
    bool IsHealthy() override;
    void Reset() override;

private:
    template <typename Work>
    auto Watch(Work work);
    void Run(std::string_view sql, std::string_view source);
    bool TryExecutePrepared(const std::string& sql);
    void ExecuteText(const std::string& sql, const std::vector<TaggedValue>& parameters);
    bool MayHaveCommitted();
    void EndBatch() noexcept;
    void MoveLogIntoFile();
    bool FollowFile();

    std::string m_path;
    std::shared_ptr<const BackgroundCheck> m_check;
    std::unique_ptr<SQLite::Database> m_database;
    sqlite3* m_handle;
    StatementCache m_statements;
    TemporaryTables m_temporaryTables;
    BatchMarks m_marks;
    std::string m_mark;
    FileState m_file;
    sql::NormalizedStatement m_normalized;
    bool m_inBatch = false;
    bool m_isHealthy = true;
};

}  // namespace quellbrook

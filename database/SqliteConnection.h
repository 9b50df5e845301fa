#pragma once

#include "database/Connection.h"
#include "database/TemporaryTables.h"
#include "sql/query/QueryShape.h"
#include "sql/tsql/TransactSqlRewriter.h"
#include "sql/tsql/TransactSqlShape.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace SQLite {
class Database;
}

namespace quellbrook {

class SqliteStatement;

// A connection to a SQLite file: write-ahead log, full synchronisation, foreign keys on. Statements of the
// Transact-SQL subset are translated. Between Begin and Commit changing statements are kept prepared by their shape,
// over the end of the batch too, and dropped temporary tables are set aside for the next one; queries are kept by their
// shape, a few of the latest.
class SqliteConnection : public Connection {
public:
    SqliteConnection(const std::string& path, int busyMilliseconds);
    ~SqliteConnection() override;

    void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
               const RowReceiver& receiver) override;
    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters = {}) override;
    std::vector<ColumnDescription> DescribeTable(const std::string& table) override;
    int32_t LastIdentity() override;
    void Begin() override;
    void Commit() override;
    void Rollback() noexcept override;
    // False also once the file has been deleted or replaced: what is written to it then is lost.
    bool IsHealthy() override;
    std::vector<RowKey> Keys() const;
    void Reset() override;

private:
    using StatementPtr = std::unique_ptr<SqliteStatement>;
    // A shape of the latest batches; without statements where its text is better taken as it stands.
    using KeptShape = std::vector<SqliteStatement>;

    template <typename Work>
    auto Watched(Work work);
    void EndBatch() noexcept;
    void Control(const char* sql, const char* source);
    void ExecutePlain(const std::string& sql, const std::vector<TaggedValue>& parameters);
    bool ExecuteKept(const std::string& sql);
    KeptShape PrepareShape(const std::string& text);
    StatementPtr TakeQuery(const sql::QueryShape& shape, const std::vector<TaggedValue>& parameters);
    StatementPtr TakeKeptQuery(const std::string& text);
    StatementPtr PrepareQuery(const std::string& text);
    void KeepQuery(const std::string& text, StatementPtr statement);
    bool IsOfTemporaryTables(const sql::TranslatedText& text);
    void DropTemporaryTables();

    std::unique_ptr<SQLite::Database> m_database;
    std::unordered_map<std::string, KeptShape> m_keptShapes;
    std::vector<std::pair<std::string, StatementPtr>> m_keptQueries;  // the latest last
    sql::StatementShape m_shape;
    TemporaryTables m_temporary;
    int m_temporaryTables = 0;  // at most so many
    bool m_inBatch = false;
    bool m_isHealthy = true;
};

}  // namespace quellbrook

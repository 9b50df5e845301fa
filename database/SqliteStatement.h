#pragma once

#include "database/Connection.h"
#include "sql/Row.h"
#include "sql/tsql/TransactSqlRewriter.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace quellbrook {

// One prepared statement of a connection, which must outlive it. Describes its columns once, not for every row.
class SqliteStatement {
public:
    // `source` is the operation that errors name.
    SqliteStatement(sqlite3* database, std::string_view sql, std::string_view source);
    SqliteStatement(sqlite3* database, const sql::RewrittenStatement& statement, std::string_view source);

    // Bind parameters by position, from 1. Texts must live until Reset. A text with a NUL character raises error 5, an
    // object ErrorNumber::TypeMismatch.
    void Bind(int position, const TaggedValue& value);
    void Bind(int position, int64_t value);
    void Bind(int position, std::string_view text);
    int ParameterCount() const;
    const std::vector<std::string>& TemporaryTables() const { return m_temporaryTables; }
    // Binds all parameters. Raises error 5 unless there is one value for each.
    void Bind(const std::vector<TaggedValue>& values, std::string_view source);

    // Moves to the next row; false at the end.
    bool Step(std::string_view source);
    // Ends the run and clears the parameters.
    void Reset() noexcept;
    // Runs to the end, ignoring rows, and resets.
    void Run(std::string_view source);

    // An empty row with the columns of this statement. Call it after the first Step.
    Row MakeRow();
    // Reads the values of the current row: whole numbers as 32-bit integers or exact decimals, fractions as floating
    // point, and booleans and dates where the column was declared so.
    void Read(Row& row) const;

    std::vector<ColumnDescription> Describe() const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    void Check(int code, std::string_view source) const;

    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
    std::vector<std::string> m_temporaryTables;
    std::shared_ptr<const ColumnSet> m_columns;
    std::vector<ColumnKind> m_kinds;
    int m_preparation = -1;  // that m_columns and m_kinds describe
};

}  // namespace quellbrook

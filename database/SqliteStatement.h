#pragma once

#include "database/Connection.h"
#include "sql/Row.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace quellbrook {

// One prepared statement of a connection, which must outlive it. Reads whole rows straight from the native statement;
// what its columns are is found out once, not for every row.
class SqliteStatement {
public:
    // The source is the operation that a failure names.
    SqliteStatement(sqlite3* database, std::string_view sql, std::string_view source);

    // Parameters by position, from 1. Texts must live until Reset. A text that holds NUL is refused with Error 5, an
    // object with Error 13.
    void Bind(int position, const TaggedValue& value);
    void Bind(int position, int64_t value);
    void Bind(int position, std::string_view text);
    int ParameterCount() const;

    // The next row stands ready; false at the end.
    bool Step(std::string_view source);
    // Ends the run and forgets the parameters.
    void Reset() noexcept;

    // A row with the columns of this statement, without values. After the first Step.
    Row MakeRow();
    // The values of the row that stands ready: whole numbers as 32-bit integers or exact decimals, fractions as
    // floating point, and as the column was declared booleans and dates.
    void Read(Row& row) const;

    std::vector<ColumnDescription> Describe() const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    void Check(int code, std::string_view source) const;

    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
    std::shared_ptr<const ColumnSet> m_columns;
    std::vector<ColumnKind> m_kinds;
    int m_preparation = -1;  // for which m_columns and m_kinds were found out
};

}  // namespace quellbrook

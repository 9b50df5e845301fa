#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>

namespace quellbrook::bench {

// A prepared statement of the baseline. Throws std::runtime_error with the database's message.
class Statement {
public:
    Statement(sqlite3* database, const std::string& sql);

    Statement& Bind(int position, int32_t number);
    Statement& Bind(int position, const std::string& text);  // not copied: keep it until the last Step
    // True if there is a row; false at the end. Then the statement can be bound and run again.
    bool Step();

    bool IsNull(int column) const { return sqlite3_column_type(m_handle.get(), column) == SQLITE_NULL; }
    int32_t Integer(int column) const { return sqlite3_column_int(m_handle.get(), column); }
    double Number(int column) const { return sqlite3_column_double(m_handle.get(), column); }
    std::string Text(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_handle;
};

}  // namespace quellbrook::bench

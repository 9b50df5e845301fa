#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace quellbrook {

// Raises the last failure of SQLite, with its message. The number is ErrorNumber::IntegrityViolation for a violated
// unique or foreign key constraint, otherwise SQLite's extended code.
[[noreturn]] void RaiseSqliteError(sqlite3* database, std::string_view source);

// Raises error 5 with a message that explains why a database could not be opened, given SQLite's extended
// code.
[[noreturn]] void RaiseOpenFailure(const std::string& path, int code, std::string_view words);

// False after a failure that may have broken the connection.
bool IsUsableAfterLastCall(sqlite3* database);

}  // namespace quellbrook

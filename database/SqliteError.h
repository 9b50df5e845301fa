#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace quellbrook {

// Raises a failure of SQLite, given its extended code and its message. The number is ErrorNumber::IntegrityViolation
// for a violated unique or foreign key constraint, otherwise the code. The description says what happened and what to
// do, followed by SQLite's message in brackets. The message of a trigger of our schema stays as it is.
[[noreturn]] void RaiseSqliteError(int code, std::string_view words, std::string_view source);
// The same for the last failure of the connection.
[[noreturn]] void RaiseSqliteError(sqlite3* database, std::string_view source);

// Raises error 5 with a message that explains why a database could not be opened, given SQLite's extended code.
[[noreturn]] void RaiseOpenFailure(const std::string& path, int code, std::string_view words);

// False after a failure that may have broken the connection.
bool IsUsableAfterLastCall(sqlite3* database);

}  // namespace quellbrook

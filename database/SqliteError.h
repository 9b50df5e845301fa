#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace quellbrook {

// The one place where SQLite's codes become Errors: IntegrityViolation for a violated unique or foreign key constraint,
// SQLite's own extended code for everything else, SQLite's words as description (a trigger's sentence as it stands).
[[noreturn]] void RaiseSqliteError(sqlite3* database, std::string_view source);

// Why a database could not be opened, as Error 5 with a sentence. The code is an extended one.
[[noreturn]] void RaiseOpenFailure(const std::string& path, int code, std::string_view words);

// False after a failure that the connection may not have survived.
bool IsUsableAfterLastCall(sqlite3* database);

}  // namespace quellbrook

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quellbrook::sql {

// The subset of Transact-SQL that the system sends, for engines that do not speak it.
//
//   text    := statement { ";" statement } [ ";" ]
//   declare := DECLARE @name [ AS ] type [ "(" number [ "," number ] ")" ]
//   assign  := SELECT @name "=" expression FROM ... [ WHERE ... ] [ GROUP BY column ]
//   create  := CREATE TABLE #name "(" ... ")"
//   drop    := DROP TABLE #name
//   plain   := SELECT ... | INSERT INTO name ... | UPDATE name SET ... | DELETE FROM name ...
//
// declare and assign give no statement of their own: where @name stands afterwards, the SELECT is put in place as a
// scalar sub-select, or NULL for a variable that was never set. So that this means the same, an assign gives one row at
// most (its expression has an aggregate and no variable; a GROUP BY names one column, which its WHERE holds equal to one value),
// each variable is set once, and it is used only in the first statement behind its assign that is not itself a declare or an
// assign, which must not write a table that the SELECT reads.
//
// #name becomes a quoted name of a temporary table, N'...' becomes '...'. Everything else of create, drop and plain is
// handed on byte by byte. What the engines lack, or understand in another way, is refused with Error 5 and a sentence
// that quotes it: TOP, EXEC, MERGE, IDENTITY, ISNULL(...), CONVERT(...), GETDATE(), CURRENT_TIMESTAMP, [brackets],
// @@functions, variables that were not declared, comments, any other statement.

enum class SqlTarget { Sqlite, PostgreSql };

struct TranslatedText {
    std::vector<std::string> statements;
    int createdTables = 0;  // temporary ones
    int droppedTables = 0;
};

TranslatedText TranslateTransactSql(std::string_view text, SqlTarget target);

}  // namespace quellbrook::sql

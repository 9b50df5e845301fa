#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quellbrook::sql {

// The subset of Transact-SQL that the system sends, translated for engines that do not speak it. The grammar below is
// all of it: { } any number of times, [ ] once or not at all, words in any case.
//
//   text       = [ statement ] { ";" [ statement ] }
//   statement  = declare | assign | create | drop | query [ sort ] | insert | update | delete
//
//   declare    = DECLARE variable [ AS ] type
//   assign     = SELECT variable "=" value FROM source [ WHERE condition ] [ GROUP BY name ]
//   create     = CREATE TABLE temporary "(" name type [ [ NOT ] NULL ] { "," name type [ [ NOT ] NULL ] } ")"
//   drop       = DROP TABLE temporary
//   insert     = INSERT INTO table DEFAULT VALUES
//                | INSERT INTO table [ "(" name { "," name } ")" ] ( VALUES row { "," row } | query )
//   update     = UPDATE table SET name "=" value { "," name "=" value } [ WHERE condition ]
//   delete     = DELETE FROM table [ WHERE condition ]
//   row        = "(" value { "," value } ")"
//   type       = word [ "(" number [ "," number ] ")" ]
//
//   query      = select { UNION [ ALL ] select }
//   select     = SELECT [ DISTINCT ] result { "," result } [ FROM source ] [ WHERE condition ]
//                [ GROUP BY column { "," column } [ HAVING condition ] ]
//   result     = "*" | name "." "*" | value [ AS ( name | literal ) ]
//   source     = member { [ INNER ] JOIN member ON condition | LEFT [ OUTER ] JOIN member ON condition
//                         | CROSS JOIN member }
//   member     = table [ [ AS ] name ] | "(" query ")" [ AS ] name | "(" source ")"     the last with a join in it
//   sort       = ORDER BY ( column | number ) [ ASC | DESC ] { "," ( column | number ) [ ASC | DESC ] }
//
//   condition  = all { OR all }
//   all        = term { AND term }
//   term       = NOT term | EXISTS "(" query ")" | "(" condition ")"
//                | value ( "=" | "<>" | "!=" | "<" | "<=" | ">" | ">=" ) value
//                | value IS [ NOT ] NULL | value [ NOT ] BETWEEN value AND value
//                | value [ NOT ] IN ( "(" query ")" | row )
//                | value [ NOT ] LIKE ( literal | marker ) [ ESCAPE literal ]
//   value      = factor { ( "+" | "-" | "*" | "/" | "%" ) factor } | factor { "||" factor }
//   factor     = [ "+" | "-" ] operand
//   operand    = number | literal | marker | variable | NULL | column | call | "(" value ")" | "(" query ")"
//   call       = COUNT "(" "*" ")" | function "(" [ DISTINCT ] value { "," value } ")"     DISTINCT in an aggregate
//   column     = name [ "." name ]
//   table      = name | temporary
//
//   name       = a word of letters, digits and "_" that no engine reserves, or anything within double quotes
//   temporary  = "#" and such a word; variable = "@" and such a word
//   number     = digits [ "." digits ] [ exponent ]; literal = [ N ] text within single quotes, doubled inside
//   marker     = "?" [ digits ]
//   function   = ABS COALESCE COUNT LTRIM MAX MIN NULLIF REPLACE RTRIM SUM, with as many values as it takes
//
// The types of a created table are those that mean the same everywhere: BIGINT CHAR DECIMAL INT INTEGER NUMERIC REAL
// SMALLINT VARCHAR. "+" adds numbers and stands beside no literal; "||" joins texts, as composed queries write it. A
// pattern has no "[" that is not escaped. Brackets and NOT nest 30 deep. There are no comments and no NUL.
//
// declare and assign give no statement of their own: where the variable stands afterwards, the SELECT is put in place
// as a scalar sub-select, or NULL for a variable that was never set. So that this means the same, an assign gives one
// row at most (its value has an aggregate outside brackets, and no variable; GROUP BY names a column which its WHERE, a
// conjunction, holds equal to one constant), each variable is declared and set once, and it is used only in the first
// statement behind its assign that is not itself a declare or an assign, which must not write a table that the SELECT
// reads. An assign takes numbered markers only.
//
// A temporary table gets a quoted name, N'...' becomes '...', all else is handed on byte by byte. For SQLite the
// grouping of an assign is left out where its value is NULL without rows anyhow, with no aggregates but MAX and MIN.
// For PostgreSQL are added: where NULL sorts (below all else), ESCAPE '' behind a pattern that has a backslash and no
// escape sign, and blanks between operators; a literal behind AS is refused there.
//
// Whatever leaves the grammar is refused with Error 5 and a sentence that quotes the first token that does not fit.

enum class SqlTarget { Sqlite, PostgreSql };

struct TranslatedText {
    std::vector<std::string> statements;
    int createdTables = 0;  // temporary ones
    int droppedTables = 0;
};

TranslatedText TranslateTransactSql(std::string_view text, SqlTarget target);

}  // namespace quellbrook::sql

#pragma once

#include "base/TaggedValue.h"
#include "sql/tsql/TransactSqlParser.h"

#include <string>
#include <string_view>
#include <vector>

namespace quellbrook::sql {

// Rewrites the Transact-SQL that the system sends for SQLite and for PostgreSQL. This is the whole grammar; words are
// case-insensitive, { } means any number of times, [ ] means optional:
//
//   text       = [ statement ] { ";" [ statement ] }
//   statement  = declare | assign | create | drop | insert | update | delete
//                | query [ ORDER BY column [ ASC | DESC ] { "," column [ ASC | DESC ] } ]
//
//   declare    = DECLARE variable [ AS ] INT
//   assign     = SELECT variable "=" MAX "(" name ")" [ "+" ( number | marker ) ] FROM table
//                WHERE name "=" constant GROUP BY name                                       the same name
//   create     = CREATE TABLE temporary "(" name INT [ NOT NULL ] { "," name INT [ NOT NULL ] } ")"
//   drop       = DROP TABLE temporary
//   insert     = INSERT INTO table ( DEFAULT VALUES | [ "(" name { "," name } ")" ] VALUES row )
//   update     = UPDATE table SET name "=" value { "," name "=" value } [ WHERE condition ]
//   delete     = DELETE FROM table [ WHERE condition ]
//
//   query      = select { UNION [ ALL ] select }
//   select     = SELECT [ DISTINCT ] result { "," result } [ FROM source ] [ WHERE condition ]
//                [ GROUP BY column { "," column } ]
//   result     = "*" | value [ AS name ]
//   source     = member { ( INNER | LEFT ) JOIN member ON condition | CROSS JOIN member }
//   member     = table [ [ AS ] name ] | "(" query ")" [ AS ] name | "(" source ")"     the last with a join in it
//   condition  = term { AND term }
//   term       = value ( "=" | "<>" ) value | value IS [ NOT ] NULL | value IN ( "(" query ")" | row )
//                | value LIKE ( literal | marker ) [ ESCAPE literal ]
//   value      = operand { "||" operand } | "+" column
//   operand    = constant | variable | NULL | column | call | "(" value ")" | "(" query ")"
//   call       = COUNT "(" "*" ")" | function "(" value { "," value } ")"
//   row        = "(" value { "," value } ")"
//   constant   = literal | [ "-" ] number | [ "-" ] marker
//   column     = name [ "." name ]
//   table      = name | temporary
//   function   = COALESCE COUNT MAX REPLACE, with the number of values that it takes
//
//   name       = letters, digits and "_", but no reserved word; temporary = "#" and such a word; variable = "@" and
//                such a word; literal = [ N ] text within single quotes, doubled inside; marker = "?" [ digits ]
//
// A declare or assign produces no statement. Each later use of the variable is replaced by its SELECT as a scalar
// subquery, without the grouping, or by NULL if it was never set. To preserve the meaning, each variable must be
// declared and set once, and used only in the first statement after its assign that is not a declare or an assign. That
// statement must not change the table that the SELECT reads.
//
// "||" joins texts. Every "[" in a pattern must be escaped. Parentheses nest at most 30 deep. Names of temporary tables
// are quoted, N'...' becomes '...', and everything else stays unchanged. Text outside the grammar raises error 5
// with a message that quotes the first token that does not fit.

struct RewrittenStatement {
    StatementKind kind;  // not Declaration or Assignment
    std::string text;
    std::vector<std::string> temporaryTables;  // the quoted names of the temporary tables in it
};

std::vector<RewrittenStatement> RewriteTransactSql(std::string_view text);

// The same for an engine whose text comparison is case-sensitive; in Transact-SQL it is not. In LIKE, and in "=", "<>"
// and IN if an operand is a text, both operands become LOWER(value COLLATE "C"), which folds ASCII letters only. A
// literal in the format of a date does not count as a text. `parameters` are the values for the "?" markers, in order.
std::vector<RewrittenStatement> RewriteWithoutCase(std::string_view text, const std::vector<TaggedValue>& parameters);

}  // namespace quellbrook::sql

#pragma once

#include "sql/tsql/TransactSqlLexer.h"

#include <cstddef>
#include <span>

namespace quellbrook::sql {

enum class StatementKind { Declaration, Assignment, Creation, Removal, Query, Change };

// What a statement does. The numbers are positions of tokens.
struct ParsedStatement {
    StatementKind kind = StatementKind::Query;
    size_t subject = 0;   // the variable, or the table that is created, dropped or changed; 0 for a query
    size_t source = 0;    // in an assignment, the table that it reads
    size_t grouping = 0;  // in an assignment, its GROUP
};

// Reads one statement by the grammar in TransactSqlRewriter.h. tokens: not empty. Raises ErrorNumber::General, with the
// first token that does not fit, where the statement leaves the grammar.
ParsedStatement ParseStatement(std::span<const Token> tokens);

}  // namespace quellbrook::sql

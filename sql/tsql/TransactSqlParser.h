#pragma once

#include "sql/tsql/TransactSqlLexer.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quellbrook::sql {

enum class StatementKind { Declaration, Assignment, Creation, Removal, Query, Change };

// Tokens from `begin` up to `end`.
struct TokenRange {
    size_t begin;
    size_t end;
};

// Values that a condition compares with each other by "=", "<>" or IN, or by LIKE.
struct ParsedComparison {
    std::vector<TokenRange> values;
    bool isPattern = false;
};

// The kind and the significant parts of a statement. The numbers are positions of tokens.
struct ParsedStatement {
    StatementKind kind = StatementKind::Query;
    size_t subject = 0;   // the variable, or the table that is created, dropped or changed; 0 for a query
    size_t source = 0;    // in an assignment, the table that it reads
    size_t grouping = 0;  // in an assignment, its GROUP
    std::vector<ParsedComparison> comparisons;
};

// Parses one statement by the grammar in TransactSqlRewriter.h. tokens must not be empty. Raises error 5, naming
// the first token that does not fit, if the statement does not match the grammar.
ParsedStatement ParseStatement(std::span<const Token> tokens);

}  // namespace quellbrook::sql

#pragma once

#include "sql/tsql/TransactSqlTokens.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quellbrook::sql {

// Reads one statement by the grammar in TransactSqlRewriter.h.

enum class StatementKind { Declaration, Assignment, Creation, Removal, Query, Change };

struct SortTerm {
    size_t last;  // its last token
    bool isDescending;
};

// What a statement is, and the places in it that engines read in different ways. Numbers are positions of tokens.
struct StatementParts {
    StatementKind kind;
    size_t subject = 0;               // the variable, or the table that is made, dropped or changed; 0 for a query
    std::vector<SortTerm> sortTerms;  // of ORDER BY
    std::vector<size_t> patterns;     // literals behind LIKE without an ESCAPE clause
    std::vector<size_t> textAliases;  // literals behind AS
};

// tokens: not empty. Error 5, with the token quoted, where the statement leaves the grammar.
StatementParts ParseStatement(std::span<const Token> tokens);

}  // namespace quellbrook::sql

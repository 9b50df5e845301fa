#include "sql/tsql/RowLocks.h"

#include "sql/tsql/TransactSqlLexer.h"

#include <algorithm>
#include <vector>

namespace quellbrook::sql {

namespace {

bool Has(const std::vector<Token>& tokens, std::string_view word) {
    return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) { return token.IsWord(word); });
}

// The table, or null if the query reads anything else than the rows of one table.
const Token* TableOf(const std::vector<Token>& tokens) {
    if (tokens.empty() || !tokens.front().IsWord("SELECT")) return nullptr;
    for (const std::string_view other : {"DISTINCT", "UNION", "GROUP", "JOIN", "COUNT", "MAX"})
        if (Has(tokens, other)) return nullptr;
    const Token* table = nullptr;
    for (size_t i = 0; i + 1 < tokens.size(); ++i) {
        if (!tokens[i].IsWord("FROM")) continue;
        if (table || !tokens[i + 1].Is(TokenKind::Word)) return nullptr;
        table = &tokens[i + 1];
    }
    return table;
}

}  // namespace

std::string LocksForPostgreSql(std::string_view query) {
    const std::vector<Token> tokens = SplitTransactSql(query);
    if (!TableOf(tokens)) return "";
    return Has(tokens, "ORDER") ? " FOR UPDATE" : " ORDER BY 1 FOR UPDATE";
}

std::string WithLocksForSqlServer(std::string_view query) {
    const std::vector<Token> tokens = SplitTransactSql(query);
    std::string text(query);
    if (const Token* table = TableOf(tokens))
        text.insert(static_cast<size_t>(table->text.data() + table->text.size() - query.data()),
                    " WITH (UPDLOCK, HOLDLOCK)");
    return text;
}

}  // namespace quellbrook::sql

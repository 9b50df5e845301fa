#include "sql/tsql/TransactSqlWords.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace quellbrook::sql {

namespace {

// In alphabetical order.
constexpr std::string_view reservedWords[] = {
    "ADD", "ALL", "ALTER", "ANALYSE", "ANALYZE", "AND", "ANY", "APPLY", "ARRAY", "AS", "ASC", "ASYMMETRIC",
    "AUTHORIZATION", "AUTOINCREMENT", "BACKUP", "BEGIN", "BETWEEN", "BINARY", "BOTH", "BREAK", "BROWSE", "BULK", "BY",
    "CASCADE", "CASE", "CAST", "CHECK", "CHECKPOINT", "CLOSE", "CLUSTERED", "COALESCE", "COLLATE", "COLLATION",
    "COLUMN", "COMMIT", "COMPUTE", "CONCURRENTLY", "CONSTRAINT", "CONTAINS", "CONTAINSTABLE", "CONTINUE", "CONVERT",
    "CREATE", "CROSS", "CURRENT", "CURRENT_CATALOG", "CURRENT_DATE", "CURRENT_ROLE", "CURRENT_SCHEMA", "CURRENT_TIME",
    "CURRENT_TIMESTAMP", "CURRENT_USER", "CURSOR", "DATABASE", "DBCC", "DEALLOCATE", "DECLARE", "DEFAULT",
    "DEFERRABLE", "DELETE", "DENY", "DESC", "DISK", "DISTINCT", "DISTRIBUTED", "DO", "DOUBLE", "DROP", "DUMP", "ELSE",
    "END", "ERRLVL", "ESCAPE", "EXCEPT", "EXEC", "EXECUTE", "EXISTS", "EXIT", "EXTERNAL", "FALSE", "FETCH", "FILE",
    "FILLFACTOR", "FOR", "FOREIGN", "FREETEXT", "FREETEXTTABLE", "FREEZE", "FROM", "FULL", "FUNCTION", "GOTO",
    "GRANT", "GROUP", "HAVING", "HOLDLOCK", "IDENTITY", "IDENTITYCOL", "IDENTITY_INSERT", "IF", "ILIKE", "IN",
    "INDEX", "INDEXED", "INITIALLY", "INNER", "INSERT", "INTERSECT", "INTO", "IS", "ISNULL", "JOIN", "KEY", "KILL",
    "LATERAL", "LEADING", "LEFT", "LIKE", "LIMIT", "LINENO", "LOAD", "LOCALTIME", "LOCALTIMESTAMP", "MERGE",
    "NATIONAL", "NATURAL", "NOCHECK", "NOLOCK", "NONCLUSTERED", "NOT", "NOTHING", "NOTNULL", "NULL", "NULLIF", "OF",
    "OFF", "OFFSET", "OFFSETS", "ON", "ONLY", "OPEN", "OPENDATASOURCE", "OPENQUERY", "OPENROWSET", "OPENXML",
    "OPTION", "OR", "ORDER", "OUTER", "OVER", "OVERLAPS", "PERCENT", "PIVOT", "PLACING", "PLAN", "PRECISION",
    "PRIMARY", "PRINT", "PROC", "PROCEDURE", "PUBLIC", "RAISE", "RAISERROR", "READ", "READTEXT", "RECONFIGURE",
    "REFERENCES", "REPLICATION", "RESTORE", "RESTRICT", "RETURN", "RETURNING", "REVERT", "REVOKE", "RIGHT",
    "ROLLBACK", "ROWCOUNT", "ROWGUIDCOL", "RULE", "SAVE", "SCHEMA", "SECURITYAUDIT", "SELECT", "SESSION_USER", "SET",
    "SETUSER", "SHUTDOWN", "SIMILAR", "SOME", "STATISTICS", "SYMMETRIC", "SYSTEM_USER", "TABLE", "TABLESAMPLE",
    "TEXTSIZE", "THEN", "TO", "TOP", "TRAILING", "TRAN", "TRANSACTION", "TRIGGER", "TRUE", "TRUNCATE", "TRY_CONVERT",
    "TSEQUAL", "UNION", "UNIQUE", "UNPIVOT", "UPDATE", "UPDATETEXT", "USE", "USER", "USING", "VALUES", "VARIADIC",
    "VARYING", "VERBOSE", "VIEW", "WAITFOR", "WHEN", "WHERE", "WHILE", "WINDOW", "WITH", "WRITETEXT"};
static_assert(std::is_sorted(std::begin(reservedWords), std::end(reservedWords)));

constexpr size_t anyNumber = 100;
constexpr SqlFunction functions[] = {{"ABS", 1, 1},
                                     {"COALESCE", 2, anyNumber},
                                     {"COUNT", 1, 1, true},
                                     {"LTRIM", 1, 1},
                                     {"MAX", 1, 1, true},
                                     {"MIN", 1, 1, true},
                                     {"NULLIF", 2, 2},
                                     {"REPLACE", 3, 3},
                                     {"RTRIM", 1, 1},
                                     {"SUM", 1, 1, true}};

std::string InCapitals(std::string_view word) {
    std::string capitals(word);
    for (char& c : capitals)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return capitals;
}

}  // namespace

bool IsReserved(const Token& token) {
    return token.Is(TokenKind::Word) &&
           std::binary_search(std::begin(reservedWords), std::end(reservedWords), InCapitals(token.text));
}

const SqlFunction* FindFunction(const Token& token) {
    const auto found = std::find_if(std::begin(functions), std::end(functions),
                                    [&](const SqlFunction& function) { return token.IsWord(function.name); });
    return found == std::end(functions) ? nullptr : found;
}

}  // namespace quellbrook::sql

#include "database/SqliteEngine.h"

#include "base/Text.h"
#include "database/SqliteConnection.h"
#include "database/SqliteFileCheck.h"
#include "database/schema/SqliteSchema.h"

#include <algorithm>
#include <set>

namespace quellbrook {

namespace {

using Names = std::set<std::string>;

Names NamesInSchema(Connection& connection) {
    Names names;
    connection.Query("SELECT name FROM sqlite_schema", {}, [&](const Row& row) {
        names.insert(FoldCase(ToTextOrEmpty(row.At(0))));
        return true;
    });
    return names;
}

bool HasAll(const Names& present, const char* table, const std::vector<std::string>& triggers) {
    if (present.count(FoldCase(table)) == 0) return false;
    for (const std::string& trigger : triggers)
        if (present.count(FoldCase(trigger)) == 0) return false;
    return true;
}

bool StatesThatItemsAreDistinct(Connection& connection, const Names& present) {
    bool found = false;
    if (present.count("schemafact") == 0) return false;
    connection.Query("SELECT Name FROM SchemaFact WHERE Name = ?", {ItemsAreDistinctFact}, [&](const Row&) {
        found = true;
        return false;
    });
    return found;
}

Dialect DialectOf(SqliteConnection& connection) {
    const Names names = NamesInSchema(connection);
    Dialect dialect;
    dialect.concatenation = "||";
    dialect.equalsLikeLike = true;  // all text columns of the schema use NOCASE
    dialect.hasCurrentPlace = HasAll(names, "CurrentPlace", CurrentPlaceTriggers());
    dialect.hasDescriptionIndex = HasAll(names, "PropertyDescription", DescriptionIndexTriggers());
    dialect.itemsAreDistinct = StatesThatItemsAreDistinct(connection, names);
    return dialect;
}

}  // namespace

std::shared_ptr<SqliteEngine> SqliteEngine::Open(const std::string& path, int busyMilliseconds) {
    constexpr int longestOpening = 5000;
    CheckSqliteFile(path, std::chrono::milliseconds(std::min(busyMilliseconds, longestOpening)));
    SqliteConnection connection(path, busyMilliseconds);
    return std::shared_ptr<SqliteEngine>(new SqliteEngine(path, busyMilliseconds, DialectOf(connection)));
}

std::unique_ptr<Connection> SqliteEngine::Open() {
    return std::make_unique<SqliteConnection>(m_path, m_busyMilliseconds);
}

bool SqliteEngine::WasCommitted(const std::string& transactionName) {
    return SqliteConnection(m_path, m_busyMilliseconds).SettleOutcome(transactionName);
}

}  // namespace quellbrook

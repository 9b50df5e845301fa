#include "database/TemporaryTables.h"

#include "base/Text.h"
#include "database/SqliteError.h"
#include "database/SqliteStatement.h"

#include <sqlite3.h>

namespace quellbrook {

void TemporaryTables::Run(const std::string& statement) const {
    SqliteStatement(m_database, statement, "SqliteConnection.Execute").Run("SqliteConnection.Execute");
}

void TemporaryTables::Create(const std::string& statement, const std::string& name) {
    const std::string key = FoldCase(name);
    if (TryReuse(statement, key)) return;
    DropIfKept(key);
    Run(statement);
    m_tables.insert_or_assign(key, Table{statement, true});
}

bool TemporaryTables::TryReuse(const std::string& statement, const std::string& key) {
    const auto found = m_tables.find(key);
    if (found == m_tables.end() || found->second.isInUse || found->second.creation != statement) return false;
    return found->second.isInUse = true;
}

void TemporaryTables::Drop(const std::string& statement, const std::string& name) {
    const std::string key = FoldCase(name);
    DropIfKept(key);
    const auto found = m_tables.find(key);
    const bool isInTransaction = sqlite3_get_autocommit(m_database) == 0;
    if (found != m_tables.end() && isInTransaction) {
        Run("DELETE FROM temp." + key);
        found->second.isInUse = false;
    } else {
        Run(statement);
        m_tables.erase(key);
    }
}

void TemporaryTables::DropIfKept(const std::string& key) {
    const auto found = m_tables.find(key);
    if (found == m_tables.end() || found->second.isInUse) return;
    Run("DROP TABLE temp." + key);
    m_tables.erase(found);
}

void TemporaryTables::RequireInUse(const std::vector<std::string>& names, std::string_view source) const {
    for (const std::string& name : names) {
        const auto found = m_tables.find(FoldCase(name));
        if (found == m_tables.end() || !found->second.isInUse)
            RaiseSqliteError(SQLITE_ERROR, "no such table: " + name.substr(1, name.size() - 2), source);
    }
}

void TemporaryTables::DropTablesInUse() {
    for (auto table = m_tables.begin(); table != m_tables.end();) {
        if (table->second.isInUse) {
            Run("DROP TABLE temp." + table->first);
            table = m_tables.erase(table);
        } else {
            ++table;
        }
    }
}

}  // namespace quellbrook

#include "database/TemporaryTables.h"

#include "database/SqliteStatement.h"

#include <sqlite3.h>

namespace quellbrook {

namespace {

std::string NameIn(const std::string& statement) {
    const size_t begin = statement.find('"');
    return statement.substr(begin, statement.find('"', begin + 1) + 1 - begin);
}

}  // namespace

void TemporaryTables::Run(const std::string& statement) const {
    SqliteStatement(m_database, statement, "SqliteConnection.Execute").Run("SqliteConnection.Execute");
}

void TemporaryTables::Create(const std::string& statement) {
    const std::string name = NameIn(statement);
    if (TryReuse(statement, name)) return;
    DropIfSetAside(name);
    Run(statement);
    m_tables.insert_or_assign(name, Table{statement, true});
}

bool TemporaryTables::TryReuse(const std::string& statement, const std::string& name) {
    const auto found = m_tables.find(name);
    if (found == m_tables.end() || found->second.isInUse || found->second.creation != statement) return false;
    return found->second.isInUse = true;
}

void TemporaryTables::Drop(const std::string& statement) {
    const std::string name = NameIn(statement);
    DropIfSetAside(name);
    const auto found = m_tables.find(name);
    const bool isInTransaction = sqlite3_get_autocommit(m_database) == 0;
    if (found != m_tables.end() && isInTransaction) {
        Run("DELETE FROM temp." + name);
        found->second.isInUse = false;
    } else {
        Run(statement);
        m_tables.erase(name);
    }
}

void TemporaryTables::DropIfSetAside(const std::string& name) {
    const auto found = m_tables.find(name);
    if (found == m_tables.end() || found->second.isInUse) return;
    Run("DROP TABLE temp." + name);
    m_tables.erase(found);
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

#include "demo/sample/BulkLoad.h"

#include "base/Error.h"
#include "database/schema/SchemaTriggers.h"
#include "database/schema/SideTables.h"
#include "database/schema/SqliteSchema.h"

#include <algorithm>

namespace quellbrook::sample {

namespace {

constexpr int32_t unfinishedMark = 0x51424B30;  // "QBK0"

SQLite::Database OpenForLoading(const std::string& path) {
    SQLite::Database database(path, SQLite::OPEN_READWRITE);
    database.exec("PRAGMA journal_mode = OFF");
    database.exec("PRAGMA synchronous = OFF");
    database.exec("PRAGMA cache_size = -65536");
    database.exec("PRAGMA foreign_keys = OFF");
    database.exec("PRAGMA application_id = " + std::to_string(unfinishedMark));
    return database;
}

void SetMark(SQLite::Database& database) {
    database.exec("PRAGMA application_id = " + std::to_string(DatabaseApplicationId));
}

[[noreturn]] void Refuse(const std::string& what) {
    Raise(ErrorNumber::General, "BulkLoad.Finish", "The department can't be created: " + what + ".");
}

}  // namespace

BulkLoad::BulkLoad(const std::string& path) : m_database(OpenForLoading(path)) {
    SetAside();
    m_database.exec("BEGIN");
}

void BulkLoad::SetAside() {
    std::vector<std::string> triggers = CurrentPlaceTriggers();
    triggers.insert(triggers.end(), DescriptionIndexTriggers().begin(), DescriptionIndexTriggers().end());
    {
        SQLite::Statement list(m_database,
                               "SELECT type, name, sql FROM sqlite_schema WHERE type IN ('index', 'trigger') AND sql "
                               "IS NOT NULL ORDER BY rowid");
        while (list.executeStep()) {
            Aside aside{list.getColumn(0).getString(), list.getColumn(1).getString(), list.getColumn(2).getString()};
            const bool wanted =
                aside.type == "index" || std::find(triggers.begin(), triggers.end(), aside.name) != triggers.end();
            if (wanted) m_aside.push_back(std::move(aside));
        }
    }
    for (const Aside& aside : m_aside) m_database.exec("DROP " + aside.type + " " + aside.name);
}

void BulkLoad::Finish(const SampleProgress& progress) {
    const auto report = [&progress](size_t percent) {
        if (progress) progress(static_cast<int>(percent));
    };
    m_database.exec(RebuildCurrentPlace);
    report(10);
    m_database.exec(RebuildDescriptionIndex);
    report(30);
    for (size_t done = 0; done < m_aside.size(); ++done) {
        m_database.exec(m_aside[done].sql);
        report(30 + 20 * (done + 1) / m_aside.size());
    }
    CheckForeignKeys();
    report(70);
    CheckSideTables();
    m_database.exec("COMMIT");
    SetMark(m_database);
    m_database.exec("PRAGMA journal_mode = WAL");
    report(100);
}

void BulkLoad::CheckForeignKeys() {
    SQLite::Statement orphans(m_database, "PRAGMA foreign_key_check");
    if (!orphans.executeStep()) return;
    Refuse("a row of " + orphans.getColumn(0).getString() + " refers to one of " + orphans.getColumn(2).getString() +
           " that does not exist");
}

void BulkLoad::CheckSideTables() {
    if (ItemsMissingInCurrentPlace(m_database) != 0 || !IsDescriptionIndexRight(m_database))
        Refuse("a side table disagrees with the items");
    for (const std::string& statement : SideTableProofStatements()) m_database.exec(statement);
}

}  // namespace quellbrook::sample

#include "demo/sample/BulkLoad.h"

#include "base/Error.h"
#include "base/Text.h"
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

const char* const fillCurrentLocations =
    "INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) "
    "SELECT t.StorageLocNo, 1, i.PropertyNo FROM Property i INNER JOIN PropertyTracking t "
    "ON t.PropertyNo = i.PropertyNo AND t.SeqNo = i.CurrTrackSeq WHERE t.StorageLocNo IS NOT NULL "
    "UNION ALL SELECT t.StorageLocNo, 2, i.VehicleNo FROM Vehicle i INNER JOIN VehicleTracking t "
    "ON t.VehicleNo = i.VehicleNo AND t.SeqNo = i.CurrTrackSeq WHERE t.StorageLocNo IS NOT NULL ORDER BY 1, 2, 3";

// Items that lack their current custody row, or whose location differs from that row.
std::string AnyIsLost(const std::string& kind, const std::string& type) {
    const std::string text =
        "SELECT EXISTS (SELECT 1 FROM {0} i LEFT JOIN {0}Tracking t ON t.{0}No = i.{0}No AND t.SeqNo = i.CurrTrackSeq "
        "WHERE i.CurrTrackSeq IS NOT NULL AND (t.{0}No IS NULL OR t.StorageLocNo IS NOT NULL AND NOT EXISTS (SELECT 1 "
        "FROM CurrentPlace c WHERE c.StorageLocNo = t.StorageLocNo AND c.ItemType = {1} AND c.ItemNo = i.{0}No)))";
    return Replace(Replace(text, "{0}", kind), "{1}", type);
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
    m_database.exec(fillCurrentLocations);
    report(10);
    m_database.exec("INSERT INTO PropertyDescription (PropertyDescription) VALUES ('rebuild')");
    report(30);
    for (size_t done = 0; done < m_aside.size(); ++done) {
        m_database.exec(m_aside[done].sql);
        report(30 + 20 * (done + 1) / m_aside.size());
    }
    CheckForeignKeys();
    report(70);
    CheckCurrentLocations();
    report(80);
    m_database.exec("INSERT INTO PropertyDescription (PropertyDescription, rank) VALUES ('integrity-check', 1)");
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

void BulkLoad::CheckCurrentLocations() {
    for (const auto& [kind, type] : {std::pair("Property", "1"), std::pair("Vehicle", "2")}) {
        if (m_database.execAndGet(AnyIsLost(kind, type)).getInt() != 0) {
            Refuse("an item does not lie where its custody rows say");
        }
    }
}

}  // namespace quellbrook::sample

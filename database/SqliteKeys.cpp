#include "database/SqliteKeys.h"

#include "database/SqliteStatement.h"
#include "database/schema/SqliteSchema.h"

#include <map>

namespace quellbrook {

namespace {

// A primary key that is the row's number has no index.
const char* const keyColumns =
    "SELECT t.name AS TableName, '' AS KeyName, c.name AS ColumnName, c.type AS Type, 1 AS IsNeverNull "
    "FROM sqlite_schema t, pragma_table_info(t.name) c "
    "WHERE t.type = 'table' AND c.pk = 1 AND UPPER(c.type) = 'INTEGER' "
    "AND NOT EXISTS (SELECT 1 FROM pragma_table_info(t.name) o WHERE o.pk > 1) "
    "AND NOT EXISTS (SELECT 1 FROM pragma_index_list(t.name) o WHERE o.origin = 'pk') "
    "UNION ALL SELECT t.name, i.name, x.name, c.type, c.\"notnull\" "
    "FROM sqlite_schema t, pragma_index_list(t.name) i, pragma_index_info(i.name) x "
    "LEFT JOIN pragma_table_info(t.name) c ON c.name = x.name "
    "WHERE t.type = 'table' AND i.\"unique\" AND NOT i.partial";

const char* const viewStatement = "SELECT sql FROM sqlite_schema WHERE name = 'vwVehicleDisplayInfo'";
const char* const source = "SqliteKeys.ReadKeys";

template <typename Receiver>
void ForEachRow(sqlite3* database, const char* sql, const Receiver& receiver) {
    SqliteStatement statement(database, sql, source);
    while (statement.Step(source)) {
        Row row = statement.MakeRow();
        statement.Read(row);
        receiver(row);
    }
}

}  // namespace

std::vector<RowKey> ReadKeys(sqlite3* database) {
    struct Found {
        RowKey key;
        bool isOfWholeNumbers = true;
    };
    std::map<std::pair<std::string, std::string>, Found> found;
    ForEachRow(database, keyColumns, [&](const Row& row) {
        const std::string table = ToText(row.Value("TableName"));
        Found& entry = found[{table, ToText(row.Value("KeyName"))}];
        entry.key.table = table;
        entry.key.columns.push_back(ToTextOrEmpty(row.Value("ColumnName")));
        const bool isInteger = ToTextOrEmpty(row.Value("Type")) == "INTEGER";
        const bool isNeverNull = !row.Value("IsNeverNull").IsNull() && ToBool(row.Value("IsNeverNull"));
        entry.isOfWholeNumbers = entry.isOfWholeNumbers && isInteger && isNeverNull;
    });
    std::vector<RowKey> keys;
    for (auto& [names, entry] : found)
        if (entry.isOfWholeNumbers) keys.push_back(std::move(entry.key));
    ForEachRow(database, viewStatement, [&](const Row& row) {
        if (ToTextOrEmpty(row.At(0)) == VehicleViewStatement()) keys.push_back({"vwVehicleDisplayInfo", {"VehicleNo"}});
    });
    return keys;
}

}  // namespace quellbrook

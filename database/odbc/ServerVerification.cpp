#include "database/odbc/ServerVerification.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/odbc/OdbcConnection.h"
#include "database/odbc/OdbcEngine.h"
#include "database/odbc/ServerCatalog.h"
#include "database/schema/ServerSchema.h"
#include "database/schema/SideTables.h"

#include <map>
#include <regex>
#include <set>

namespace quellbrook {

namespace {

constexpr const char* placeTable = "currentplace";

// Error 5 for a database that OdbcEngine refuses.
OdbcConnection ConnectionTo(const std::string& connectionString, const ServerLimits& limits) {
    OdbcEngine::Open(connectionString, limits);
    return {connectionString, limits};
}

CellReader ReaderOf(OdbcConnection& connection) {
    return [&connection](const std::string& select, const std::function<void(const Cells&)>& receiver) {
        connection.QueryNative(select, {}, [&](const Row& row) {
            Cells cells;
            for (size_t i = 0; i < row.Columns().Names().size(); ++i) {
                const TaggedValue& value = row.At(static_cast<int>(i));
                cells.push_back(value.HasNoValue() ? std::nullopt : std::optional(ToText(value)));
            }
            receiver(cells);
            return true;
        });
    };
}

// By the names of what the statements of the schema create.
RuleCheck CheckObjects(OdbcConnection& connection, const std::set<std::string>& tables) {
    static const std::regex creation(R"(\s*CREATE (?:UNIQUE )?(TABLE|VIEW|INDEX|TRIGGER) (\w+))");
    const std::map<std::string, std::set<std::string>> present = {
        {"TABLE", tables},
        {"VIEW", tables},
        {"INDEX", IndexesOf(connection)},
        {"TRIGGER", ActiveTriggersOf(connection)},
    };
    RuleCheck check{"All tables, indexes, views and triggers of the schema are there.", 0, {}};
    const bool isPostgreSql = connection.Server() == ServerKind::PostgreSql;
    for (const std::string& statement : isPostgreSql ? PostgreSqlSchemaStatements() : SqlServerSchemaStatements()) {
        std::smatch found;
        if (!std::regex_search(statement, found, creation, std::regex_constants::match_continuous)) continue;
        const std::string kind = found[1], name = found[2];
        if (!present.at(kind).contains(FoldCase(name)))
            check.Add("The " + FoldCase(kind) + " " + name + " is missing" +
                      (kind == "TRIGGER" ? " or switched off" : ""));
    }
    return check;
}

}  // namespace

std::vector<RuleCheck> VerifyServerDatabase(const std::string& connectionString, const ServerLimits& limits) {
    OdbcConnection connection = ConnectionTo(connectionString, limits);
    const CellReader read = ReaderOf(connection);
    std::vector<RuleCheck> checks = CheckCustodyRules(read);
    const std::set<std::string> tables = TablesAndViewsOf(connection);
    if (!tables.contains("schemaversion")) return checks;
    checks.push_back(CheckObjects(connection, tables));
    checks.push_back(CheckCurrentPlace(tables.contains(placeTable), read));
    return checks;
}

void RebuildServerPlaces(const std::string& connectionString, const ServerLimits& limits) {
    OdbcConnection connection = ConnectionTo(connectionString, limits);
    if (!TablesAndViewsOf(connection).contains(placeTable))
        Raise(ErrorNumber::General, "RebuildServerPlaces", "The database has no side table CurrentPlace.");
    try {
        connection.Begin();
        // Their triggers write this table in the transactions of other workstations, so this waits for those that have
        // begun, and those that begin wait for this one.
        connection.ExecuteNative(connection.Server() == ServerKind::PostgreSql
                                     ? "LOCK TABLE CurrentPlace IN SHARE ROW EXCLUSIVE MODE"
                                     : "SELECT COUNT(*) AS Number FROM CurrentPlace WITH (TABLOCKX, HOLDLOCK)");
        connection.ExecuteNative(RebuildCurrentPlace);
        connection.Commit();
    } catch (...) {
        connection.Rollback();
        throw;
    }
}

}  // namespace quellbrook

#include "database/odbc/ServerCatalog.h"

#include "base/Text.h"
#include "database/odbc/OdbcConnection.h"

namespace quellbrook {

namespace {

std::set<std::string> TextsOf(OdbcConnection& connection, const char* onPostgreSql, const char* onSqlServer) {
    return TextsOf(connection, connection.Server() == ServerKind::PostgreSql ? onPostgreSql : onSqlServer);
}

}  // namespace

std::set<std::string> TextsOf(OdbcConnection& connection, const std::string& query) {
    std::set<std::string> texts;
    connection.QueryNative(query, {}, [&](const Row& row) {
        texts.insert(FoldCase(ToText(row.At(0))));
        return true;
    });
    return texts;
}

std::set<std::string> TablesAndViewsOf(OdbcConnection& connection) {
    return TextsOf(connection,
                   "SELECT TABLE_NAME AS Name FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = CURRENT_SCHEMA()",
                   "SELECT TABLE_NAME AS Name FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA = SCHEMA_NAME()");
}

std::set<std::string> IndexesOf(OdbcConnection& connection) {
    return TextsOf(connection, "SELECT indexname FROM pg_indexes WHERE schemaname = CURRENT_SCHEMA()",
                   "SELECT i.name FROM sys.indexes i INNER JOIN sys.tables t ON t.object_id = i.object_id "
                   "WHERE i.name IS NOT NULL AND i.is_disabled = 0 AND t.schema_id = SCHEMA_ID()");
}

std::set<std::string> ActiveTriggersOf(OdbcConnection& connection) {
    return TextsOf(connection,
                   "SELECT t.tgname FROM pg_trigger t INNER JOIN pg_class c ON c.oid = t.tgrelid "
                   "INNER JOIN pg_namespace n ON n.oid = c.relnamespace "
                   "WHERE n.nspname = CURRENT_SCHEMA() AND t.tgenabled IN ('O', 'A') AND NOT t.tgisinternal",
                   "SELECT name FROM sys.triggers WHERE is_disabled = 0 AND parent_class = 1");
}

}  // namespace quellbrook

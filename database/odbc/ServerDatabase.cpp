#include "database/odbc/ServerDatabase.h"

#include "base/Error.h"
#include "database/odbc/DepartmentCopy.h"
#include "database/odbc/OdbcConnection.h"
#include "database/schema/ServerSchema.h"

#include <optional>

namespace quellbrook {

namespace {

const char* const source = "CreateServerDatabase";

std::optional<std::string> AnyTable(OdbcConnection& connection) {
    std::optional<std::string> table;
    connection.QueryNative(
        "SELECT TABLE_NAME AS Name FROM INFORMATION_SCHEMA.TABLES "
        "WHERE TABLE_SCHEMA NOT IN ('pg_catalog', 'information_schema', 'sys')",
        {}, [&](const Row& row) {
            table = ToText(row.At(0));
            return false;
        });
    return table;
}

}  // namespace

void CreateServerDatabase(const std::string& connectionString, const ServerLimits& limits,
                          const DepartmentContents& contents) {
    OdbcConnection connection(connectionString, limits);
    if (connection.Server() == ServerKind::Other)
        Raise(ErrorNumber::General, source, "A department can only be created on PostgreSQL and SQL Server.");
    if (const std::optional<std::string> table = AnyTable(connection))
        Raise(ErrorNumber::General, source,
              "The department can't be created: the database is not empty. It has '" + *table + "'.");
    const bool isPostgreSql = connection.Server() == ServerKind::PostgreSql;
    try {
        connection.Begin();
        for (const std::string& statement : isPostgreSql ? PostgreSqlSchemaStatements() : SqlServerSchemaStatements())
            connection.ExecuteNative(statement);
        if (contents.from) CopyDepartment(*contents.from, connection, contents.progress);
        connection.Commit();
    } catch (...) {
        connection.Rollback();
        throw;
    }
}

}  // namespace quellbrook

#include "database/odbc/ServerUpgrade.h"

#include "base/Error.h"
#include "database/odbc/OdbcConnection.h"
#include "database/schema/ServerSchema.h"

namespace quellbrook {

namespace {

const char* const source = "OdbcEngine.Open";

// That of this program if the table has no row.
int32_t VersionOf(OdbcConnection& connection) {
    int32_t version = ServerSchemaVersion;
    connection.QueryNative("SELECT MAX(Version) AS Version FROM SchemaVersion", {}, [&](const Row& row) {
        if (!row.At(0).HasNoValue()) version = ToInt32(row.At(0));
        return true;
    });
    return version;
}

// Another workstation may have upgraded the schema meanwhile.
void UpgradeWithLock(OdbcConnection& connection) {
    const bool isPostgreSql = connection.Server() == ServerKind::PostgreSql;
    connection.Begin();
    connection.ExecuteNative(isPostgreSql ? "LOCK TABLE SchemaVersion"
                                          : "UPDATE SchemaVersion WITH (TABLOCKX) SET Version = Version");
    const int32_t version = VersionOf(connection);
    if (isPostgreSql)
        for (const std::string& statement : PostgreSqlUpgradeStatements(version)) connection.ExecuteNative(statement);
    if (version < ServerSchemaVersion)
        connection.ExecuteNative("UPDATE SchemaVersion SET Version = " + std::to_string(ServerSchemaVersion));
    connection.Commit();
}

}  // namespace

void UpgradeServerSchema(OdbcConnection& connection) {
    const int32_t version = VersionOf(connection);
    if (version == ServerSchemaVersion) return;
    if (version > ServerSchemaVersion)
        Raise(ErrorNumber::General, source,
              "The database was created by a later version of this program. Install that version.");
    try {
        UpgradeWithLock(connection);
    } catch (...) {
        const std::string reason = CurrentError().Description();
        connection.Rollback();
        Raise(ErrorNumber::General, source,
              "The schema of the database can't be upgraded from version " + std::to_string(version) + " to version " +
                  std::to_string(ServerSchemaVersion) +
                  ". Open the database once with an account that may create tables.\r\n\r\n" + reason);
    }
}

}  // namespace quellbrook

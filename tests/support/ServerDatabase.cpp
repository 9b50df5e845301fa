#include "database/odbc/ServerDatabase.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/odbc/OdbcConnection.h"
#include "database/odbc/OdbcEngine.h"
#include "tests/support/RawDatabase.h"

#include <cstdlib>
#include <map>

namespace quellbrook::testing {

namespace {

const std::map<std::string, std::string> identities = {
    {"StorageLocation", "IdNo"}, {"Property", "PropertyNo"},       {"Vehicle", "VehicleNo"},
    {"Incident", "IncidentNo"},  {"AttachmentFolder", "FolderNo"},
};

const char* const removalOnPostgreSql = R"sql(
DROP VIEW vwVehicleDisplayInfo;
DROP TABLE SchemaVersion, SchemaFact, BatchMark, StorageLocation, Property, Vehicle, PropertyTracking,
    VehicleTracking, Incident, IncdProperty, IncdVehicle, AttachmentFolder, AttachmentIndex, CurrentPlace, CodeTable,
    Person, Account, AccountRight, Setting CASCADE;
DROP FUNCTION GuardStorageLocation, GuardCustodyRow, PlaceProperty, PlaceVehicle, PlacePropertyTracking,
    PlaceVehicleTracking)sql";

const char* const foreignKeyRemovalOnPostgreSql = R"sql(
DO $$
DECLARE
    key RECORD;
BEGIN
    FOR key IN SELECT conrelid::regclass AS place, conname FROM pg_constraint WHERE contype = 'f' LOOP
        EXECUTE 'ALTER TABLE ' || key.place || ' DROP CONSTRAINT ' || key.conname;
    END LOOP;
END
$$)sql";

const char* const foreignKeyRemovalOnSqlServer = R"sql(
DECLARE @sql NVARCHAR(MAX) = N'';
SELECT @sql += N'ALTER TABLE ' + OBJECT_NAME(parent_object_id) + N' DROP CONSTRAINT ' + QUOTENAME(name) + N';'
    FROM sys.foreign_keys;
EXEC (@sql))sql";

const char* const removalOnSqlServer = R"sql(
DROP VIEW vwVehicleDisplayInfo;
DROP TABLE SchemaVersion, SchemaFact, BatchMark, StorageLocation, Property, Vehicle, PropertyTracking,
    VehicleTracking, Incident, IncdProperty, IncdVehicle, AttachmentFolder, AttachmentIndex, CurrentPlace, CodeTable,
    Person, Account, AccountRight, Setting)sql";

TaggedValue Plain(const TaggedValue& value) {
    if (const auto* moment = value.If<DateTime>()) return moment->ToText();
    if (const auto* flag = value.If<bool>()) return *flag ? 1 : 0;
    if (const auto* exact = value.If<Decimal>(); exact && exact->scale > 0) return exact->ToDouble();
    return value;
}

class ServerDatabase : public RawDatabase {
public:
    ServerDatabase() {
        CreateServerDatabase(TestServer());
        m_connection = std::make_unique<OdbcConnection>(TestServer(), ServerLimits());
    }
    ~ServerDatabase() override {
        if (!IsPostgreSql()) m_connection->ExecuteNative(foreignKeyRemovalOnSqlServer);
        m_connection->ExecuteNative(IsPostgreSql() ? removalOnPostgreSql : removalOnSqlServer);
    }

    std::shared_ptr<Engine> OpenEngine() override { return OdbcEngine::Open(TestServer()); }

    int32_t Insert(const std::string& table, const Cells& cells) override {
        const auto identity = identities.find(table);
        if (identity != identities.end())
            return m_connection->Insert(InsertText(table, cells), ValuesOf(cells), identity->second);
        Execute(InsertText(table, cells), ValuesOf(cells));
        return 0;
    }

    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) override {
        m_connection->ExecuteNative(sql, parameters);
    }

    RowList QueryRows(const std::string& sql) override {
        RowList rows;
        m_connection->QueryNative(sql, {}, [&](const Row& row) {
            rows.push_back(row);
            for (TaggedValue& value : rows.back().MutableValues()) value = Plain(value);
            return true;
        });
        return rows;
    }

    std::vector<std::string> TableNames() override {
        std::vector<std::string> names;
        for (const Row& row : QueryRows("SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES "
                                        "WHERE TABLE_TYPE = 'BASE TABLE' AND TABLE_SCHEMA = " +
                                        std::string(IsPostgreSql() ? "CURRENT_SCHEMA()" : "SCHEMA_NAME()")))
            names.push_back(ToText(row.At(0)));
        return names;
    }

    void NumberVehiclesFrom(int32_t first) override {
        const std::string number = std::to_string(IsPostgreSql() ? first : first - 1);
        Execute(IsPostgreSql() ? "ALTER TABLE Vehicle ALTER COLUMN VehicleNo RESTART WITH " + number
                               : "DBCC CHECKIDENT ('Vehicle', RESEED, " + number + ")",
                {});
    }

    void Reconnect() override {
        m_connection.reset();
        constexpr int mostTries = 100'000;
        for (int tries = 0; !m_connection; ++tries) {
            try {
                m_connection = std::make_unique<OdbcConnection>(TestServer(), ServerLimits());
            } catch (const Error&) {
                if (tries == mostTries) throw;
            }
        }
    }

    void CheckForeignKeys(bool checks) override {
        if (!checks)
            m_connection->ExecuteNative(IsPostgreSql() ? foreignKeyRemovalOnPostgreSql : foreignKeyRemovalOnSqlServer);
    }

private:
    bool IsPostgreSql() const { return m_connection->Server() == ServerKind::PostgreSql; }

    std::unique_ptr<OdbcConnection> m_connection;
};

}  // namespace

std::string TestServer() {
    const char* const text = std::getenv("QUELLBROOK_TEST_ODBC");
    return text ? text : "";
}

std::unique_ptr<RawDatabase> MakeServerDatabase() { return std::make_unique<ServerDatabase>(); }

}  // namespace quellbrook::testing

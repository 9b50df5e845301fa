#include "database/odbc/OdbcEngine.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/LockWait.h"
#include "database/odbc/OdbcConnection.h"
#include "database/odbc/OdbcError.h"
#include "database/odbc/ServerCatalog.h"
#include "database/odbc/ServerUpgrade.h"
#include "database/schema/ServerSchema.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <set>

namespace quellbrook {

namespace {

const char* const openSource = "OdbcEngine.Open";
const char* const outcomeSource = "OdbcEngine.WasCommitted";

bool HasAll(const std::set<std::string>& present, const std::vector<std::string>& wanted) {
    return std::all_of(wanted.begin(), wanted.end(),
                       [&](const std::string& name) { return present.contains(FoldCase(name)); });
}

// The state of a transaction of PostgreSQL; empty if the server does not remember it.
std::optional<std::string> StateOf(OdbcConnection& connection, const std::string& number) {
    std::optional<std::string> state;
    try {
        connection.QueryNative("SELECT pg_xact_status(CAST(CAST(? AS TEXT) AS XID8)) AS State", {number},
                               [&](const Row& row) {
                                   if (!row.At(0).HasNoValue()) state = ToText(row.At(0));
                                   return true;
                               });
    } catch (const OdbcError& failure) {
        // The server has crashed before it wrote anything of the transaction, and has not assigned the number again.
        constexpr const char* numberOfTheFuture = "22023";
        if (failure.State() != numberOfTheFuture) throw;
        state = "aborted";
    }
    return state;
}

bool HasMark(OdbcConnection& connection, const std::string& name) {
    bool has = false;
    connection.QueryNative("SELECT Name FROM BatchMark WHERE Name = ?", {name}, [&](const Row&) { return has = true; });
    return has;
}

}  // namespace

std::shared_ptr<OdbcEngine> OdbcEngine::Open(const std::string& connectionString, const ServerLimits& limits) {
    std::shared_ptr<OdbcEngine> engine(new OdbcEngine(connectionString, limits));
    engine->LearnFrom(*engine->Connect());
    return engine;
}

void OdbcEngine::LearnFrom(OdbcConnection& connection) {
    if (connection.Server() == ServerKind::Other)
        Raise(ErrorNumber::General, openSource,
              "This program works with PostgreSQL and SQL Server. The connection string leads to another server.");
    m_server = connection.Server();
    const bool isPostgreSql = m_server == ServerKind::PostgreSql;
    if (isPostgreSql) m_dialect.concatenation = "||";
    if (!isPostgreSql) m_dialect.textPrefix = "N";
    m_dialect.equalsLikeLike = isPostgreSql;

    std::set<std::string> tables = TablesAndViewsOf(connection);
    if (tables.contains("schemaversion")) {
        UpgradeServerSchema(connection);
        tables = TablesAndViewsOf(connection);
    }
    m_dialect.hasCurrentPlace =
        tables.contains("currentplace") && HasAll(ActiveTriggersOf(connection), ServerPlaceTriggers());
    m_dialect.itemsAreDistinct = tables.contains("schemafact") &&
                                 TextsOf(connection, "SELECT Name FROM SchemaFact").contains("itemsaredistinct");
    m_hasMarks = tables.contains("batchmark");
}

std::unique_ptr<OdbcConnection> OdbcEngine::Connect() const {
    auto connection = std::make_unique<OdbcConnection>(m_connectionString, m_limits);
    if (m_hasMarks) connection->LeaveMarks();
    return connection;
}

std::unique_ptr<Connection> OdbcEngine::Open() { return Connect(); }

bool OdbcEngine::WasCommitted(const std::string& transactionName) {
    using std::chrono::steady_clock;
    if (m_server != ServerKind::PostgreSql && !m_hasMarks)
        Raise(ErrorNumber::General, outcomeSource, "The database has no table BatchMark.");
    constexpr std::chrono::milliseconds pause(250);
    const auto end = steady_clock::now() + std::chrono::seconds(m_limits.statement);
    while (true) {
        try {
            const std::unique_ptr<OdbcConnection> connection = Connect();
            if (m_server != ServerKind::PostgreSql) return HasMark(*connection, transactionName);
            const std::string number = transactionName.substr(0, transactionName.find(' '));
            const std::optional<std::string> state = StateOf(*connection, number);
            if (!state) Raise(ErrorNumber::General, outcomeSource, "The server does not remember the transaction.");
            // A server that has crashed may have assigned the number again.
            if (*state == "committed") return !m_hasMarks || HasMark(*connection, transactionName);
            if (*state == "aborted") return false;
            if (steady_clock::now() >= end)
                Raise(ErrorNumber::General, outcomeSource, "The server still works on the transaction.");
        } catch (const Error&) {
            if (steady_clock::now() >= end) throw;
        }
        PauseForDatabase(pause);
    }
}

}  // namespace quellbrook

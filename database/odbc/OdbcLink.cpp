#include "database/odbc/OdbcLink.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/odbc/OdbcError.h"
#include "database/odbc/OdbcText.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <array>

namespace quellbrook {

namespace {

SQLPOINTER AsPointer(int number) { return reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(number)); }

void* WithVersion(const OdbcHandle& environment) {
    SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
    return environment.Get();
}

// With its own setting, the driver for PostgreSQL sets a savepoint before each statement of a transaction, which costs
// a round trip.
std::string WithoutSavepoints(const std::string& connectionString) {
    const std::string folded = FoldCase(connectionString);
    const bool isPostgreSql =
        folded.find("postgres") != std::string::npos || folded.find("psqlodbc") != std::string::npos;
    return isPostgreSql && folded.find("protocol=") == std::string::npos ? connectionString + ";Protocol=7.4-0"
                                                                         : connectionString;
}

ServerKind KindOf(const OdbcHandle& connection) {
    std::array<char, 128> name{};
    SQLSMALLINT length = 0;
    SQLGetInfo(connection.Get(), SQL_DBMS_NAME, name.data(), static_cast<SQLSMALLINT>(name.size()), &length);
    const std::string_view text(name.data());
    if (text == "PostgreSQL") return ServerKind::PostgreSql;
    return text == "Microsoft SQL Server" ? ServerKind::SqlServer : ServerKind::Other;
}

}  // namespace

OdbcLink::OdbcLink(const std::string& connectionString, const ServerLimits& limits)
    : m_environment(OdbcHandle::Kind::Environment, nullptr),
      m_connection(OdbcHandle::Kind::Connection, WithVersion(m_environment)),
      m_limits(limits) {
    SQLSetConnectAttr(m_connection.Get(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(limits.login), 0);
    SQLSetConnectAttr(m_connection.Get(), SQL_ATTR_CONNECTION_TIMEOUT, AsPointer(limits.statement), 0);
    std::u16string text = ToUtf16(WithoutSavepoints(connectionString));
    const SQLRETURN result =
        SQLDriverConnectW(m_connection.Get(), nullptr, reinterpret_cast<SQLWCHAR*>(text.data()),
                          static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) RaiseOdbcError(m_connection, "OdbcLink.Open");
    m_server = KindOf(m_connection);
}

OdbcLink::~OdbcLink() {
    m_direct.reset();
    m_prepared.clear();
    SQLDisconnect(m_connection.Get());
}

bool OdbcLink::IsDead() const {
    SQLUINTEGER isDead = SQL_CD_FALSE;
    SQLGetConnectAttr(m_connection.Get(), SQL_ATTR_CONNECTION_DEAD, &isDead, 0, nullptr);
    return isDead == SQL_CD_TRUE;
}

void OdbcLink::Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    OdbcStatement statement(m_connection, m_server, m_limits.statement);
    statement.Execute(sql, parameters);
    statement.Drain();
}

std::vector<RowList> OdbcLink::ReadAll(const std::string& sql, const std::string& key) {
    constexpr size_t mostDescribed = 100;
    OdbcStatement statement(m_connection, m_server, m_limits.statement);
    statement.Execute(sql, {});
    std::vector<OdbcStatement::Columns> columns = m_described[key];
    std::vector<RowList> results = statement.FetchAll(columns);
    if (m_described.size() > mostDescribed) m_described.clear();
    m_described[key] = std::move(columns);
    return results;
}

OdbcStatement& OdbcLink::Prepared(const std::string& key, const std::string& sql) {
    constexpr size_t mostPrepared = 100;
    const auto known = m_prepared.find(key);
    if (known != m_prepared.end()) return known->second;
    if (m_prepared.size() == mostPrepared) m_prepared.clear();
    OdbcStatement& statement = m_prepared.try_emplace(key, m_connection, m_server, m_limits.statement).first->second;
    statement.Prepare(sql);
    return statement;
}

void OdbcLink::Open(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    Close();
    if (m_server == ServerKind::PostgreSql && !parameters.empty()) {
        const std::string key = BoundTypes(parameters) + " " + sql;
        try {
            m_open = &Prepared(key, sql);
            m_open->RunPrepared(parameters);
        } catch (...) {
            m_open = nullptr;
            m_prepared.erase(key);
            throw;
        }
    } else {
        m_open = &m_direct.emplace(m_connection, m_server, m_limits.statement);
        m_open->Execute(sql, parameters);
    }
    if (m_open->FindRows()) return;
    Close();
    Raise(ErrorNumber::General, "OdbcLink.Open", "The statement returns no rows.");
}

void OdbcLink::Finish() {
    m_open->Drain();
    Close();
}

void OdbcLink::Close() {
    if (m_open && !m_direct) m_open->Close();
    m_direct.reset();
    m_open = nullptr;
}

}  // namespace quellbrook

#include "database/odbc/OdbcConnection.h"

#include "base/Error.h"
#include "base/ErrorLog.h"
#include "base/Text.h"
#include "database/odbc/OdbcError.h"
#include "sql/tsql/RowLocks.h"
#include "sql/tsql/TransactSqlRewriter.h"

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <optional>
#include <random>
#include <sstream>
#include <utility>

namespace quellbrook {

namespace {

// Rows that are read in one go.
constexpr size_t block = 500;
// The server and the driver get less time, so that they can end a statement by themselves.
constexpr int grace = 2;

ServerLimits WithGrace(const ServerLimits& limits) {
    return {std::max(1, limits.login - grace), std::max(1, limits.statement - grace)};
}

std::string RandomName() {
    std::random_device random;
    std::ostringstream name;
    for (int i = 0; i < 4; ++i) name << std::hex << std::setw(8) << std::setfill('0') << random();
    return name.str();
}

// The text with whole numbers instead of "?"; nothing if it has other values or literals. The driver sends a text of
// several statements as one message only if it has no parameters.
std::optional<std::string> WithNumbers(const std::string& text, const std::vector<TaggedValue>& values) {
    if (text.find_first_of("'\"") != std::string::npos) return std::nullopt;
    std::string result;
    size_t from = 0;
    for (const TaggedValue& value : values) {
        const size_t marker = text.find('?', from);
        if (marker == std::string::npos || !value.Holds<int32_t>() || ToInt32(value) < 0) return std::nullopt;
        result.append(text, from, marker - from).append(ToText(value));
        from = marker + 1;
    }
    return result.append(text, from);
}

// The rows of a query as one call of the driver leaves them for the receiver.
struct Rows {
    std::vector<Row> rows;
    bool isLast = false;

    void Read(OdbcLink& link) {
        rows = link.Fetch(block);
        isLast = rows.size() < block;
        if (isLast) link.Finish();
    }
};

}  // namespace

OdbcConnection::OdbcConnection(const std::string& connectionString, const ServerLimits& limits) : m_limits(limits) {
    const auto opened = std::make_shared<std::shared_ptr<OdbcLink>>();
    Watch([&] {
        m_calls.Run([=] { *opened = std::make_shared<OdbcLink>(connectionString, WithGrace(limits)); },
                    std::chrono::seconds(limits.login));
    });
    m_link = *opened;
    m_server = m_link->Server();
}

// Closing a lost connection may take as long as any other call.
OdbcConnection::~OdbcConnection() {
    if (m_calls.IsAbandoned() || !m_link) return;
    try {
        m_calls.Run([link = std::exchange(m_link, nullptr)]() mutable { link.reset(); }, std::chrono::seconds(grace));
    } catch (...) {
        // Then its thread closes it.
    }
}

void OdbcConnection::Watch(const std::function<void()>& work) {
    try {
        work();
    } catch (const OdbcError& failure) {
        if (failure.IsLostLink() || (m_link && m_link->IsDead())) m_isHealthy = false;
        if (!failure.IsRefusedChange())
            LogFailure(failure.Source(), "SQLSTATE " + failure.State() + ", number " +
                                             std::to_string(failure.NativeNumber()) + ": " + failure.Description());
        throw;
    } catch (...) {
        if (m_calls.IsAbandoned()) {
            m_isHealthy = false;
            m_link.reset();
            LogFailure("OdbcConnection", CurrentError().Description());
        }
        throw;
    }
}

void OdbcConnection::Run(std::function<void(OdbcLink&)> work) {
    if (!m_link) Raise(ErrorNumber::General, "OdbcConnection", "The connection to the database server has been lost.");
    Watch([&] {
        m_calls.Run([link = m_link, work = std::move(work)] { work(*link); }, std::chrono::seconds(m_limits.statement));
    });
}

void OdbcConnection::ExecuteNative(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    Run([=](OdbcLink& link) { link.Execute(sql, parameters); });
}

void OdbcConnection::QueryNative(const std::string& sql, const std::vector<TaggedValue>& parameters,
                                 const RowReceiver& receiver) {
    const auto rows = std::make_shared<Rows>();
    Run([=](OdbcLink& link) {
        link.Open(sql, parameters);
        rows->Read(link);
    });
    const auto close = [](OdbcLink& link) { link.Close(); };
    try {
        while (true) {
            for (const Row& row : std::exchange(rows->rows, {})) {
                if (receiver(row)) continue;
                if (!rows->isLast) Run(close);
                return;
            }
            if (rows->isLast) return;
            Run([=](OdbcLink& link) { rows->Read(link); });
        }
    } catch (...) {
        if (!rows->isLast && IsHealthy()) Run(close);
        throw;
    }
}

// Runs of the text leave no temporary table behind only if it drops those that it creates.
std::string OdbcConnection::TextFor(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    if (m_server != ServerKind::PostgreSql) {
        if (sql.starts_with("CREATE TABLE #")) m_hasTemporaryTables = true;
        if (sql.starts_with("DROP TABLE #")) m_hasTemporaryTables = false;
        return sql;
    }
    std::vector<std::string> texts;
    for (sql::RewrittenStatement& statement : sql::RewriteWithoutCase(sql, parameters)) {
        if (statement.kind == sql::StatementKind::Creation) m_hasTemporaryTables = true;
        if (statement.kind == sql::StatementKind::Removal) m_hasTemporaryTables = false;
        texts.push_back(std::move(statement.text));
    }
    return Join(texts, ";\n");
}

std::string OdbcConnection::QueryTextFor(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    if (m_server != ServerKind::PostgreSql) return m_inBatch ? sql::WithLocksForSqlServer(sql) : sql;
    const std::string key = BoundTypes(parameters) + (m_inBatch ? "! " : " ") + sql;
    const auto known = m_rewrittenQueries.find(key);
    if (known != m_rewrittenQueries.end()) return known->second;
    const std::vector<sql::RewrittenStatement> statements = sql::RewriteWithoutCase(sql, parameters);
    if (statements.size() != 1)
        Raise(ErrorNumber::General, "OdbcConnection.Query", "A query consists of one statement.");
    const std::string text = statements.front().text + (m_inBatch ? sql::LocksForPostgreSql(sql) : "");
    constexpr size_t mostRewritten = 200;
    if (m_rewrittenQueries.size() == mostRewritten) m_rewrittenQueries.clear();
    return m_rewrittenQueries[key] = text;
}

void OdbcConnection::Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
                           const RowReceiver& receiver) {
    QueryNative(QueryTextFor(sql, parameters), parameters, receiver);
}

void OdbcConnection::Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    ExecuteNative(TextFor(sql, parameters), parameters);
}

int32_t OdbcConnection::Insert(const std::string& sql, const std::vector<TaggedValue>& parameters,
                               const std::string& keyColumn) {
    std::string text = TextFor(sql, parameters);
    text += m_server == ServerKind::PostgreSql ? " RETURNING " + keyColumn
                                               : "; SELECT CAST(SCOPE_IDENTITY() AS INT) AS " + keyColumn;
    int32_t key = 0;
    QueryNative(text, parameters, [&](const Row& row) {
        key = ToInt32(row.At(0));
        return true;
    });
    return key;
}

std::vector<ColumnDescription> OdbcConnection::DescribeTable(const std::string& table) {
    const auto columns = std::make_shared<std::vector<ColumnDescription>>();
    Run([=](OdbcLink& link) {
        link.Open("SELECT * FROM " + table + " WHERE 1 = 0", {});
        *columns = link.Describe();
        link.Close();
    });
    return *columns;
}

void OdbcConnection::EnterBatch() {
    m_name.clear();
    m_present.clear();
    m_inBatch = true;
}

void OdbcConnection::Begin() {
    if (m_server == ServerKind::PostgreSql) {
        BeginReading({});
        return;
    }
    EnterBatch();
    ExecuteNative("SET XACT_ABORT ON; BEGIN TRANSACTION");
    m_present = RandomName();
}

std::vector<RowList> OdbcConnection::BeginReading(const std::vector<SelectStatement>& queries) {
    if (m_server != ServerKind::PostgreSql) return Connection::BeginReading(queries);
    EnterBatch();  // a query that fails leaves the transaction open
    std::vector<std::string> texts{"BEGIN", "SELECT CAST(pg_current_xact_id() AS TEXT) AS Name"};
    std::string key;
    for (const SelectStatement& query : queries) {
        const std::string withMarkers = QueryTextFor(query.sql, query.parameters);
        const auto text = WithNumbers(withMarkers, query.parameters);
        if (!text) return Connection::BeginReading(queries);
        texts.push_back(*text);
        key += withMarkers + ";";
    }
    const auto results = std::make_shared<std::vector<RowList>>();
    Run([=, text = Join(texts, "; ")](OdbcLink& link) { *results = link.ReadAll(text, key); });
    m_present = ToText(results->at(0).at(0).At(0));
    if (m_leavesMarks) m_present += " " + RandomName();
    results->erase(results->begin());
    return std::move(*results);
}

void OdbcConnection::Commit() { CommitAfter(""); }

void OdbcConnection::ExecuteAndCommit(const std::vector<std::string>& texts) {
    if (m_server != ServerKind::PostgreSql) return Connection::ExecuteAndCommit(texts);
    std::string all;
    for (const std::string& text : texts) all += TextFor(text, {}) + ";\n";
    CommitAfter(all);
}

// Each of the texts ends with a semicolon.
void OdbcConnection::CommitAfter(const std::string& texts) {
    std::string text = texts;
    if (m_leavesMarks) text += "INSERT INTO BatchMark (Name) VALUES ('" + m_present + "'); ";
    text += m_server == ServerKind::PostgreSql ? "COMMIT" : "COMMIT TRANSACTION";
    m_name = m_present;
    try {
        ExecuteNative(text);
    } catch (...) {
        if (IsHealthy()) m_name.clear();  // the server has refused a statement
        throw;
    }
    m_inBatch = false;
}

void OdbcConnection::Rollback() noexcept {
    if (!std::exchange(m_inBatch, false)) return;
    try {
        if (IsHealthy())
            ExecuteNative(m_server == ServerKind::PostgreSql ? "ROLLBACK" : "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION");
        m_hasTemporaryTables = false;
    } catch (...) {
        m_isHealthy = false;
    }
}

bool OdbcConnection::IsHealthy() {
    if (!m_link || m_calls.IsAbandoned() || m_link->IsDead()) m_isHealthy = false;
    return m_isHealthy;
}

void OdbcConnection::Reset() {
    Rollback();
    if (!m_hasTemporaryTables) return;
    if (m_server != ServerKind::PostgreSql)
        Raise(ErrorNumber::General, "OdbcConnection.Reset", "A temporary table is left.");
    ExecuteNative("DISCARD TEMP");
    m_hasTemporaryTables = false;
}

}  // namespace quellbrook

#pragma once

#include "database/odbc/OdbcHandle.h"
#include "database/odbc/OdbcStatement.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace quellbrook {

// How long the program waits for a server, in seconds.
struct ServerLimits {
    int login = 15;
    int statement = 15;
};
// For statements that read or write a whole database.
inline constexpr ServerLimits WholeDatabaseLimits{15, 3600};

// The connection of a driver to a server, with at most one open result. Its calls may take any time. Failures raise
// OdbcError.
class OdbcLink {
public:
    OdbcLink(const std::string& connectionString, const ServerLimits& limits);
    ~OdbcLink();

    ServerKind Server() const { return m_server; }
    // Whether the driver knows that the connection is gone.
    bool IsDead() const;

    // Runs a text to its end and ignores rows.
    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters);
    // Runs a text to its end and returns the rows of each of its results that has columns.
    // Texts with the same key have results with the same columns: describing them costs round trips.
    std::vector<RowList> ReadAll(const std::string& sql, const std::string& key);
    // Runs a text and opens its first result with rows. Error 5 if there is none. On PostgreSQL, one statement with
    // parameters stays prepared.
    void Open(const std::string& sql, const std::vector<TaggedValue>& parameters);
    std::vector<ColumnDescription> Describe() { return m_open->Describe(); }
    // The next rows of the open result. Fewer than the limit at the end.
    std::vector<Row> Fetch(size_t limit) { return m_open->Fetch(limit); }
    // Goes to the end of the open text and closes it.
    void Finish();
    // Closes the open result without reading the rest.
    void Close();

private:
    OdbcStatement& Prepared(const std::string& key, const std::string& sql);

    OdbcHandle m_environment;
    OdbcHandle m_connection;
    ServerKind m_server = ServerKind::Other;
    ServerLimits m_limits;
    OdbcStatement* m_open = nullptr;  // m_direct, or one of the prepared statements
    std::optional<OdbcStatement> m_direct;
    std::unordered_map<std::string, std::vector<OdbcStatement::Columns>> m_described;  // by the key of ReadAll
    std::unordered_map<std::string, OdbcStatement> m_prepared;  // by the types of the parameters and the text
};

}  // namespace quellbrook

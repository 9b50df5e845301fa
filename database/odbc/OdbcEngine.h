#pragma once

#include "database/Connection.h"
#include "database/odbc/OdbcLink.h"

#include <memory>
#include <string>

namespace quellbrook {

class OdbcConnection;

// A department database on a server: PostgreSQL or SQL Server.
class OdbcEngine : public Engine {
public:
    // Connects, to learn about the server and the schema. The string is for the driver manager and may contain a
    // password: no message repeats it. Upgrades our schema of an earlier version. Error
    // 5 for another server, for our schema in a later version, and if an upgrade fails.
    static std::shared_ptr<OdbcEngine> Open(const std::string& connectionString, const ServerLimits& limits = {});

    std::unique_ptr<Connection> Open() override;
    // Waits for a transaction that the server still works on, and for a server that restarts.
    bool WasCommitted(const std::string& transactionName) override;
    const Dialect& GetDialect() const override { return m_dialect; }

private:
    OdbcEngine(std::string connectionString, const ServerLimits& limits)
        : m_connectionString(std::move(connectionString)), m_limits(limits) {}

    void LearnFrom(OdbcConnection& connection);
    std::unique_ptr<OdbcConnection> Connect() const;

    std::string m_connectionString;
    ServerLimits m_limits;
    ServerKind m_server = ServerKind::Other;
    Dialect m_dialect;
    bool m_hasMarks = false;
};

}  // namespace quellbrook

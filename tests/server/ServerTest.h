#pragma once

#include "database/odbc/OdbcConnection.h"
#include "database/odbc/OdbcEngine.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RawDatabase.h"

#include <cstdlib>
#include <memory>
#include <regex>
#include <string>

namespace quellbrook::testing {

// The connection string of the test server with another port.
inline std::string ThroughPort(int port) {
    return std::regex_replace(TestServer(), std::regex("Port=\\d+"), "Port=" + std::to_string(port));
}
inline uint16_t ServerPort() { return static_cast<uint16_t>(std::stoi(std::getenv("PGPORT"))); }

// Tests of what only a server does, on PostgreSQL. A second connection plays its administrator.
class ServerTest : public DatabaseTest {
protected:
    // The process of the connection's session on the server.
    static int32_t ProcessOf(Connection& connection) {
        int32_t process = 0;
        dynamic_cast<OdbcConnection&>(connection)
            .QueryNative("SELECT pg_backend_pid() AS Process", {}, [&](const Row& row) {
                process = ToInt32(row.At(0));
                return true;
            });
        return process;
    }
    void End(int32_t process) { m_database.QueryRows("SELECT pg_terminate_backend(" + std::to_string(process) + ")"); }
    int32_t CountProperty() { return ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM Property")); }

    static constexpr const char* insert = "INSERT INTO Property (PropertyID) VALUES ('a')";
};

}  // namespace quellbrook::testing

#pragma once

#include "database/Connection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quellbrook::testing {

// An empty department database in our schema, which tests fill and read in the engine's own SQL. Failures raise Errors
// with the engine's messages. The destructor removes the database.
class RawDatabase {
public:
    virtual ~RawDatabase() = default;

    // The file of SQLite; empty for a server.
    virtual std::string Path() const { return {}; }
    virtual std::shared_ptr<Engine> OpenEngine() = 0;

    using Cells = std::vector<std::pair<std::string, TaggedValue>>;
    // The new row's identity; 0 for a table without one.
    virtual int32_t Insert(const std::string& table, const Cells& cells) = 0;
    virtual void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) = 0;
    // Dates as texts, fractions as floating point numbers.
    virtual RowList QueryRows(const std::string& sql) = 0;
    virtual std::vector<std::string> TableNames() = 0;
    virtual void NumberVehiclesFrom(int32_t first) = 0;
    // Waits for a server that starts again, and connects to it.
    virtual void Reconnect() {}
    // Lets rows refer to rows that do not exist. A server drops its foreign keys for this.
    virtual void CheckForeignKeys(bool checks) = 0;
};

// In a temporary file.
std::unique_ptr<RawDatabase> MakeSqliteDatabase();

// The connection string of the server on which the tests of this process run, from QUELLBROOK_TEST_ODBC; empty for
// SQLite.
std::string TestServer();
// In the database that it names. Error 5 if that is not empty.
std::unique_ptr<RawDatabase> MakeServerDatabase();

// "INSERT INTO table (names) VALUES (markers)".
std::string InsertText(const std::string& table, const RawDatabase::Cells& cells);
std::vector<TaggedValue> ValuesOf(const RawDatabase::Cells& cells);

}  // namespace quellbrook::testing

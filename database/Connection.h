#pragma once

#include "sql/Dialect.h"
#include "sql/Row.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// What the column of a table holds, as its declaration says.
enum class ColumnKind { Text, WholeNumber, Number, Boolean, Date };

struct ColumnDescription {
    std::string name;
    ColumnKind kind;
};

// One connection to a database. Statements are Transact-SQL as the system writes them; an engine that does not speak it
// translates by itself. Every failure is an Error with the database's description and its own number, but
// ErrorNumber::IntegrityViolation for any violated unique or foreign key constraint.
class Connection {
public:
    virtual ~Connection() = default;

    // Runs a SELECT, with one value for each "?" in order, and calls the receiver for each row until it returns false.
    using RowReceiver = std::function<bool(const Row&)>;
    virtual void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
                       const RowReceiver& receiver) = 0;

    // Runs a statement text that returns nothing, with one value for each "?" in order.
    virtual void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters = {}) = 0;

    // The columns of a table, in its own order.
    virtual std::vector<ColumnDescription> DescribeTable(const std::string& table) = 0;

    // The identity that the last insert of this connection was given.
    virtual int32_t LastIdentity() = 0;

    // A write transaction. Rollback never fails; a failed Commit leaves a transaction that must be rolled back.
    virtual void Begin() = 0;
    virtual void Commit() = 0;
    virtual void Rollback() noexcept = 0;

    // Whether the connection can still be used by somebody else after what it went through.
    virtual bool IsHealthy() = 0;
    // Drops what the last user may have left: an open transaction, temporary tables.
    virtual void Reset() = 0;
};

// A database that connections can be opened to.
class Engine {
public:
    virtual ~Engine() = default;

    virtual std::unique_ptr<Connection> Open() = 0;
    virtual const Dialect& GetDialect() const = 0;
};

}  // namespace quellbrook

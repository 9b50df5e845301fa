#pragma once

#include "sql/Dialect.h"
#include "sql/Row.h"
#include "sql/SelectStatement.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// The declared type of a column.
enum class ColumnKind { Text, WholeNumber, Number, Boolean, Date };

struct ColumnDescription {
    std::string name;
    ColumnKind kind;
};

// A connection to a database. Statements are Transact-SQL; other engines translate them. Every failure raises an Error
// with the database's description and number. Any violated unique or foreign key constraint has the number
// ErrorNumber::IntegrityViolation.
class Connection {
public:
    virtual ~Connection() = default;

    // Runs a SELECT, with one value for each "?" in order, and calls the receiver for each row until it returns false.
    using RowReceiver = std::function<bool(const Row&)>;
    virtual void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
                       const RowReceiver& receiver) = 0;

    // Runs statements that return no rows, with one value for each "?" in order.
    virtual void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters = {}) = 0;

    // Runs one INSERT and returns the key that the database assigned to the column, whatever its triggers insert.
    virtual int32_t Insert(const std::string& sql, const std::vector<TaggedValue>& parameters,
                           const std::string& keyColumn) = 0;

    // The columns of a table, in their order.
    virtual std::vector<ColumnDescription> DescribeTable(const std::string& table) = 0;

    // A write transaction. After a failure the transaction must be rolled back.
    virtual void Begin() = 0;
    // Begins a write transaction and returns all rows of each of the queries, which run in it in their order.
    virtual std::vector<RowList> BeginReading(const std::vector<SelectStatement>& queries) {
        Begin();
        std::vector<RowList> results(queries.size());
        for (size_t i = 0; i < queries.size(); ++i)
            Query(queries[i].sql, queries[i].parameters, [&](const Row& row) {
                results[i].push_back(row);
                return true;
            });
        return results;
    }
    virtual void Commit() = 0;
    // Runs texts without parameters, in their order, and commits. A failure of one leaves out the rest and the commit.
    virtual void ExecuteAndCommit(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) Execute(text);
        Commit();
    }
    virtual void Rollback() noexcept = 0;
    // Names the latest transaction for Engine::WasCommitted. Empty if it certainly was not committed, so a failed
    // Commit after which this is not empty may have committed it.
    virtual std::string TransactionName() const = 0;

    // Whether the connection is still usable.
    virtual bool IsHealthy() = 0;
    // Rolls back an open transaction and drops temporary tables.
    virtual void Reset() = 0;
};

// Opens connections to one database.
class Engine {
public:
    virtual ~Engine() = default;

    virtual std::unique_ptr<Connection> Open() = 0;
    // Whether a transaction was committed although its Commit failed. Neither a crash nor a power loss changes the
    // answer later. Raises an Error if it cannot be found out.
    virtual bool WasCommitted(const std::string& transactionName) = 0;
    virtual const Dialect& GetDialect() const = 0;
};

}  // namespace quellbrook

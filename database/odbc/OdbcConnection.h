#pragma once

#include "database/Connection.h"
#include "database/odbc/BoundedCalls.h"
#include "database/odbc/OdbcLink.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace quellbrook {

// A connection to a server. SQL Server gets statements unchanged; for PostgreSQL they are rewritten. No call takes much
// longer than the limits allow, even if the server or its driver does not answer. The description of an error is the
// server's message. Its SQLSTATE and native number are logged, unless a constraint or a trigger refused the change.
class OdbcConnection : public Connection {
public:
    OdbcConnection(const std::string& connectionString, const ServerLimits& limits);
    ~OdbcConnection() override;

    ServerKind Server() const { return m_server; }
    // Statements in the server's own SQL, not Transact-SQL.
    void ExecuteNative(const std::string& sql, const std::vector<TaggedValue>& parameters = {});
    void QueryNative(const std::string& sql, const std::vector<TaggedValue>& parameters, const RowReceiver& receiver);
    // Lets transactions leave a mark, for WasCommitted. The table BatchMark must exist.
    void LeaveMarks() { m_leavesMarks = true; }

    void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
               const RowReceiver& receiver) override;
    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters = {}) override;
    // On PostgreSQL, one message to the server for all.
    int32_t Insert(const std::string& sql, const std::vector<TaggedValue>& parameters,
                   const std::string& keyColumn) override;
    std::vector<ColumnDescription> DescribeTable(const std::string& table) override;
    void Begin() override;
    // On PostgreSQL, one message to the server if all values are whole numbers.
    std::vector<RowList> BeginReading(const std::vector<SelectStatement>& queries) override;
    void Commit() override;
    // On PostgreSQL, one message to the server.
    void ExecuteAndCommit(const std::vector<std::string>& texts) override;
    void Rollback() noexcept override;
    std::string TransactionName() const override { return m_name; }
    bool IsHealthy() override;
    void Reset() override;

private:
    void EnterBatch();
    void CommitAfter(const std::string& texts);
    void Run(std::function<void(OdbcLink&)> work);
    void Watch(const std::function<void()>& work);
    std::string TextFor(const std::string& sql, const std::vector<TaggedValue>& parameters);
    std::string QueryTextFor(const std::string& sql, const std::vector<TaggedValue>& parameters);

    ServerLimits m_limits;
    BoundedCalls m_calls;
    std::shared_ptr<OdbcLink> m_link;  // null while connecting, and after a call that did not return
    ServerKind m_server = ServerKind::Other;
    std::string m_present;  // names the open transaction
    std::string m_name;
    std::unordered_map<std::string, std::string> m_rewrittenQueries;  // by the types of the parameters and the text
    bool m_leavesMarks = false;
    bool m_inBatch = false;
    bool m_hasTemporaryTables = false;
    bool m_isHealthy = true;
};

}  // namespace quellbrook

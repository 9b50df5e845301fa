#pragma once

#include "database/Connection.h"

#include <memory>
#include <vector>

namespace quellbrook {

// Keeps idle connections of one engine for reuse. A returned connection is reset, or closed if that fails, so no
// transaction, lock or temporary table outlives a lease. When a connection has been lost, all idle ones are closed, so
// that a server that was restarted makes only one call fail. Not thread-safe.
class ConnectionPool {
public:
    explicit ConnectionPool(std::shared_ptr<Engine> engine);
    ~ConnectionPool();

    class Lease {
    public:
        Lease(ConnectionPool& pool, std::unique_ptr<Connection> connection);
        ~Lease();
        Lease(const Lease&) = delete;
        Lease& operator=(const Lease&) = delete;

        Connection& operator*() const { return *m_connection; }
        Connection* operator->() const { return m_connection.get(); }

    private:
        ConnectionPool& m_pool;
        std::unique_ptr<Connection> m_connection;
    };

    Lease Borrow();
    const Dialect& GetDialect() const { return m_engine->GetDialect(); }
    // See Engine::WasCommitted.
    bool WasCommitted(const std::string& transactionName) { return m_engine->WasCommitted(transactionName); }

private:
    friend class Lease;
    void Return(std::unique_ptr<Connection> connection) noexcept;

    std::shared_ptr<Engine> m_engine;
    std::vector<std::unique_ptr<Connection>> m_idle;
};

}  // namespace quellbrook

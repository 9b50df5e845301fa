#include "database/ConnectionPool.h"

namespace quellbrook {

namespace {

// One for the caller, and one for its queries while it reads a result.
constexpr size_t idleLimit = 2;

}  // namespace

ConnectionPool::ConnectionPool(std::shared_ptr<Engine> engine) : m_engine(std::move(engine)) {}
ConnectionPool::~ConnectionPool() = default;

ConnectionPool::Lease::Lease(ConnectionPool& pool, std::unique_ptr<Connection> connection)
    : m_pool(pool), m_connection(std::move(connection)) {}

ConnectionPool::Lease::~Lease() { m_pool.Return(std::move(m_connection)); }

ConnectionPool::Lease ConnectionPool::Borrow() {
    while (!m_idle.empty()) {
        std::unique_ptr<Connection> connection = std::move(m_idle.back());
        m_idle.pop_back();
        if (connection->IsHealthy()) return Lease(*this, std::move(connection));
    }
    return Lease(*this, m_engine->Open());
}

void ConnectionPool::Return(std::unique_ptr<Connection> connection) noexcept {
    try {
        if (!connection->IsHealthy()) {
            // What ended it has probably ended the others, too.
            m_idle.clear();
            return;
        }
        connection->Reset();
        if (m_idle.size() < idleLimit) m_idle.push_back(std::move(connection));
    } catch (...) {
        // A connection that cannot be reset is closed.
    }
}

}  // namespace quellbrook

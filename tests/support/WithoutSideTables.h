#pragma once

#include "database/Connection.h"

#include <memory>

namespace quellbrook::testing {

// Wraps an engine and reports a schema that belongs to the host, without our side tables and facts.
class WithoutSideTables : public Engine {
public:
    explicit WithoutSideTables(std::shared_ptr<Engine> inner) : m_inner(std::move(inner)) {
        m_dialect = m_inner->GetDialect();
        m_dialect.hasCurrentPlace = m_dialect.hasDescriptionIndex = m_dialect.itemsAreDistinct = false;
    }
    std::unique_ptr<Connection> Open() override { return m_inner->Open(); }
    bool WasCommitted(const std::string& name) override { return m_inner->WasCommitted(name); }
    const Dialect& GetDialect() const override { return m_dialect; }

private:
    std::shared_ptr<Engine> m_inner;
    Dialect m_dialect;
};

}  // namespace quellbrook::testing

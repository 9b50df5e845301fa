#pragma once

#include "database/Connection.h"

#include <memory>
#include <utility>

namespace quellbrook::testing {

// Wraps an engine and reports another dialect.
class WithDialect : public Engine {
public:
    WithDialect(std::shared_ptr<Engine> inner, Dialect dialect)
        : m_inner(std::move(inner)), m_dialect(std::move(dialect)) {}
    std::unique_ptr<Connection> Open() override { return m_inner->Open(); }
    bool WasCommitted(const std::string& name) override { return m_inner->WasCommitted(name); }
    const Dialect& GetDialect() const override { return m_dialect; }

private:
    std::shared_ptr<Engine> m_inner;
    Dialect m_dialect;
};

}  // namespace quellbrook::testing

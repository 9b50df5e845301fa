#pragma once

#include "database/Connection.h"

#include <functional>
#include <memory>
#include <utility>

namespace quellbrook::testing {

// Wraps an engine and simulates another workstation: runs a function once, just before the next transaction begins.
class InterruptingEngine : public Engine {
public:
    explicit InterruptingEngine(std::shared_ptr<Engine> inner) : m_inner(std::move(inner)) {}

    void BeforeTransaction(std::function<void()> interruption) { *m_interruption = std::move(interruption); }

    std::unique_ptr<Connection> Open() override {
        return std::make_unique<InterruptedConnection>(m_inner->Open(), m_interruption);
    }
    bool WasCommitted(const std::string& name) override { return m_inner->WasCommitted(name); }
    const Dialect& GetDialect() const override { return m_inner->GetDialect(); }

private:
    using Interruption = std::shared_ptr<std::function<void()>>;

    class InterruptedConnection : public Connection {
    public:
        InterruptedConnection(std::unique_ptr<Connection> inner, Interruption interruption)
            : m_inner(std::move(inner)), m_interruption(std::move(interruption)) {}

        void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
                   const RowReceiver& receiver) override {
            m_inner->Query(sql, parameters, receiver);
        }
        void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) override {
            m_inner->Execute(sql, parameters);
        }
        std::vector<ColumnDescription> DescribeTable(const std::string& table) override {
            return m_inner->DescribeTable(table);
        }
        int32_t LastIdentity() override { return m_inner->LastIdentity(); }
        void Begin() override {
            if (const auto interruption = std::exchange(*m_interruption, nullptr)) interruption();
            m_inner->Begin();
        }
        void Commit() override { m_inner->Commit(); }
        void Rollback() noexcept override { m_inner->Rollback(); }
        std::string TransactionName() const override { return m_inner->TransactionName(); }
        bool IsHealthy() override { return m_inner->IsHealthy(); }
        void Reset() override { m_inner->Reset(); }

    private:
        std::unique_ptr<Connection> m_inner;
        Interruption m_interruption;
    };

    std::shared_ptr<Engine> m_inner;
    Interruption m_interruption = std::make_shared<std::function<void()>>();
};

}  // namespace quellbrook::testing

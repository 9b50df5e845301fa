#pragma once

#include "database/Connection.h"

#include <functional>
#include <memory>
#include <utility>

namespace quellbrook::testing {

// Wraps an engine and simulates another workstation, or observes a screen that waits for the database: runs a function
// once, just before the next transaction begins or the next statement is executed.
class InterruptingEngine : public Engine {
public:
    explicit InterruptingEngine(std::shared_ptr<Engine> inner) : m_inner(std::move(inner)) {}

    void BeforeTransaction(std::function<void()> interruption) {
        m_interruptions->transaction = std::move(interruption);
    }
    void BeforeStatement(std::function<void()> interruption) { m_interruptions->statement = std::move(interruption); }

    std::unique_ptr<Connection> Open() override {
        return std::make_unique<InterruptedConnection>(m_inner->Open(), m_interruptions);
    }
    bool WasCommitted(const std::string& name) override { return m_inner->WasCommitted(name); }
    const Dialect& GetDialect() const override { return m_inner->GetDialect(); }

private:
    struct Interruptions {
        std::function<void()> transaction;
        std::function<void()> statement;
    };

    static void Run(std::function<void()>& interruption) {
        if (const auto run = std::exchange(interruption, nullptr)) run();
    }

    class InterruptedConnection : public Connection {
    public:
        InterruptedConnection(std::unique_ptr<Connection> inner, std::shared_ptr<Interruptions> interruptions)
            : m_inner(std::move(inner)), m_interruptions(std::move(interruptions)) {}

        void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
                   const RowReceiver& receiver) override {
            Run(m_interruptions->statement);
            m_inner->Query(sql, parameters, receiver);
        }
        void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) override {
            Run(m_interruptions->statement);
            m_inner->Execute(sql, parameters);
        }
        int32_t Insert(const std::string& sql, const std::vector<TaggedValue>& parameters,
                       const std::string& keyColumn) override {
            Run(m_interruptions->statement);
            return m_inner->Insert(sql, parameters, keyColumn);
        }
        std::vector<ColumnDescription> DescribeTable(const std::string& table) override {
            return m_inner->DescribeTable(table);
        }
        void Begin() override {
            Run(m_interruptions->transaction);
            m_inner->Begin();
        }
        void Commit() override { m_inner->Commit(); }
        void Rollback() noexcept override { m_inner->Rollback(); }
        std::string TransactionName() const override { return m_inner->TransactionName(); }
        bool IsHealthy() override { return m_inner->IsHealthy(); }
        void Reset() override { m_inner->Reset(); }

    private:
        std::unique_ptr<Connection> m_inner;
        std::shared_ptr<Interruptions> m_interruptions;
    };

    std::shared_ptr<Engine> m_inner;
    std::shared_ptr<Interruptions> m_interruptions = std::make_shared<Interruptions>();
};

}  // namespace quellbrook::testing

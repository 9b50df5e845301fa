#include "tests/support/FaultInjectingEngine.h"

namespace quellbrook::testing {

namespace {

using Step = FaultInjectingEngine::Step;
using State = FaultInjectingEngine::State;

class FaultInjectingConnection : public Connection {
public:
    FaultInjectingConnection(std::unique_ptr<Connection> inner, std::shared_ptr<State> state)
        : m_inner(std::move(inner)), m_state(std::move(state)) {}

    void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
               const RowReceiver& receiver) override {
        Pass(Step::Statement);
        m_inner->Query(sql, parameters, receiver);
    }
    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) override {
        Pass(Step::Statement);
        m_inner->Execute(sql, parameters);
    }
    int32_t Insert(const std::string& sql, const std::vector<TaggedValue>& parameters,
                   const std::string& keyColumn) override {
        Pass(Step::Statement);
        return m_inner->Insert(sql, parameters, keyColumn);
    }
    std::vector<ColumnDescription> DescribeTable(const std::string& table) override {
        return m_inner->DescribeTable(table);
    }
    void Begin() override {
        Pass(Step::Begin);
        m_inner->Begin();
    }
    void Commit() override {
        Pass(Step::Commit);
        m_inner->Commit();
        Pass(Step::AfterCommit);
    }
    void Rollback() noexcept override { m_inner->Rollback(); }
    std::string TransactionName() const override { return m_inner->TransactionName(); }
    bool IsHealthy() override { return !m_broken && m_inner->IsHealthy(); }
    void Reset() override { m_inner->Reset(); }

private:
    void Pass(Step here) {
        try {
            m_state->Pass(here);
        } catch (const Error&) {
            m_broken = m_state->breaksConnection;
            throw;
        }
    }

    std::unique_ptr<Connection> m_inner;
    std::shared_ptr<State> m_state;
    bool m_broken = false;
};

}  // namespace

FaultInjectingEngine::FaultInjectingEngine(std::shared_ptr<Engine> inner)
    : m_inner(std::move(inner)), m_state(std::make_shared<State>()) {}

std::unique_ptr<Connection> FaultInjectingEngine::Open() {
    m_state->Pass(Step::Open);
    return std::make_unique<FaultInjectingConnection>(m_inner->Open(), m_state);
}

bool FaultInjectingEngine::WasCommitted(const std::string& name) {
    if (m_outcomeIsLost) Raise(ErrorNumber::General, "Fault", "The link is still gone.");
    return m_inner->WasCommitted(name);
}

void FaultInjectingEngine::FailAtOpen(Error error) { Arm(Step::Open, 1, std::move(error)); }
void FaultInjectingEngine::FailAtBegin(Error error) { Arm(Step::Begin, 1, std::move(error)); }
void FaultInjectingEngine::FailAtStatement(int n, Error error) { Arm(Step::Statement, n, std::move(error)); }
void FaultInjectingEngine::FailAtCommit(Error error) { Arm(Step::Commit, 1, std::move(error)); }
void FaultInjectingEngine::FailAfterCommit(Error error) { Arm(Step::AfterCommit, 1, std::move(error)); }

void FaultInjectingEngine::Disarm() {
    m_state->step.reset();
    m_state->error.reset();
}

void FaultInjectingEngine::Arm(Step step, int n, Error error) {
    m_state->step = step;
    m_state->remaining = n;
    m_state->error = std::move(error);
    m_state->struck = false;
}

void FaultInjectingEngine::State::Pass(Step here) {
    if (here == Step::Statement) ++statements;
    if (step != here || --remaining > 0) return;
    const Error due = *error;
    step.reset();
    error.reset();
    struck = true;
    throw due;
}

}  // namespace quellbrook::testing

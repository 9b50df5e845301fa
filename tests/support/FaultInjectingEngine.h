#pragma once

#include "base/Error.h"
#include "database/Connection.h"

#include <memory>
#include <optional>

namespace quellbrook::testing {

// Wraps an engine whose connections fail on demand: one fault at a time, once.
class FaultInjectingEngine : public Engine {
public:
    explicit FaultInjectingEngine(std::shared_ptr<Engine> inner);

    std::unique_ptr<Connection> Open() override;
    bool WasCommitted(const std::string& name) override;
    const Dialect& GetDialect() const override { return m_inner->GetDialect(); }

    void FailAtOpen(Error error);
    void FailAtBegin(Error error);
    // Fails the nth statement from now, where 1 is the next one, and does not execute it. Counts queries, too.
    void FailAtStatement(int n, Error error);
    void FailAtCommit(Error error);     // nothing is committed
    void FailAfterCommit(Error error);  // committed, but the answer is lost
    void Disarm();
    // Whether nobody can find out what became of a failed commit.
    void LoseOutcome(bool lost) { m_outcomeIsLost = lost; }

    bool HasStruck() const { return m_state->struck; }
    int StatementCount() const { return m_state->statements; }  // since construction

    // Whether a fault also makes its connection unusable.
    void BreakConnectionWithFault(bool broken) { m_state->breaksConnection = broken; }

    enum class Step { Open, Begin, Statement, Commit, AfterCommit };
    struct State {
        std::optional<Step> step;
        int remaining = 0;  // statements until the fault
        std::optional<Error> error;
        bool struck = false;
        bool breaksConnection = false;
        int statements = 0;

        void Pass(Step here);  // throws if the fault is due here
    };

private:
    void Arm(Step step, int n, Error error);

    std::shared_ptr<Engine> m_inner;
    std::shared_ptr<State> m_state;
    bool m_outcomeIsLost = false;
};

}  // namespace quellbrook::testing

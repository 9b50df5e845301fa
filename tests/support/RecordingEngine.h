#pragma once

#include "database/Connection.h"

#include <memory>
#include <string>
#include <vector>

namespace quellbrook::testing {

// Wraps an engine and records every statement of its connections, unchanged and in order, with the marks "BEGIN",
// "COMMIT" and "ROLLBACK". A commit is recorded before it is tried.
class RecordingEngine : public Engine {
public:
    explicit RecordingEngine(std::shared_ptr<Engine> inner);

    std::unique_ptr<Connection> Open() override;
    bool WasCommitted(const std::string& name) override { return m_inner->WasCommitted(name); }
    const Dialect& GetDialect() const override { return m_inner->GetDialect(); }

    const std::vector<std::string>& Log() const { return *m_log; }
    // The parameters of the statement at this position of the log.
    const std::vector<TaggedValue>& Parameters(size_t position) const { return m_parameters->at(position); }
    void Clear();

private:
    std::shared_ptr<Engine> m_inner;
    std::shared_ptr<std::vector<std::string>> m_log;
    std::shared_ptr<std::vector<std::vector<TaggedValue>>> m_parameters;  // one for each entry of the log
};

}  // namespace quellbrook::testing

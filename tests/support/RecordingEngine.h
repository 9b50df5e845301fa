#pragma once

#include "database/Connection.h"

#include <memory>
#include <string>
#include <vector>

namespace quellbrook::testing {

// An engine around another that writes down every text handed to its connections, as it came in, in order, with the
// marks "BEGIN", "COMMIT" and "ROLLBACK". A commit is written down before it is tried.
class RecordingEngine : public Engine {
public:
    explicit RecordingEngine(std::shared_ptr<Engine> inner);

    std::unique_ptr<Connection> Open() override;
    const Dialect& GetDialect() const override { return m_inner->GetDialect(); }

    const std::vector<std::string>& Log() const { return *m_log; }
    // The parameters that came with the statement at this place of the log.
    const std::vector<TaggedValue>& Parameters(size_t position) const { return m_parameters->at(position); }
    void Clear();

private:
    std::shared_ptr<Engine> m_inner;
    std::shared_ptr<std::vector<std::string>> m_log;
    std::shared_ptr<std::vector<std::vector<TaggedValue>>> m_parameters;  // one entry an entry of the log
};

}  // namespace quellbrook::testing

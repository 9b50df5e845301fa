#include "tests/support/RecordingEngine.h"

namespace quellbrook::testing {

namespace {

using Log = std::vector<std::string>;
using Parameters = std::vector<std::vector<TaggedValue>>;

class RecordingConnection : public Connection {
public:
    RecordingConnection(std::unique_ptr<Connection> inner, std::shared_ptr<Log> log,
                        std::shared_ptr<Parameters> parameters)
        : m_inner(std::move(inner)), m_log(std::move(log)), m_parameters(std::move(parameters)) {}

    void Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
               const RowReceiver& receiver) override {
        Write(sql, parameters);
        m_inner->Query(sql, parameters, receiver);
    }
    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) override {
        Write(sql, parameters);
        m_inner->Execute(sql, parameters);
    }
    int32_t Insert(const std::string& sql, const std::vector<TaggedValue>& parameters,
                   const std::string& keyColumn) override {
        Write(sql, parameters);
        return m_inner->Insert(sql, parameters, keyColumn);
    }
    std::vector<ColumnDescription> DescribeTable(const std::string& table) override {
        return m_inner->DescribeTable(table);
    }
    void Begin() override {
        Write("BEGIN");
        m_inner->Begin();
    }
    void Commit() override {
        Write("COMMIT");
        m_inner->Commit();
    }
    void Rollback() noexcept override {
        Write("ROLLBACK");
        m_inner->Rollback();
    }
    std::string TransactionName() const override { return m_inner->TransactionName(); }
    bool IsHealthy() override { return m_inner->IsHealthy(); }
    void Reset() override { m_inner->Reset(); }

private:
    void Write(const std::string& text, const std::vector<TaggedValue>& parameters = {}) {
        m_log->push_back(text);
        m_parameters->push_back(parameters);
    }

    std::unique_ptr<Connection> m_inner;
    std::shared_ptr<Log> m_log;
    std::shared_ptr<Parameters> m_parameters;
};

}  // namespace

RecordingEngine::RecordingEngine(std::shared_ptr<Engine> inner)
    : m_inner(std::move(inner)),
      m_log(std::make_shared<std::vector<std::string>>()),
      m_parameters(std::make_shared<std::vector<std::vector<TaggedValue>>>()) {}

std::unique_ptr<Connection> RecordingEngine::Open() {
    return std::make_unique<RecordingConnection>(m_inner->Open(), m_log, m_parameters);
}

void RecordingEngine::Clear() {
    m_log->clear();
    m_parameters->clear();
}

}  // namespace quellbrook::testing

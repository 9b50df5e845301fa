#pragma once

#include "benchmarks/Baseline.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook::bench {

// The baseline on a database server: statements in the server's own words, and nothing but calls of the driver. Throws
// std::runtime_error with the driver's message.
class OdbcBaseline {
public:
    explicit OdbcBaseline(const std::string& connectionString);
    ~OdbcBaseline();
    OdbcBaseline(const OdbcBaseline&) = delete;
    OdbcBaseline& operator=(const OdbcBaseline&) = delete;

    // Sends a text of one or more statements and ignores rows.
    void Run(const std::string& text);
    std::vector<int32_t> Integers(const std::string& query);
    std::vector<std::string> Texts(const std::string& query);

    // A query for items, prepared once. All its parameters have the same value.
    class Query {
    public:
        Query(OdbcBaseline& baseline, const std::string& text, bool isNumber);
        ~Query();
        Query(Query&& other) noexcept;
        Baseline::Items Read(const std::string& value);

    private:
        struct Value;
        void* m_handle;
        std::unique_ptr<Value> m_value;
    };

private:
    void* m_environment = nullptr;
    void* m_connection = nullptr;
};

}  // namespace quellbrook::bench

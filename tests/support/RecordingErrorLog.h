#pragma once

#include "base/ErrorLog.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quellbrook::testing {

// A log that records its entries. An entry that was not announced fails the test, as does an announced entry that is
// missing at Verify.
class RecordingErrorLog : public ErrorLog {
public:
    struct Entry {
        std::string application;
        std::string source;
        std::string message;

        bool operator==(const Entry&) const = default;
    };

    // Expects one entry from this source, at any later time.
    void Announce(const std::string& source) { m_announced.push_back(source); }

    const std::vector<Entry>& Entries() const { return m_entries; }

    void Log(const std::string& application, const std::string& source, const std::string& message) override {
        m_entries.push_back({application, source, message});
        const auto found = std::find(m_announced.begin(), m_announced.end(), source);
        if (found == m_announced.end())
            ADD_FAILURE() << "Unexpected entry of the error log: " << source << ": " << message;
        else
            m_announced.erase(found);
    }

    void Verify() {
        for (const std::string& source : m_announced) ADD_FAILURE() << "No entry of the error log came from " << source;
        m_announced.clear();
    }

private:
    std::vector<std::string> m_announced;
    std::vector<Entry> m_entries;
};

}  // namespace quellbrook::testing

#pragma once

#include "sql/Row.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace quellbrook {

class Engine;

}  // namespace quellbrook

namespace quellbrook::tour {

// Reads the custody rows of a database through separate connections.
class CustodyRows {
public:
    // Remembers the existing rows.
    explicit CustodyRows(std::shared_ptr<Engine> engine);

    // The rows written since construction, property first, ordered by item and sequence.
    RowList Written() const;
    // The first column of the first row of a SELECT; Empty without a row.
    TaggedValue Ask(const std::string& select) const;

private:
    RowList Query(const std::string& select) const;

    std::shared_ptr<Engine> m_engine;
    std::map<std::string, std::map<int32_t, int32_t>> m_before;  // by key column: item and its highest SeqNo
};

}  // namespace quellbrook::tour

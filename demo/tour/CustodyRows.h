#pragma once

#include "sql/Row.h"

#include <cstdint>
#include <map>
#include <string>

namespace quellbrook::tour {

// Reads the custody rows of a database through a separate connection.
class CustodyRows {
public:
    // Remembers the existing rows.
    explicit CustodyRows(const std::string& databasePath);

    // The rows written since construction, property first, ordered by item and sequence.
    RowList Written() const;
    // The first column of the first row of a SELECT; Empty without a row.
    TaggedValue Ask(const std::string& select) const;

private:
    RowList Query(const std::string& select) const;

    std::string m_path;
    std::map<std::string, std::map<int32_t, int32_t>> m_before;  // by key column: item and its highest SeqNo
};

}  // namespace quellbrook::tour

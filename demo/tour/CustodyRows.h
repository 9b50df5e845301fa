#pragma once

#include "sql/Row.h"

#include <cstdint>
#include <map>
#include <string>

namespace quellbrook::tour {

// Reads the custody rows of a database over a connection of its own, beside the program's.
class CustodyRows {
public:
    // Takes note of the rows that stand now.
    explicit CustodyRows(const std::string& databasePath);

    // The rows written since, property first, each item's in their order.
    RowList Written() const;
    // The first column of the first row of a SELECT; Empty without a row.
    TaggedValue Ask(const std::string& select) const;

private:
    RowList Query(const std::string& select) const;

    std::string m_path;
    std::map<std::string, std::map<int32_t, int32_t>> m_before;  // by key column: item and its greatest SeqNo
};

}  // namespace quellbrook::tour

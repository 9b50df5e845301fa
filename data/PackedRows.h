#pragma once

#include "host/Row.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// Many rows of one result in little room: about the bytes of their values, against half a kilobyte for a Row. A row is
// made again when it is asked for.
class PackedRows {
public:
    // All rows come from one result, so they share its columns. Error 13 for a value that is an object.
    void Add(const Row& row);
    size_t Count() const { return m_starts.size(); }
    // position: 0 to Count() - 1.
    Row At(size_t position) const;
    // Gives back what growing took in advance.
    void ShrinkToFit();

private:
    std::shared_ptr<const ColumnSet> m_columns;
    std::string m_bytes;
    std::vector<size_t> m_starts;
};

}  // namespace quellbrook
